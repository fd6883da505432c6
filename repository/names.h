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

/// Table of an object; `uniqueName` is the object's name, numbered where others of the call have it too.
std::string TableName(std::string_view uniqueName);

/// What the name of an object's key interface ends with.
inline constexpr std::string_view KeyInterfaceSuffix = "DBKeys";
/// Interface that holds the key values of an object.
std::string KeyInterfaceName(std::string_view objectName);

/// Column of the own key of an object: its name and "ID", short enough that the prefix of a foreign key of
/// `prefixLength` UTF-16 units fits before it.
std::string KeyColumnName(std::string_view objectName, std::int16_t prefixLength);

/// What the names of foreign-key columns begin with unless a host says otherwise.
inline constexpr std::string_view DefaultFKPrefix = "FK_";

/// Column of a plain value.
std::string ValueColumnName(std::string_view valueName);

/// Columns in which a table keeps the state of its records: of single objects, and of collections.
inline constexpr std::string_view SelectStateColumn = "QORSelectState";
inline constexpr std::string_view CounterColumn = "QORCounter";
inline constexpr std::string_view SelectedItemColumn = "QORSelectedItem";
inline constexpr std::string_view CounterHolderColumn = "QORCounterHolder";

}  // namespace korvex::repository
