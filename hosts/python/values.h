#pragma once

#include "automation/variant.h"
#include "hosts/python/handle.h"

#include <string_view>
#include <vector>

/// Values between Python and the library. What automation cannot hold is refused, never changed.
namespace korvex::python {

/// None is Nothing where an object is expected, else Null; Ellipsis an argument that was left out; int,
/// float, Decimal (as Currency), datetime, date, str, bytes and path objects are values; objects of the
/// library are themselves, and those of other classes written in Python are objects that the library calls by
/// name. Raises TypeError for anything else, Overflow (6) for numbers that no automation type holds,
/// TypeMismatch (13) for a Decimal with more than four decimals, a datetime with a time zone or parts of
/// milliseconds, InvalidProcedureCall (5) for text with a lone surrogate.
automation::Variant ToVariant(py::handle value, automation::VarType expected = automation::VarType::Variant);

/// Empty, Null and Nothing are None; Currency is a Decimal, a date a datetime.
py::object ToPython(const automation::Variant& value);

/// Values as a tuple.
py::tuple ToPython(const std::vector<automation::Variant>& values);

inline py::str Text(std::string_view text) { return {text.data(), text.size()}; }
/// Text for people; what is no UTF-8 is replaced.
py::str ReadableText(std::string_view text);

/// Names the Python class of the library's objects, and what makes one of a Handle.
void UseObjectClass(py::object objectClass, py::object wrap);

}  // namespace korvex::python
