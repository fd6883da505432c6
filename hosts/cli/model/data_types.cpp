#include "hosts/cli/model/data_types.h"

#include <algorithm>
#include <iterator>

namespace korvex::cli {

namespace {

constexpr DataTypeName Names[] = {
    {"null", TypeNull},     {"integer", TypeInteger}, {"long", TypeLong},       {"single", 4},
    {"double", 5},          {"currency", 6},          {"date", TypeDate},       {"string", TypeString},
    {"object", TypeObject}, {"boolean", TypeBoolean}, {"variant", TypeVariant}, {"unknown", TypeNoColumn},
    {"byte", TypeByte},
};

}  // namespace

std::span<const DataTypeName> DataTypeNames() noexcept { return Names; }

std::optional<std::int32_t> DataTypeCode(std::string_view name) noexcept {
    const auto* entry = std::find_if(std::begin(Names), std::end(Names),
                                     [name](const DataTypeName& type) { return type.name == name; });
    if (entry == std::end(Names)) return std::nullopt;
    return entry->code;
}

std::string_view DataTypeText(std::int32_t code) noexcept {
    const auto* entry = std::find_if(std::begin(Names), std::end(Names),
                                     [code](const DataTypeName& type) { return type.code == code; });
    return entry == std::end(Names) ? std::string_view() : entry->name;
}

bool BecomesColumn(std::int32_t code) noexcept { return code != TypeNull && code != TypeNoColumn; }

bool HasLength(std::int32_t code, bool oracle) noexcept {
    switch (code) {
        case TypeInteger:
        case TypeLong:
        case 4:
        case 5:
        case 6:
        case TypeDate:
        case TypeObject:
        case TypeBoolean:
            return false;
        case TypeVariant:
            return oracle;
        default:
            return true;
    }
}

}  // namespace korvex::cli
