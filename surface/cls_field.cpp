#include "surface/cls_field.h"

#include "automation/member_rows.h"

#include <cstdint>
#include <string>

namespace korvex {

namespace {

template <class T, T (clsField::*Get)()>
consteval automation::Member Read(std::string_view name) {
    return automation::GetRow<Get>(name);
}

/// Texts are taken by reference, everything else by value.
template <class T>
using NewValue = std::conditional_t<std::is_same_v<T, std::string>, const std::string&, T>;

template <class T, void (clsField::*Let)(NewValue<T>)>
consteval automation::Member Write(std::string_view name) {
    return automation::LetRow<Let>(name);
}

constexpr automation::Member Members[] = {
    Read<std::string, &clsField::FieldName>("FieldName"),
    Write<std::string, &clsField::FieldName>("FieldName"),
    Read<std::int32_t, &clsField::DataType>("DataType"),
    Write<std::int32_t, &clsField::DataType>("DataType"),
    Read<bool, &clsField::IsPrimaryKey>("IsPrimaryKey"),
    Write<bool, &clsField::IsPrimaryKey>("IsPrimaryKey"),
    Read<bool, &clsField::IsAutoNumber>("IsAutoNumber"),
    Write<bool, &clsField::IsAutoNumber>("IsAutoNumber"),
    Read<bool, &clsField::IsForeignKey>("IsForeignKey"),
    Write<bool, &clsField::IsForeignKey>("IsForeignKey"),
    Read<std::int32_t, &clsField::FKObjectID>("FKObjectID"),
    Write<std::int32_t, &clsField::FKObjectID>("FKObjectID"),
    Read<std::string, &clsField::MaxLength>("MaxLength"),
    Write<std::string, &clsField::MaxLength>("MaxLength"),
    Read<std::int32_t, &clsField::ValueID>("ValueID"),
    Write<std::int32_t, &clsField::ValueID>("ValueID"),
    Read<std::int32_t, &clsField::FKValueID>("FKValueID"),
    Write<std::int32_t, &clsField::FKValueID>("FKValueID"),
    Read<std::string, &clsField::TypeSize>("TypeSize"),
    Write<std::string, &clsField::TypeSize>("TypeSize"),
    Read<std::int16_t, &clsField::nPrimaryKeySeq>("nPrimaryKeySeq"),
    Write<std::int16_t, &clsField::nPrimaryKeySeq>("nPrimaryKeySeq"),
    Read<std::string, &clsField::DefaultVal>("DefaultVal"),
    Write<std::string, &clsField::DefaultVal>("DefaultVal"),
    Read<bool, &clsField::IsLongFld>("IsLongFld"),
    Write<bool, &clsField::IsLongFld>("IsLongFld"),
};

constexpr automation::ClassInfo Info = {.name = "clsField", .description = {}, .members = Members};

}  // namespace

const automation::ClassInfo& clsField::Class() const noexcept { return Info; }

}  // namespace korvex
