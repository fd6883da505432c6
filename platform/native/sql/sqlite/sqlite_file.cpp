#include "platform/native/sql/sqlite/sqlite_file.h"

#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/sqlite/sqlite_error.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace korvex::native::sql {
namespace {

constexpr std::string_view DatabaseHeader{"SQLite format 3\0", 16};
/// What the desktop engine's files hold at byte 4.
constexpr std::size_t DesktopHeaderAt = 4;
constexpr std::array<std::string_view, 2> DesktopHeaders = {"Standard Jet DB", "Standard ACE DB"};

[[noreturn]] void RaiseSystemError(const std::string& path, int error) {
    const ErrorKind kind =
        error == ENOENT || error == ENOTDIR ? ErrorKind::FileNotFound : ErrorKind::CannotOpen;
    const std::string reason =
        kind == ErrorKind::FileNotFound ? "The file does not exist" : std::generic_category().message(error);
    throw EngineError(kind, reason + ": " + path);
}

/// Read through the engine's own handle: closing another one of the same file would drop every lock that this
/// process holds on it, under whatever connection.
std::string ReadHeader(sqlite3* database) {
    sqlite3_file* file = nullptr;
    CheckSqlite(database, sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file));
    std::array<char, 64> buffer{};
    const int code = file->pMethods->xRead(file, buffer.data(), static_cast<int>(buffer.size()), 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
        throw EngineError(ErrorKind::CannotOpen, sqlite3_errstr(code));
    return {buffer.data(), buffer.size()};
}

bool HasDesktopMark(std::string_view header) noexcept {
    for (const std::string_view mark : DesktopHeaders) {
        if (header.size() > DesktopHeaderAt && header.substr(DesktopHeaderAt).starts_with(mark)) return true;
    }
    return false;
}

[[noreturn]] void RaiseNotADatabase(const std::string& path, std::string_view why) {
    throw EngineError(ErrorKind::NotADatabase, std::string(why) + ": " + path);
}

bool IsEmptyFile(const struct stat& status) noexcept {
    return S_ISREG(status.st_mode) && status.st_size == 0;
}

}  // namespace

void RequireDatabaseFile(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) RaiseSystemError(path, errno);
    if (S_ISDIR(status.st_mode)) RaiseSystemError(path, EISDIR);
    if (!S_ISREG(status.st_mode)) RaiseNotADatabase(path, "This is no regular file");
    if (IsEmptyFile(status)) RaiseNotADatabase(path, "The file is empty, it holds no database");
    if (::access(path.c_str(), R_OK) != 0) RaiseSystemError(path, errno);
}

void RequireDatabaseHeader(sqlite3* database, const std::string& path) {
    const std::string header = ReadHeader(database);
    if (HasDesktopMark(header))
        RaiseNotADatabase(path, "A file of the desktop database engine is read as a repository only");
    if (!header.starts_with(DatabaseHeader)) RaiseNotADatabase(path, "The file is no database");
}

bool IsDesktopFile(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    sqlite3* opened = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
    return code == SQLITE_OK && HasDesktopMark(ReadHeader(opened));
}

bool IsFileFree(const std::string& path) noexcept {
    struct stat status {};
    return ::stat(path.c_str(), &status) != 0 || IsEmptyFile(status);
}

bool MakeDatabaseFile(const std::string& path) {
    constexpr mode_t mode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const int handle = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    const int failure = errno;
    if (handle >= 0) {
        ::close(handle);
        return true;
    }
    struct stat status {};
    if (failure == EEXIST && ::stat(path.c_str(), &status) == 0 && IsEmptyFile(status)) return false;
    throw EngineError(ErrorKind::CannotOpen, std::generic_category().message(failure) + ": " + path);
}

}  // namespace korvex::native::sql
