#pragma once

#include "automation/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Conversions between automation values, as the automation runtime does them in English:
/// - Empty becomes 0, False, "" or the date zero; Null raises InvalidUseOfNull (94); Missing, objects and
///   arrays of bytes raise TypeMismatch (13).
/// - Fractions round half to even; a number outside the target raises Overflow (6).
/// - True is -1 as a number (255 as a Byte) and "True" as text; any number but zero is True; the texts True
///   and False convert to Boolean in any case, other texts through their number.
/// - Text becomes a number when, blanks around it removed, all of it is one: sign, digits with or without
///   thousands commas, decimal point, exponent, "&H" and "&O" literals, amounts like "$1,234.50" and
///   "(12)"; anything else, the empty text included, raises TypeMismatch (13).
namespace korvex::automation {

/// Any number but zero is True; of texts "True" and "False", in any case, and those that are numbers.
bool ToBoolean(const Variant& value);
/// 0 to 255.
std::uint8_t ToByte(const Variant& value);
/// -32,768 to 32,767.
std::int16_t ToInteger(const Variant& value);
/// -2,147,483,648 to 2,147,483,647.
std::int32_t ToLong(const Variant& value);
/// 64 bits, signed.
std::int64_t ToLongLong(const Variant& value);
/// Rounded to the nearest that 32 bits can hold; Overflow (6) beyond their greatest.
float ToSingle(const Variant& value);
/// A 64-bit integer is rounded to the nearest that a double can hold.
double ToDouble(const Variant& value);
/// Four decimals, half to even; Overflow (6) beyond 922,337,203,685,477.5807.
Currency ToCurrency(const Variant& value);
/// Text is read as ISO 8601 ("2026-11-21", "2026-11-21T08:30:00", a blank for the "T"), month/day/year or
/// with the month's name, with an optional time and AM or PM; a time alone is one of day zero. Overflow (6)
/// outside the years 100 to 9999.
Date ToDate(const Variant& value);
/// Numbers with at most 7 (Single) or 15 (Double) significant digits, trailing zeros left out: "0.1",
/// "0.00001", "123456789012345", "1E+15", "3.33333333333333E-02" (where plain writing would take more than
/// that many places); dates as month/day/year with the time of day only when there is one, times of day zero
/// alone ("11/21/2026 8:30:00 AM").
std::string ToString(const Variant& value);
/// The object held; raises ObjectRequired (424) for anything that is no object, ObjectVariableNotSet (91) for
/// Nothing.
ObjectRef ToObject(const Variant& value);

/// `value` as `type`. VarType::Variant leaves any value as it is, Missing included. VarType::Object takes
/// objects and Nothing; anything else raises TypeMismatch (13).
Variant ChangeType(const Variant& value, VarType type);

/// The numeric value of a text as the conversions above read it, or TypeMismatch (13).
double ParseNumber(std::string_view text);

/// ISO 8601 text of a date: "2026-11-21", with "T08:30:00" when there is a time of day, with milliseconds
/// when there are any.
std::string FormatIsoDate(Date date);
/// `date` rounded as FormatIsoDate rounds it.
Date ToMilliseconds(Date date);
/// Reads what FormatIsoDate writes; TypeMismatch (13) for anything else.
Date ParseIsoDate(std::string_view text);

}  // namespace korvex::automation
