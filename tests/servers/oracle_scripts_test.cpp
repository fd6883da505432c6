#include "servers/oracle_schema.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace korvex::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The name of a procedure: thirty characters at most, the last ones of its stem.
std::string Procedure(const std::string& stem, const std::string& suffix) {
    const std::size_t room = 30 - suffix.size();
    return stem.substr(stem.size() > room ? stem.size() - room : 0) + suffix;
}

class OracleScripts : public OracleSchema {
  protected:
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
    EXPECT_EQ(Constraints().size(), tables.size());  // the root has none, one table has two

    for (const std::string& table : tables)
        CreateTwoRecords(table);
    std::ranges::reverse(tables);
    for (const std::string& table : tables)
        DeleteRecords(table);

    Apply("OraFKDel.sql");
    EXPECT_THAT(Constraints(), IsEmpty());
    Apply("OraDel.sql");
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace korvex::tests
