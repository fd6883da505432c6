#include "tests/windows/engines/dao_files.h"

#include "automation/com/bstr.h"
#include "automation/error.h"
#include "platform/native/dao/dao_engine.h"
#include "tests/windows/engines/unix_path.h"

#include <cstdio>
#include <string>

namespace korvex::test {

namespace {

constexpr std::int32_t databaseExists = 3204;
constexpr std::string_view databaseMark = "SQLite format 3";

[[noreturn]] void Raise(std::int32_t number, std::string_view text, std::string_view path) {
    throw automation::Error(number, std::string(text).append(": '").append(path).append("'."),
                            "DAO.DbEngine");
}

bool Exists(std::string_view path) {
    return GetFileAttributesW(com::ToWide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// An empty file counts as an empty database.
bool IsDatabase(std::string_view path) {
    std::FILE* file = _wfopen(com::ToWide(path).c_str(), L"rb");
    if (file == nullptr) return false;
    char bytes[databaseMark.size()];
    const std::size_t read = std::fread(bytes, 1, sizeof bytes, file);
    std::fclose(file);
    return read == 0 || std::string_view(bytes, read) == databaseMark;
}

std::unique_ptr<dao::Database> Connect(std::string_view path) {
    return native::dao_engine::OdbcDatabase("DRIVER=SQLite3;Database=" + UnixPath(path), false, nullptr);
}

}  // namespace

std::unique_ptr<dao::Database> OpenDatabaseFile(std::string_view path) {
    if (!Exists(path)) Raise(dao::FileNotFound, "Couldn't find file", path);
    if (!IsDatabase(path)) Raise(dao::UnrecognizedFormat, "Unrecognized database format", path);
    return Connect(path);
}

std::unique_ptr<dao::Database> CreateDatabaseFile(std::string_view path) {
    if (Exists(path)) Raise(databaseExists, "Database already exists", path);
    return Connect(path);
}

}  // namespace korvex::test
