#pragma once

#include "platform/native/sql/sqlite/sqlite_result.h"

#include <sqlite3.h>

namespace korvex::native::sql {

/// Raises the last error of the connection.
[[noreturn]] void RaiseSqliteError(sqlite3* database, int code);

/// Raises unless `code` is success.
inline void CheckSqlite(sqlite3* database, int code) {
    if (code != SQLITE_OK) RaiseSqliteError(database, code);
}

}  // namespace korvex::native::sql
