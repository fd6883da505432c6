#include "platform/native/sql/sqlite/sqlite_error.h"

#include <cerrno>
#include <string>

namespace korvex::native::sql {

void RaiseSqliteError(sqlite3* database, int code) {
    const std::string message = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    const bool noSpace =
        (code & 0xff) == SQLITE_IOERR && database != nullptr &&
        (sqlite3_system_errno(database) == ENOSPC || sqlite3_system_errno(database) == EDQUOT);
    throw EngineError(noSpace ? ErrorKind::DiskFull : ClassifySqliteError(code, message), code, message);
}

}  // namespace korvex::native::sql
