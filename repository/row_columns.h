#pragma once

#include "automation/convert.h"
#include "automation/variant.h"
#include "repository/catalog.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The columns of the repository's tables beside the members that hold them in memory.
namespace korvex::repository {

/// A column of rows of one type, under the name that it has in the repository.
template <class Row>
struct RowColumn {
    std::string_view name;
    automation::Variant (*get)(const Row& row);
    void (*set)(Row& row, const automation::Variant& value);  ///< errors as those of the conversions
};

namespace detail {

inline automation::Variant ToVariant(const std::optional<std::string>& text) {
    return text ? automation::Variant(*text) : automation::Variant::Null();
}
template <class T>
automation::Variant ToVariant(const T& value) {
    return value;
}
template <RowId Id>
automation::Variant ToVariant(const Id& id) {
    return Number(id);
}
template <RowId Id>
void FromVariant(Id& id, const automation::Variant& value) {
    id = Id(automation::ToLong(value));
}
inline void FromVariant(std::int32_t& number, const automation::Variant& value) {
    number = automation::ToLong(value);
}
inline void FromVariant(bool& flag, const automation::Variant& value) { flag = automation::ToBoolean(value); }
inline void FromVariant(std::string& text, const automation::Variant& value) {
    text = automation::ToString(value);
}
inline void FromVariant(std::optional<std::string>& text, const automation::Variant& value) {
    text = value.IsEmpty() ? std::nullopt : std::optional(automation::ToString(value));
}

template <class Row, class T>
Row RowOf(T Row::*);

}  // namespace detail

/// The column of a member: ColumnOf<&ObjectRow::Name>("Name").
template <auto Member, class Row = decltype(detail::RowOf(Member))>
constexpr RowColumn<Row> ColumnOf(std::string_view name) {
    return {name, [](const Row& row) { return detail::ToVariant(row.*Member); },
            [](Row& row, const automation::Variant& value) { detail::FromVariant(row.*Member, value); }};
}

inline constexpr RowColumn<DataDefRow> DataDefColumns[] = {
    ColumnOf<&DataDefRow::Storage>("Storage"), ColumnOf<&DataDefRow::RootObjectID>("RootObjectID")};
inline constexpr RowColumn<ObjectRow> ObjectColumns[] = {
    ColumnOf<&ObjectRow::ObjectID>("ObjectID"),
    ColumnOf<&ObjectRow::Name>("Name"),
    ColumnOf<&ObjectRow::CollectionObjectID>("CollectionObjectID"),
    ColumnOf<&ObjectRow::TableName>("TableName"),
    ColumnOf<&ObjectRow::IsIncluded>("IsIncluded"),
    ColumnOf<&ObjectRow::Guid>("Guid")};
inline constexpr RowColumn<InterfaceRow> InterfaceColumns[] = {
    ColumnOf<&InterfaceRow::InterfaceID>("InterfaceID"), ColumnOf<&InterfaceRow::Name>("Name")};
inline constexpr RowColumn<ObjectInterfaceRow> ObjectInterfaceColumns[] = {
    ColumnOf<&ObjectInterfaceRow::ObjectID>("ObjectID"),
    ColumnOf<&ObjectInterfaceRow::InterfaceID>("InterfaceID")};
inline constexpr RowColumn<ValueRow> ValueColumns[] = {ColumnOf<&ValueRow::ValueID>("ValueID"),
                                                       ColumnOf<&ValueRow::InterfaceID>("InterfaceID"),
                                                       ColumnOf<&ValueRow::ChildObjectID>("ChildObjectID"),
                                                       ColumnOf<&ValueRow::Name>("Name"),
                                                       ColumnOf<&ValueRow::FieldName>("FieldName"),
                                                       ColumnOf<&ValueRow::DataType>("DataType"),
                                                       ColumnOf<&ValueRow::MaxLength>("MaxLength"),
                                                       ColumnOf<&ValueRow::IsAutoNumber>("IsAutoNumber"),
                                                       ColumnOf<&ValueRow::DefaultVal>("DefaultVal"),
                                                       ColumnOf<&ValueRow::IsIncluded>("IsIncluded"),
                                                       ColumnOf<&ValueRow::IsReadOnly>("IsReadOnly"),
                                                       ColumnOf<&ValueRow::Description>("Description"),
                                                       ColumnOf<&ValueRow::Caption>("Caption"),
                                                       ColumnOf<&ValueRow::Translation>("Translation"),
                                                       ColumnOf<&ValueRow::MaxValue>("MaxValue"),
                                                       ColumnOf<&ValueRow::MinValue>("MinValue"),
                                                       ColumnOf<&ValueRow::VID>("VID"),
                                                       ColumnOf<&ValueRow::VIDTag1>("VIDTag1"),
                                                       ColumnOf<&ValueRow::VIDTag2>("VIDTag2"),
                                                       ColumnOf<&ValueRow::VIDTag3>("VIDTag3")};
inline constexpr RowColumn<PrimaryKeyRow> PrimaryKeyColumns[] = {
    ColumnOf<&PrimaryKeyRow::ObjectID>("ObjectID"), ColumnOf<&PrimaryKeyRow::ValueID>("ValueID"),
    ColumnOf<&PrimaryKeyRow::Seq>("Seq")};
inline constexpr RowColumn<ForeignKeyRow> ForeignKeyColumns[] = {
    ColumnOf<&ForeignKeyRow::ObjectID>("ObjectID"), ColumnOf<&ForeignKeyRow::ValueID>("ValueID"),
    ColumnOf<&ForeignKeyRow::FKObjectID>("FKObjectID"), ColumnOf<&ForeignKeyRow::FKValueID>("FKValueID"),
    ColumnOf<&ForeignKeyRow::FKObjectGUID>("FKObjectGUID")};

}  // namespace korvex::repository
