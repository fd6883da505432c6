#include "servers/oracle_schema.h"

#include "hosts/cli/korvex_command.h"
#include "support/text_files.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
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

/// The same of statements that change tables.
constexpr std::pair<const char*, const char*> AlterSubstitutions[] = {
    // A primary key has no name of its own there, an index belongs to its table.
    {R"(ALTER TABLE \w+ RENAME CONSTRAINT \w+ TO \w+;)", ""},
    {R"(DROP INDEX (\w+)(\d);)", "DROP INDEX $1$2 ON $1;"},
    {R"(([\r\n])RENAME (\w+) TO (\w+);)", "$1RENAME TABLE $2 TO $3;"},
    {R"(TO_NUMBER\((\w+)\))", "CAST($1 AS DECIMAL(38,2))"},
    {R"(TO_CHAR\((\w+)\))", "CAST($1 AS CHAR)"},
    {R"(TO_DATE\((\w+), [^)]*\))", "CAST($1 AS DATETIME)"},
};

/// Constraints of a table bear one name: a server keeps the first.
std::string KeepFirstConstraints(const std::string& text) {
    static const std::regex statement(R"(ALTER TABLE \w+\r\nADD CONSTRAINT (\w+) FOREIGN KEY [^;]*;)");
    std::map<std::string, std::string> known;
    std::string kept;
    std::size_t at = 0;
    for (std::sregex_iterator found(text.begin(), text.end(), statement), end; found != end; ++found) {
        const auto begin = static_cast<std::size_t>(found->position());
        kept += text.substr(at, begin - at);
        at = begin + static_cast<std::size_t>(found->length());
        if (known.emplace((*found)[1], found->str()).first->second == found->str()) kept += found->str();
    }
    return kept + text.substr(at);
}

}  // namespace

void ApplyOracle(const ServerDatabase& database, const std::string& name, std::string text) {
    for (const auto& [theirs, ours] : Substitutions)
        text = Replace(std::move(text), theirs, ours);
    for (const auto& [theirs, ours] : AlterSubstitutions)
        text = std::regex_replace(text, std::regex(theirs), ours);
    const CommandResult result = RunKorvex({"apply", "--connection", database.ConnectionString() + OracleMode,
                                            database.Folder().Write(name, KeepFirstConstraints(text))});
    EXPECT_EQ(result.exitCode, 0) << name << ": " << result.messages;
}

void OracleSchema::Apply(const std::string& name) {
    const std::string text = ReadFile(KORVEX_TEST_DATA "/scripts/" + name);
    ASSERT_FALSE(text.empty()) << name;
    ApplyOracle(m_database, name, text);
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
