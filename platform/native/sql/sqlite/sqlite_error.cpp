#include "platform/native/sql/sqlite/sqlite_error.h"

#include <cerrno>
#include <string>

namespace korvex::native::sql {

EngineError SqliteError(sqlite3* database, int code) {
    const std::string message = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    const bool noSpace =
        (code & 0xff) == SQLITE_IOERR && database != nullptr &&
        (sqlite3_system_errno(database) == ENOSPC || sqlite3_system_errno(database) == EDQUOT);
    const char* file = database == nullptr ? nullptr : sqlite3_db_filename(database, "main");
    return {noSpace ? ErrorKind::DiskFull : ClassifySqliteError(code, message), message,
            file == nullptr ? "" : file, code};
}

}  // namespace korvex::native::sql
