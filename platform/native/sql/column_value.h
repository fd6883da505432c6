#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/kept_row.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Values between hosts and columns. Both drivers give a value back in the one form that its column's type
/// asks for.
namespace korvex::native::sql {

/// `value` in the form in which reading `column` would give it back. Empty becomes Null. EngineError
/// WrongType or ValueTooLarge, naming the column, for what does not convert.
automation::Variant ForColumn(const automation::Variant& value, const ColumnInfo& column);

/// A whole number or a fraction as the engine stores it, in the form of the column's type.
automation::Variant FromInteger(std::int64_t stored, const ColumnInfo& column);
automation::Variant FromReal(double stored, const ColumnInfo& column);
/// A stored text; what does not read as the column's type stays text.
automation::Variant FromText(std::string_view stored, const ColumnInfo& column);

/// "2026-11-21" or "2026-11-21 08:30:00[.250]", the form of the engine's own date functions.
std::string DateText(automation::Date date);

}  // namespace korvex::native::sql
