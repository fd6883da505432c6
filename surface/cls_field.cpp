#include "surface/cls_field.h"

#include "automation/member_rows.h"
#include "scriptgen/column.h"
#include "surface/korvex_help.h"

#include <cstdint>
#include <string>

namespace korvex {

namespace {

/// Texts are taken by reference, everything else by value.
template <class T>
using NewValue = std::conditional_t<std::is_same_v<T, std::string>, const std::string&, T>;
template <class T>
constexpr automation::OverloadTaking<NewValue<T>> TakingNew;

// clang-format off
#define KORVEX_PROPERTIES(property) \
    property(std::string, FieldName) \
    property(std::int32_t, DataType) \
    property(bool, IsPrimaryKey) \
    property(bool, IsAutoNumber) \
    property(bool, IsForeignKey) \
    property(std::int32_t, FKObjectID) \
    property(std::string, MaxLength) \
    property(std::int32_t, ValueID) \
    property(std::int32_t, FKValueID) \
    property(std::string, TypeSize) \
    property(std::int16_t, nPrimaryKeySeq) \
    property(std::string, DefaultVal) \
    property(bool, IsLongFld)
// clang-format on

#define KORVEX_ROWS(type, name)                                                                              \
    automation::GetRow<automation::Taking<>(&clsField::name)>(#name,                                         \
                                                              {.description = KORVEX_HELP_clsField_##name}), \
        automation::LetRow<TakingNew<type>(&clsField::name)>(#name,                                          \
                                                             {.description = KORVEX_HELP_clsField_##name}),

constexpr automation::Member Members[] = {KORVEX_PROPERTIES(KORVEX_ROWS)};

#undef KORVEX_ROWS

constexpr automation::ClassInfo Info = {
    .name = "clsField", .description = KORVEX_HELP_clsField, .members = Members};

}  // namespace

clsField::clsField() : m_column(std::make_unique<scriptgen::Column>()) {}

clsField::~clsField() = default;

/// Identifiers are numbers to hosts.
#define KORVEX_ACCESSORS(type, name)                       \
    type clsField::name() { return type(m_column->name); } \
    void clsField::name(NewValue<type> value) { m_column->name = decltype(m_column->name)(value); }

KORVEX_PROPERTIES(KORVEX_ACCESSORS)

#undef KORVEX_ACCESSORS
#undef KORVEX_PROPERTIES

const automation::ClassInfo& clsField::Class() const noexcept { return Info; }

}  // namespace korvex
