#include "support/driver.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/native/native_platform.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace korvex::tests {
namespace {

/// Unless a test has servers of its own, it uses those of the whole run.
std::string DataSource(Driver driver) {
    const char* used = std::getenv("ODBCINI");
    if (used == nullptr || !std::string_view(used).starts_with(ServersFolder())) UseServers(ServersFolder());
    return driver == Driver::MariaDb ? "DSN=korvex_mariadb" : "DSN=korvex_postgresql";
}

}  // namespace

std::string DriverName(const testing::TestParamInfo<Driver>& info) {
    switch (info.param) {
        case Driver::Sqlite:
            return "Sqlite";
        case Driver::OdbcSqlite:
            return "OdbcSqlite";
        case Driver::MariaDb:
            return "MariaDb";
        case Driver::PostgreSql:
            return "PostgreSql";
    }
    return "Unknown";
}

std::vector<Driver> AvailableDrivers() {
    std::vector<Driver> drivers = {Driver::Sqlite, Driver::OdbcSqlite};
    if (!ServersFolder().empty()) drivers.insert(drivers.end(), {Driver::MariaDb, Driver::PostgreSql});
    return drivers;
}

bool IsServer(Driver driver) { return driver == Driver::MariaDb || driver == Driver::PostgreSql; }

bool ColumnsTakeAnyType(Driver driver) { return !IsServer(driver); }

bool DefinitionsRollBack(Driver driver) { return driver != Driver::MariaDb; }

bool AsksForNewKeys(Driver driver) { return driver == Driver::OdbcSqlite; }

bool QuotesAnyName(Driver driver) { return !IsServer(driver); }

std::string CurrentSchema(Driver driver) {
    return driver == Driver::MariaDb ? "database()" : "current_schema()";
}

std::string ShortLockWait(Driver driver) {
    return driver == Driver::MariaDb ? ";INITSTMT={set innodb_lock_wait_timeout=1}"
                                     : ";ConnSettings={set lock_timeout=500}";
}

std::string ServerName(Driver driver) { return driver == Driver::MariaDb ? "mariadb" : "postgresql"; }

std::string ReadOnlyStatement(Driver driver, bool readOnly) {
    switch (driver) {
        case Driver::MariaDb:
            return std::string("set session transaction read ") + (readOnly ? "only" : "write");
        case Driver::PostgreSql:
            return std::string("set default_transaction_read_only = ") + (readOnly ? "on" : "off");
        default:
            return std::string("pragma query_only = ") + (readOnly ? "on" : "off");
    }
}

bool EqualIgnoresCase(Driver driver) { return driver == Driver::MariaDb; }

std::string ServersFolder() { return KORVEX_TEST_SERVERS_FOLDER; }

/// The driver manager looks there for the data sources.
void UseServers(const std::string& folder) {
    if (setenv("ODBCINI", (folder + "/odbc.ini").c_str(), 1) != 0) std::abort();
}

std::unique_ptr<dao::Database> OpenAt(const Platform& platform, const std::string& place) {
    if (!automation::ContainsIgnoreCase(place, "DSN=")) return platform.repositoryEngine->OpenDatabase(place);
    return platform.repositoryEngine->CreateWorkspace("", "admin", "", dao::dbUseODBC)
        ->OpenConnection("", false, place);
}

void Places::Run(const std::string& statement) const {
    OpenAt(native::NativePlatform(), DataSource(m_driver))->Execute(statement);
}

std::string Places::New(std::string_view name) {
    if (!IsServer(m_driver)) return m_folder.Path(name);
    const std::string database = "korvex" + std::to_string(std::random_device()());
    Run("CREATE DATABASE " + database);
    m_databases.push_back(database);
    return DataSource(m_driver) + ";DATABASE=" + database;
}

std::string Places::Connection(const std::string& place) const {
    return m_driver == Driver::OdbcSqlite ? "DRIVER=SQLite3;NoDSN=1;Database=" + place : place;
}

Places::~Places() {
    for (const std::string& database : m_databases) {
        try {
            Run("DROP DATABASE " + database + (m_driver == Driver::PostgreSql ? " WITH (FORCE)" : ""));
        } catch (const automation::Error& error) {
            ADD_FAILURE() << "the database " << database << " is left: " << error.Description();
        }
    }
}

}  // namespace korvex::tests
