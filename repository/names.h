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
/// Whether `table` is a table that an object of that name can get, with or without a number.
bool IsTableNameOf(std::string_view table, std::string_view objectName);

/// Interface that holds the key values of an object of that name, and whether a name is one of such an
/// interface, in any case.
std::string KeyInterfaceName(std::string_view objectName);
bool IsKeyInterfaceName(std::string_view name);

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

/// Whether SQL text takes the name as it stands: letters of any script, digits, '_', '$' and '#', no digit
/// first.
bool IsIdentifier(std::string_view name);

/// Whether a text holds a control character, a line break for one: it would end a line of a script.
bool HasControlCharacter(std::string_view text);

/// The first part of a name by which SQL text would take it for more than a name, in words ("a quote",
/// "\"--\"", "a control character"); empty for none.
std::string FindSqlMark(std::string_view name);

}  // namespace korvex::repository
