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

/// The declared length of a column as a number. TypeMismatch (13) naming the table, the column and the text
/// when it is none.
double DeclaredLength(std::string_view table, const Column& column);

/// `typeName(size)`: the declared length as it is written, or 50 for a length of 0 or less.
std::string SizedTypeText(std::string_view typeName, const Column& column, double declaredLength);

/// Appends " Not NULL", " NULL" or the default of the column, each with its leading blank.
void AppendNullOrDefault(std::string& text, const Column& column);

}  // namespace korvex::scriptgen
