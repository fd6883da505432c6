#pragma once

#include <gtest/gtest.h>

#include <string>

namespace korvex::tests {

/// The drivers under the native engines; the same suites run over both.
enum class Driver { Sqlite, OdbcSqlite };

inline std::string DriverName(const testing::TestParamInfo<Driver>& info) {
    return info.param == Driver::Sqlite ? "Sqlite" : "OdbcSqlite";
}

/// What opens a repository file through a driver. "DSN=" alone makes it an ODBC repository; it stands in an
/// attribute that the driver ignores, as the driver manager leaks a data source that names nothing.
inline std::string RepositoryConnection(Driver driver, const std::string& file) {
    return driver == Driver::Sqlite ? file : "DRIVER=SQLite3;NoDSN=1;Database=" + file;
}

}  // namespace korvex::tests
