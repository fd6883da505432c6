#pragma once

#include "platform/native/sql/engine_error.h"

#include <sqlite3.h>

#include <string_view>

namespace korvex::native::sql {

/// What a result code (extended or primary) and its message mean. Used for the engine's ODBC driver as well,
/// which reports nothing finer.
ErrorKind ClassifySqliteError(int code, std::string_view message) noexcept;

/// The last error of the connection.
EngineError SqliteError(sqlite3* database, int code);

/// Raises unless `code` is success.
inline void CheckSqlite(sqlite3* database, int code) {
    if (code != SQLITE_OK) throw SqliteError(database, code);
}

}  // namespace korvex::native::sql
