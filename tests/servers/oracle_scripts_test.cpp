#include "automation/text.h"
#include "hosts/cli/korvex_command.h"
#include "servers/server_database.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace korvex::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Texts = std::vector<std::string>;

/// A server that reads Oracle's language.
constexpr const char* OracleMode = ";INITSTMT={set sql_mode=ORACLE}";

/// What this server does not know of the other one's language.
constexpr std::pair<const char*, const char*> Substitutions[] = {
    {"If INSERTING Then", "If TRUE Then"},
    {"If UPDATING Then", "If FALSE Then"},
    {":old.", ":new."},
    {"LONG RAW", "LONGBLOB"},
    {"default ,", "default NULL,"},
};

/// Constraints of a table that refers to two others bear one name, which a server takes only once.
constexpr const char* SecondOfItsName =
    "ALTER TABLE tAddress2\r\nADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_OrderID)\r\n REFERENCES "
    "tOrder(OrderID); ";

/// The name of a procedure: thirty characters at most, the last ones of its stem.
std::string Procedure(const std::string& stem, const std::string& suffix) {
    const std::size_t room = 30 - suffix.size();
    return stem.substr(stem.size() > room ? stem.size() - room : 0) + suffix;
}

/// The example's tables; each stands behind what it refers to.
Texts TablesOfTheScript() {
    std::ifstream file(KORVEX_EXAMPLES "/scripts/OraCreate.sql");
    constexpr std::string_view start = "CREATE TABLE ";
    Texts tables;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(start)) continue;
        std::string table = line.substr(start.size(), line.find('\r') - start.size());
        if (std::ranges::count(tables, table) == 0) tables.push_back(std::move(table));
    }
    return tables;
}

/// The example's Oracle files, run on a real engine.
class OracleScripts : public testing::Test {
  protected:
    void SetUp() override {
        m_database = std::make_unique<ServerDatabase>(Driver::MariaDb);
        m_connection = m_database->Connect(OracleMode);
    }

    /// Runs one of the files with `korvex apply`.
    void Apply(const std::string& name) {
        std::ifstream file(KORVEX_EXAMPLES "/scripts/" + name, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        ASSERT_FALSE(text.empty()) << name;
        for (const auto& [theirs, ours] : Substitutions)
            text = Replace(std::move(text), theirs, ours);
        text = Replace(std::move(text), SecondOfItsName, "");
        const CommandResult result =
            RunKorvex({"apply", "--connection", m_database->ConnectionString() + OracleMode,
                       m_database->Folder().Write(name, text)});
        EXPECT_EQ(result.exitCode, 0) << name << ": " << result.messages;
    }

    Texts Rows(const std::string& query) { return RowsOf(*m_connection, query); }
    std::string Value(const std::string& query) { return ValueOf(*m_connection, query); }

    /// What the schema holds of a kind.
    Texts Tables(const std::string& type) {
        return Rows(
            "SELECT table_name FROM information_schema.tables WHERE table_schema = database() AND "
            "table_type = '" +
            type + "'");
    }
    Texts Triggers() {
        return Rows("SELECT trigger_name FROM information_schema.triggers WHERE trigger_schema = database()");
    }
    Texts Constraints() {
        return Rows(
            "SELECT constraint_name FROM information_schema.referential_constraints WHERE "
            "constraint_schema = database()");
    }

    /// A call that gives the own key `key`, foreign keys 1, texts "ok", all else Null.
    std::string CallText(const std::string& table, const std::string& procedure, const std::string& key);
    std::string KeyOf(const std::string& table) {
        return Value(
            "SELECT column_name FROM information_schema.columns WHERE table_schema = database() AND "
            "column_key = 'PRI' AND table_name = '" +
            table + "'");
    }
    Texts ForeignKeysOf(const std::string& table) {
        return Rows(
            "SELECT column_name FROM information_schema.columns WHERE table_schema = database() AND "
            "column_name LIKE 'FK!_%' ESCAPE '!' AND table_name = '" +
            table + "'");
    }
    void CreateTwoRecords(const std::string& table);
    void DeleteRecords(const std::string& table);

    std::unique_ptr<ServerDatabase> m_database;
    std::shared_ptr<ado::Connection> m_connection;
};

std::string OracleScripts::CallText(const std::string& table, const std::string& procedure,
                                    const std::string& key) {
    const std::string keyParameter = "p_" + KeyOf(table) + "|";
    std::string arguments;
    for (const std::string& parameter :
         Rows("SELECT parameter_name, data_type FROM information_schema.parameters WHERE specific_schema = "
              "database() AND specific_name = '" +
              procedure + "' ORDER BY ordinal_position")) {
        if (!arguments.empty()) arguments += ", ";
        if (parameter.starts_with(keyParameter)) {
            arguments += key;
        } else if (parameter.starts_with("p_FK_")) {
            arguments += "1";
        } else {
            arguments += parameter.ends_with("|varchar") ? "'ok'" : "NULL";
        }
    }
    return "CALL " + procedure + "(" + arguments + ")";
}

/// Inserts two records, reads them in every way, and changes one.
void OracleScripts::CreateTwoRecords(const std::string& table) {
    SCOPED_TRACE(table);
    for (const char* key : {"1", "2"}) {
        m_connection->Execute(CallText(table, Procedure(table, "C"), "@k"));
        EXPECT_EQ(Value("SELECT @k"), key);
    }
    EXPECT_THAT(Rows("CALL " + Procedure(table, "AR")), SizeIs(2));
    const Texts record = Rows(CallText(table, Procedure(table, "R"), "2"));
    EXPECT_EQ(record, Rows("SELECT * FROM " + table + " WHERE " + KeyOf(table) + " = 2"));
    EXPECT_THAT(record, SizeIs(1));
    for (const std::string& column : ForeignKeysOf(table)) {
        EXPECT_THAT(Rows(CallText(table, Procedure(table + "_" + column, "R"), "")), SizeIs(2)) << column;
    }
    const std::string counter = Value(
        "SELECT column_name FROM information_schema.columns WHERE table_schema = database() AND column_name "
        "LIKE 'QORCounter%' AND table_name = '" +
        table + "'");
    m_connection->Execute("UPDATE " + table + " SET " + counter + " = 7");
    m_connection->Execute(CallText(table, Procedure(table, "U"), "2"));
    EXPECT_THAT(Rows("SELECT " + counter + " FROM " + table), ElementsAre("7", "-"));
}

/// One by its key, the other by its group, which is all of them for a table without a parent.
void OracleScripts::DeleteRecords(const std::string& table) {
    SCOPED_TRACE(table);
    m_connection->Execute(CallText(table, Procedure(table, "D"), "2"));
    EXPECT_THAT(Rows("SELECT " + KeyOf(table) + " FROM " + table), ElementsAre("1"));
    const Texts parents = ForeignKeysOf(table);
    const std::string procedure =
        parents.empty() ? Procedure(table, "AD") : Procedure(table + "_" + parents.front(), "D");
    m_connection->Execute(CallText(table, procedure, ""));
    EXPECT_THAT(Rows("SELECT * FROM " + table), IsEmpty());
}

TEST_F(OracleScripts, MakeTablesAndProceduresThatWorkAndDropThemAgain) {
    Apply("OraCreate.sql");
    Apply("OraSProc.sql");
    Apply("OraFKCr.sql");
    Texts tables = TablesOfTheScript();
    ASSERT_THAT(Tables("BASE TABLE"), testing::UnorderedElementsAreArray(tables));
    EXPECT_EQ(Tables("SEQUENCE").size(), tables.size());
    EXPECT_EQ(Triggers().size(), tables.size());
    EXPECT_EQ(Constraints().size(), tables.size() - 1);

    for (const std::string& table : tables)
        CreateTwoRecords(table);
    std::ranges::reverse(tables);
    for (const std::string& table : tables)
        DeleteRecords(table);

    Apply("OraFKDel.sql");
    EXPECT_THAT(Constraints(), IsEmpty());
    Apply("OraDel.sql");
    EXPECT_THAT(Tables("BASE TABLE"), IsEmpty());
    EXPECT_THAT(Tables("SEQUENCE"), IsEmpty());
    EXPECT_THAT(Triggers(), IsEmpty());
}

}  // namespace
}  // namespace korvex::tests
