#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace korvex {

/// Outcome of the last public method of a clsCRUD. The error codes are the 16-bit pattern 0x8001 upward read
/// as signed numbers; one is skipped, and dbObjectNotModified is a positive 10.
enum dbResults : std::int32_t {
    dbNoError = 0,                          ///< the call did what it was asked for
    dbConnectError = -32767,                ///< ConnectDB: the connection did not open
    dbNotConnected = -32766,                ///< no ConnectDB before, or none that succeeded
    dbPrimaryKeyFieldNameMissing = -32765,  ///< the definition has no key column, and none was given
    dbPrimaryKeyMissing = -32764,           ///< a key that is Empty or Null, or one below 1 that was read
    dbTableNameMissing = -32763,            ///< the definition has no table
    dbBadParameter = -32762,                ///< a column's or table's name that is ""
    dbNoMatchingRecord = -32761,            ///< no record with that key
    dbCannotOpenRecordset = -32760,         ///< a statement failed: clsCRUD::TrappedError has the error
    dbParentNotInDatabase = -32759,         ///< the name of the foreign-key column does not hold FKPrefix
    dbObjectNotModified = 10,     ///< DbUpdateData: nothing reads Modified True, nothing was written
    dbTableNotIncluded = -32757,  ///< the definition is kept out of the database
};

/// The codes by name, for hosts that see them so.
inline constexpr std::pair<dbResults, std::string_view> DbResultNames[] = {
    {dbNoError, "dbNoError"},
    {dbConnectError, "dbConnectError"},
    {dbNotConnected, "dbNotConnected"},
    {dbPrimaryKeyFieldNameMissing, "dbPrimaryKeyFieldNameMissing"},
    {dbPrimaryKeyMissing, "dbPrimaryKeyMissing"},
    {dbTableNameMissing, "dbTableNameMissing"},
    {dbBadParameter, "dbBadParameter"},
    {dbNoMatchingRecord, "dbNoMatchingRecord"},
    {dbCannotOpenRecordset, "dbCannotOpenRecordset"},
    {dbParentNotInDatabase, "dbParentNotInDatabase"},
    {dbObjectNotModified, "dbObjectNotModified"},
    {dbTableNotIncluded, "dbTableNotIncluded"},
};

/// The name of a code; empty for a number that is none.
/// @param code the code, as LastResult gives it
/// @return "dbNoError", "dbConnectError" ...
constexpr std::string_view NameOf(dbResults code) noexcept {
    for (const auto& [known, name] : DbResultNames)
        if (known == code) return name;
    return {};
}

}  // namespace korvex
