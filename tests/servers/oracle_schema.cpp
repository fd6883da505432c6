#include "servers/oracle_schema.h"

#include "hosts/cli/korvex_command.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <utility>

namespace korvex::tests {
namespace {

/// What this server does not know of the other one's language.
constexpr std::pair<const char*, const char*> Substitutions[] = {
    {"If INSERTING Then", "If TRUE Then"},
    {"If UPDATING Then", "If FALSE Then"},
    {":old.", ":new."},
    {"LONG RAW", "LONGBLOB"},
    {"default ,", "default NULL,"},
    // Numbers taken in advance are lost when the server closes the sequence for other tables' sake.
    {"start with 1;", "start with 1 nocache;"},
    // The constraints of a table that refers to two others bear one name, which a server takes only once.
    {"FK_tAddress2_1 FOREIGN KEY (FK_OrderID)", "FK_tAddress2_2 FOREIGN KEY (FK_OrderID)"},
    {"DROP CONSTRAINT FK_tAddress2_1; \r\n\r\n\r\nALTER TABLE tAddress2\r\nDROP CONSTRAINT FK_tAddress2_1; ",
     "DROP CONSTRAINT FK_tAddress2_1; \r\n\r\n\r\nALTER TABLE tAddress2\r\nDROP CONSTRAINT FK_tAddress2_2; "},
};

}  // namespace

void OracleSchema::Apply(const std::string& name) {
    std::ifstream file(KORVEX_TEST_DATA "/scripts/" + name, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(text.empty()) << name;
    for (const auto& [theirs, ours] : Substitutions)
        text = Replace(std::move(text), theirs, ours);
    const CommandResult result =
        RunKorvex({"apply", "--connection", ConnectionString(), m_database.Folder().Write(name, text)});
    EXPECT_EQ(result.exitCode, 0) << name << ": " << result.messages;
}

OracleSchema::Texts OracleSchema::TablesOfTheScript() {
    std::ifstream file(KORVEX_TEST_DATA "/scripts/OraCreate.sql");
    constexpr std::string_view start = "CREATE TABLE ";
    Texts tables;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(start)) continue;
        std::string table = line.substr(start.size(), line.find('\r') - start.size());
        if (std::ranges::count(tables, table) == 0) tables.push_back(std::move(table));
    }
    return tables;
}

OracleSchema::Texts OracleSchema::Tables(const std::string& type) {
    return Rows(
        "SELECT table_name FROM information_schema.tables WHERE table_schema = database() AND table_type = "
        "'" +
        type + "'");
}

OracleSchema::Texts OracleSchema::Triggers() {
    return Rows("SELECT trigger_name FROM information_schema.triggers WHERE trigger_schema = database()");
}

OracleSchema::Texts OracleSchema::Constraints() {
    return Rows(
        "SELECT constraint_name FROM information_schema.referential_constraints WHERE constraint_schema = "
        "database()");
}

void OracleSchema::ExpectNothingIsLeft() {
    EXPECT_EQ(Constraints(), Texts());
    EXPECT_EQ(Tables("BASE TABLE"), Texts());
    EXPECT_EQ(Tables("SEQUENCE"), Texts());
    EXPECT_EQ(Triggers(), Texts());
}

}  // namespace korvex::tests
