#pragma once

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace korvex::bench {

struct SqliteClosing {
    void operator()(sqlite3* connection) const noexcept { sqlite3_close(connection); }
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using SqliteConnection = std::unique_ptr<sqlite3, SqliteClosing>;
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteClosing>;

inline void RequireSqlite(bool done, sqlite3* connection) {
    if (!done) throw std::runtime_error(std::string("floor: ") + sqlite3_errmsg(connection));
}

/// Without the locks that threads need, and without planning a prepared statement anew for what is bound to
/// it.
inline SqliteConnection OpenSqlite(const std::string& file) {
    sqlite3* opened = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    const int result = sqlite3_open_v2(file.c_str(), &opened, flags, nullptr);
    SqliteConnection connection(opened);
    RequireSqlite(result == SQLITE_OK, opened);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
    return connection;
}

inline SqliteStatement PrepareSqlite(sqlite3* connection, const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    RequireSqlite(sqlite3_prepare_v3(connection, text.c_str(), static_cast<int>(text.size()) + 1,
                                     SQLITE_PREPARE_PERSISTENT, &statement, nullptr) == SQLITE_OK,
                  connection);
    return SqliteStatement(statement);
}

}  // namespace korvex::bench
