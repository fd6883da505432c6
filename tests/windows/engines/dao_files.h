#pragma once

#include "platform/dao.h"

#include <memory>
#include <string_view>

/// Database files of the test engine: SQLite files, through ODBC.
namespace korvex::test {

/// FileNotFound (3024) for a missing file, UnrecognizedFormat (3343) for one that is no database.
std::unique_ptr<dao::Database> OpenDatabaseFile(std::string_view path);
/// DAO's "Database already exists" (3204) for a path that is taken.
std::unique_ptr<dao::Database> CreateDatabaseFile(std::string_view path);

}  // namespace korvex::test
