#include "hosts/cli/model/data_types.h"

#include "automation/convert.h"
#include "automation/error.h"

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
    const auto* entry = std::ranges::find(Names, name, &DataTypeName::name);
    return entry == std::end(Names) ? std::nullopt : std::optional(entry->code);
}

std::string_view DataTypeText(std::int32_t code) noexcept {
    const auto* entry = std::ranges::find(Names, code, &DataTypeName::code);
    return entry == std::end(Names) ? std::string_view() : entry->name;
}

bool BecomesColumn(std::int32_t code) noexcept { return code != TypeNull && code != TypeNoColumn; }

bool IsNumeric(std::int32_t code) noexcept {
    return (code >= TypeInteger && code < TypeDate) || code == TypeBoolean;
}

bool HasLength(std::int32_t code, bool oracle) noexcept {
    if (code == TypeVariant) return oracle;
    return !IsNumeric(code) && code != TypeDate && code != TypeObject;
}

std::optional<double> NumberIn(std::string_view text) {
    try {
        return automation::ParseNumber(text);
    } catch (const automation::Error&) {
        return std::nullopt;
    }
}

}  // namespace korvex::cli
