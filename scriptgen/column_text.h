#pragma once

#include "automation/variant.h"
#include "scriptgen/column.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Pieces of column definitions that all dialects share.
namespace korvex::scriptgen {

/// A variant type number as the repository's DataType holds it.
constexpr std::int32_t TypeCode(automation::VarType type) { return static_cast<std::int32_t>(type); }

/// The column types of a dialect.
struct TypeNames {
    std::string_view integer16, integer32, single, real, currency, date, boolean, object, variant;
    std::string_view byte = {};  ///< "" where it is a text
    std::string_view text;       ///< of variable length, which stands behind it
    std::string_view longText;   ///< for texts that are longer
};

/// The type of a repository's data type; `text` for all that has no other.
std::string_view TypeName(const TypeNames& types, std::int32_t dataType);

/// The declared length of a column as a number. TypeMismatch (13) naming the table, the column and the text
/// when it is none.
double DeclaredLength(std::string_view table, const Column& column);

/// Appends " Not NULL", " NULL" or the default of the column, each with its leading blank.
void AppendNullOrDefault(std::string& text, const Column& column);

}  // namespace korvex::scriptgen
