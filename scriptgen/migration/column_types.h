#pragma once

#include "automation/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What columns of a type hold, whatever an engine calls it, and what becomes of values in another type.
namespace korvex::scriptgen {

enum class TypeKind : std::uint8_t { Boolean, Whole, Floating, Decimal, Date, Text, Bytes };

struct ColumnType {
    TypeKind kind = TypeKind::Text;
    double lowest = 0, highest = 0;  ///< of a number
    int digits = 0;                  ///< that a number keeps
    int scale = 0;                   ///< of them behind the point, for a decimal; those of a date's seconds
    double length = 0;               ///< of a text, in characters; infinite for long ones
};

/// The type that an engine writes so. `float` is a single on MariaDB (`floatIsSingle`) and a double
/// elsewhere.
ColumnType ColumnTypeOf(std::string_view text, bool floatIsSingle);

/// How much a change takes away.
enum class ChangeClass : std::uint8_t {
    Safe,
    Lossy,        ///< values that do not fit are rounded, or hinder it
    Destructive,  ///< values go
    Blocked,      ///< the engine cannot do it, or no statement carries the values
};
std::string_view ClassName(ChangeClass value);

/// What becomes of the values of a column when its type changes.
struct Conversion {
    ChangeClass cls = ChangeClass::Safe;
    std::string reason;      ///< for a person; "" for what is safe
    bool isPossible = true;  ///< values can be carried; else the column is made anew
};
Conversion ConversionBetween(const ColumnType& before, const ColumnType& now);

/// What becomes of one value. A date that becomes another date is given as a text, with all its digits.
enum class Fit : std::uint8_t { Whole, Rounded, None };
Fit FitOf(const automation::Variant& value, const ColumnType& before, const ColumnType& now);

}  // namespace korvex::scriptgen
