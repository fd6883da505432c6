#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

namespace korvex {

/// Outcome of the last public method of a clsCRUD. The error codes are the 16-bit pattern 0x8001 upward read
/// as signed numbers; one is skipped, and dbObjectNotModified is a positive 10.
enum dbResults : std::int32_t {
    dbNoError = 0,
    dbConnectError = -32767,
    dbNotConnected = -32766,
    dbPrimaryKeyFieldNameMissing = -32765,
    dbPrimaryKeyMissing = -32764,
    dbTableNameMissing = -32763,
    dbBadParameter = -32762,
    dbNoMatchingRecord = -32761,
    dbCannotOpenRecordset = -32760,
    dbParentNotInDatabase = -32759,
    dbObjectNotModified = 10,
    dbTableNotIncluded = -32757,
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
constexpr std::string_view NameOf(dbResults code) noexcept {
    for (const auto& [known, name] : DbResultNames)
        if (known == code) return name;
    return {};
}

}  // namespace korvex
