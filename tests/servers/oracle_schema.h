#pragma once

#include "servers/server_database.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace korvex::tests {

/// What makes a connection read Oracle's language.
inline constexpr const char* OracleMode = ";INITSTMT={set sql_mode=ORACLE}";

/// Runs a script with `korvex apply`, after the substitutions that docs/servers.md tells.
void ApplyOracle(const ServerDatabase& database, const std::string& name, std::string text);

/// The example's Oracle files on a server that reads Oracle's language, after the substitutions that
/// docs/servers.md tells.
class OracleSchema : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    OracleSchema() : m_connection(m_database.Connect(OracleMode)) {}

    /// Runs one of the files with `korvex apply`.
    void Apply(const std::string& name);
    /// The tables that they make; each stands behind what it refers to.
    static Texts TablesOfTheScript();

    std::string ConnectionString() const { return m_database.ConnectionString() + OracleMode; }
    Texts Rows(const std::string& query) { return RowsOf(*m_connection, query); }
    std::string Value(const std::string& query) { return ValueOf(*m_connection, query); }

    /// What the schema holds of a kind: "BASE TABLE", "SEQUENCE".
    Texts Tables(const std::string& type);
    Texts Triggers();
    Texts Constraints();
    void ExpectNothingIsLeft();

  private:
    const ServerDatabase m_database{OracleReader};

  protected:
    const std::shared_ptr<ado::Connection> m_connection;
};

}  // namespace korvex::tests
