#pragma once

#include <gtest/gtest.h>

#include <string>

namespace korvex::tests {

/// The drivers under the native engines; the same suites run over both.
enum class Driver { Sqlite, OdbcSqlite };

inline std::string DriverName(const testing::TestParamInfo<Driver>& info) {
    return info.param == Driver::Sqlite ? "Sqlite" : "OdbcSqlite";
}

/// What opens a repository file through a driver.
inline std::string RepositoryConnection(Driver driver, const std::string& file) {
    return driver == Driver::Sqlite ? file : "DRIVER=SQLite3;DSN=;Database=" + file;
}

}  // namespace korvex::tests
