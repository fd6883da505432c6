#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::repository {

/// The longest name, in UTF-16 units, that every target database takes.
inline constexpr std::int16_t MaxNameLength = 30;

/// Fits a generated name into the limit: a name longer than 30 - `nReserve` keeps only its last 30 -
/// `nReserve` units. Overflow (6) when the subtraction leaves 16 bits, InvalidProcedureCall (5) when it
/// leaves a negative limit and the name is to be cut.
std::string LimitNameLength(std::string_view sName, std::int16_t nReserve = 0);

}  // namespace korvex::repository
