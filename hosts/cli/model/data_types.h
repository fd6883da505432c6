#pragma once

#include "repository/catalog.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvex::cli {

/// Data type codes of values that this program speaks of by itself.
inline constexpr std::int32_t TypeNull = 1;
inline constexpr std::int32_t TypeInteger = 2;
inline constexpr std::int32_t TypeLong = 3;
inline constexpr std::int32_t TypeDate = 7;
inline constexpr std::int32_t TypeString = 8;
inline constexpr std::int32_t TypeObject = 9;
inline constexpr std::int32_t TypeBoolean = 11;
inline constexpr std::int32_t TypeVariant = 12;
using repository::TypeNoColumn;
inline constexpr std::int32_t TypeByte = 17;

struct DataTypeName {
    std::string_view name;
    std::int32_t code;
};

/// The data types that have a name, by rising code.
std::span<const DataTypeName> DataTypeNames() noexcept;

/// Code of a named type, in exactly this spelling.
std::optional<std::int32_t> DataTypeCode(std::string_view name) noexcept;
/// "string" for 8; empty for a code without a name.
std::string_view DataTypeText(std::int32_t code) noexcept;

/// Whether a plain value of that type becomes a column of its object's table.
bool BecomesColumn(std::int32_t code) noexcept;

/// Whole and broken numbers, money and flags.
bool IsNumeric(std::int32_t code) noexcept;

/// Types whose columns take their size from the value's maximum length: text and every unknown code; with
/// `oracle` variants as well.
bool HasLength(std::int32_t code, bool oracle) noexcept;

/// The number that a text is; nothing for any other text.
std::optional<double> NumberIn(std::string_view text);

}  // namespace korvex::cli
