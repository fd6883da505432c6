#include "platform/native/sql/sqlite/sqlite_error.h"

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

constexpr CodeMeaning PrimaryCodes[] = {
    {SQLITE_TOOBIG, ErrorKind::ValueTooLarge}, {SQLITE_MISMATCH, ErrorKind::WrongType},
    {SQLITE_BUSY, ErrorKind::Locked},          {SQLITE_LOCKED, ErrorKind::Locked},
    {SQLITE_PERM, ErrorKind::ReadOnly},        {SQLITE_READONLY, ErrorKind::ReadOnly},
    {SQLITE_AUTH, ErrorKind::NoRights},        {SQLITE_IOERR, ErrorKind::DiskFailed},
    {SQLITE_FULL, ErrorKind::DiskFull},        {SQLITE_CANTOPEN, ErrorKind::CannotOpen},
    {SQLITE_NOTADB, ErrorKind::NotADatabase},  {SQLITE_CORRUPT, ErrorKind::NotADatabase},
};

}  // namespace

ErrorKind ClassifySqliteError(int code, std::string_view message) noexcept {
    const int primary = code & 0xff;
    if (primary == SQLITE_ERROR) return ClassifyStatementError(message);
    if (primary != SQLITE_CONSTRAINT) return MeaningOf(primary, PrimaryCodes);
    return Contains(message, "UNIQUE constraint") || Contains(message, "PRIMARY KEY")
               ? ErrorKind::DuplicateKey
               : ErrorKind::Constraint;
}

}  // namespace korvex::native::sql
