#include "surface/cls_field.h"

#include "automation/member_rows.h"
#include "surface/korvex_help.h"

#include <cstdint>
#include <string>

namespace korvex {

namespace {

/// Texts are taken by reference, everything else by value.
template <class T>
using NewValue = std::conditional_t<std::is_same_v<T, std::string>, const std::string&, T>;

#define KORVEX_PROPERTY(type, name)                                                                          \
    automation::GetRow<automation::Taking<>(&clsField::name)>(#name,                                         \
                                                              {.description = KORVEX_HELP_clsField_##name}), \
        automation::LetRow<automation::Taking<NewValue<type>>(&clsField::name)>(                             \
            #name, {.description = KORVEX_HELP_clsField_##name})

constexpr automation::Member Members[] = {
    KORVEX_PROPERTY(std::string, FieldName),
    KORVEX_PROPERTY(std::int32_t, DataType),
    KORVEX_PROPERTY(bool, IsPrimaryKey),
    KORVEX_PROPERTY(bool, IsAutoNumber),
    KORVEX_PROPERTY(bool, IsForeignKey),
    KORVEX_PROPERTY(std::int32_t, FKObjectID),
    KORVEX_PROPERTY(std::string, MaxLength),
    KORVEX_PROPERTY(std::int32_t, ValueID),
    KORVEX_PROPERTY(std::int32_t, FKValueID),
    KORVEX_PROPERTY(std::string, TypeSize),
    KORVEX_PROPERTY(std::int16_t, nPrimaryKeySeq),
    KORVEX_PROPERTY(std::string, DefaultVal),
    KORVEX_PROPERTY(bool, IsLongFld),
};

#undef KORVEX_PROPERTY

constexpr automation::ClassInfo Info = {
    .name = "clsField", .description = KORVEX_HELP_clsField, .members = Members};

}  // namespace

const automation::ClassInfo& clsField::Class() const noexcept { return Info; }

}  // namespace korvex
