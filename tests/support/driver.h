#pragma once

#include "platform/platform.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvex::tests {

/// What lies under the native engines; the same suites run over all of them.
enum class Driver { Sqlite, OdbcSqlite, MariaDb, PostgreSql };

/// Those that this build has databases for: servers only when it was configured to start them.
std::vector<Driver> AvailableDrivers();
inline auto AllDrivers() { return testing::ValuesIn(AvailableDrivers()); }
inline auto ServerDrivers() { return testing::Values(Driver::MariaDb, Driver::PostgreSql); }
/// The one whose server reads Oracle's language when it is told to.
inline constexpr Driver OracleReader = Driver::MariaDb;
/// The one whose server keeps a table of what each connection asked it.
inline constexpr Driver QuestionLogger = Driver::MariaDb;
/// Those whose databases are files.
inline auto FileDrivers() { return testing::Values(Driver::Sqlite, Driver::OdbcSqlite); }
std::string DriverName(const testing::TestParamInfo<Driver>& info);

/// What tests may ask about a driver.
bool IsServer(Driver driver);
/// Texts are equal whatever the case of their letters.
bool EqualIgnoresCase(Driver driver);
/// A column of numbers takes a text that is none.
bool ColumnsTakeAnyType(Driver driver);
/// Tables made in a transaction go when it is rolled back.
bool DefinitionsRollBack(Driver driver);
/// The key of a new record is asked for with a statement of its own.
bool AsksForNewKeys(Driver driver);
/// Double quotes are put around any name, an empty one too.
bool QuotesAnyName(Driver driver);
/// The expression for the schema whose tables a query means.
std::string CurrentSchema(Driver driver);
/// What is put behind a connection string to wait a second for a lock at most.
std::string ShortLockWait(Driver driver);
/// The server as the scripts know it that start and stop it.
std::string ServerName(Driver driver);
/// What makes a connection refuse to write, or write again.
std::string ReadOnlyStatement(Driver driver, bool readOnly);

/// The folder in which the servers were started for this test run.
std::string ServersFolder();

/// Makes the data sources those of servers that were started in another folder.
void UseServers(const std::string& folder);

/// Opens a repository database, whatever it is in: a file, or an ODBC string.
std::unique_ptr<dao::Database> OpenAt(const Platform& platform, const std::string& place);

/// Empty databases for one test, removed at its end.
class Places {
  public:
    Places(Driver driver, const TempFolder& folder) : m_driver(driver), m_folder(folder) {}
    Places(const Places&) = delete;
    Places& operator=(const Places&) = delete;
    ~Places();

    /// A place for a new database: the path of a file that is not there, or the ODBC string of an empty
    /// database on a server.
    std::string New(std::string_view name);
    /// What opens it through the driver: itself, or the ODBC string for the file. "DSN=" alone makes it an
    /// ODBC repository; it stands in an attribute that the driver ignores, as the driver manager leaks a data
    /// source that names nothing.
    std::string Connection(const std::string& place) const;

  private:
    void Run(const std::string& statement) const;

    Driver m_driver;
    const TempFolder& m_folder;
    std::vector<std::string> m_databases;
};

}  // namespace korvex::tests
