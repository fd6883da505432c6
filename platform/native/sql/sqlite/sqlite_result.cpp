#include "platform/native/sql/sqlite/sqlite_result.h"

#include <sqlite3.h>

namespace korvex::native::sql {
namespace {

bool Contains(std::string_view text, std::string_view part) noexcept {
    return text.find(part) != std::string_view::npos;
}

/// SQLITE_ERROR tells its cases apart by their text only.
ErrorKind ClassifyStatementError(std::string_view message) noexcept {
    if (Contains(message, "no such table")) return ErrorKind::NoSuchTable;
    if (Contains(message, "no such column") || Contains(message, "has no column named")) {
        return ErrorKind::NoSuchColumn;
    }
    if (message.starts_with("table ") && Contains(message, " already exists")) return ErrorKind::TableExists;
    if (Contains(message, "syntax error") || Contains(message, "unrecognized token") ||
        Contains(message, "incomplete input") || message.starts_with("unknown database")) {
        return ErrorKind::Syntax;
    }
    return ErrorKind::Other;
}

}  // namespace

ErrorKind ClassifySqliteError(int code, std::string_view message) noexcept {
    switch (code & 0xff) {
        case SQLITE_ERROR:
            return ClassifyStatementError(message);
        case SQLITE_CONSTRAINT:
            return Contains(message, "UNIQUE constraint") || Contains(message, "PRIMARY KEY")
                       ? ErrorKind::DuplicateKey
                       : ErrorKind::Constraint;
        case SQLITE_TOOBIG:
            return ErrorKind::ValueTooLarge;
        case SQLITE_MISMATCH:
            return ErrorKind::WrongType;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return ErrorKind::Locked;
        case SQLITE_PERM:
        case SQLITE_READONLY:
            return ErrorKind::ReadOnly;
        case SQLITE_AUTH:
            return ErrorKind::NoRights;
        case SQLITE_IOERR:
            return ErrorKind::DiskFailed;
        case SQLITE_FULL:
            return ErrorKind::DiskFull;
        case SQLITE_CANTOPEN:
            return ErrorKind::CannotOpen;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return ErrorKind::NotADatabase;
        default:
            return ErrorKind::Other;
    }
}

}  // namespace korvex::native::sql
