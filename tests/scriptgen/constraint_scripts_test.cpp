#include "scriptgen/constraint_scripts.h"

#include "table_in_hand.h"

#include <gtest/gtest.h>

#include <map>

namespace korvex::scriptgen {
namespace {

class Names final : public ReferencedNames {
  public:
    std::string GetObjectTableName(std::int32_t lObjectID) override { return m_tables[lObjectID]; }
    std::string GetFieldName(std::int32_t lValueID) override { return m_fields[lValueID]; }

  private:
    std::map<std::int32_t, std::string> m_tables{{7, "Customer"}, {8, "Site"}};
    std::map<std::int32_t, std::string> m_fields{{70, "CustomerID"}, {71, "Branch"}, {80, "SiteID"}};
};

RunState WithConstraints(ScriptType type, const std::string& table, const std::vector<Column>& columns) {
    RunState run = RunWith(type, table, columns);
    Names names;
    AddForeignKeyScripts(run, table, FindDialect(type)->ConstraintTerminator(), names);
    return run;
}

// Two columns for one object, one for another.
const std::vector<Column> Orders{Reference("FK_CustomerID", 7, 70), Plain("Note", 8),
                                 Reference("FK_SiteID", 8, 80), Reference("FK_Branch", 7, 71)};

TEST(ConstraintScripts, EachConstraintIsWrittenWithThoseBeforeIt) {
    const struct {
        ScriptType type;
        std::string create;
        std::string drop;
    } cases[] = {
        {ScriptType::SqlServer,
         Lines({"ALTER TABLE Orders", "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_CustomerID, FK_Branch)",
                " REFERENCES Customer(CustomerID, Branch)", "GO", "", "ALTER TABLE Orders",
                "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_CustomerID, FK_Branch)",
                " REFERENCES Customer(CustomerID, Branch)", "GO", "ALTER TABLE Orders",
                "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_SiteID)", " REFERENCES Site(SiteID)", "GO", ""}),
         Lines({"ALTER TABLE Orders", "DROP CONSTRAINT FK_Orders_1", "GO", "", "ALTER TABLE Orders",
                "DROP CONSTRAINT FK_Orders_1", "GO", ""})},
        {ScriptType::Oracle,
         Lines({"ALTER TABLE Orders", "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_CustomerID, FK_Branch)",
                " REFERENCES Customer(CustomerID, Branch); ", "", "", "ALTER TABLE Orders",
                "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_CustomerID, FK_Branch)",
                " REFERENCES Customer(CustomerID, Branch); ", "", "ALTER TABLE Orders",
                "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_SiteID)", " REFERENCES Site(SiteID); ", "", ""}),
         Lines({"ALTER TABLE Orders", "DROP CONSTRAINT FK_Orders_1; ", "", "", "ALTER TABLE Orders",
                "DROP CONSTRAINT FK_Orders_1; ", "", ""})},
        {ScriptType::Sybase,
         Lines({"ALTER TABLE Orders", "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_CustomerID, FK_Branch)",
                " REFERENCES Customer(CustomerID, Branch)", "", "ALTER TABLE Orders",
                "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_CustomerID, FK_Branch)",
                " REFERENCES Customer(CustomerID, Branch)", "ALTER TABLE Orders",
                "ADD CONSTRAINT FK_Orders_1 FOREIGN KEY (FK_SiteID)", " REFERENCES Site(SiteID)", ""}),
         Lines({"ALTER TABLE Orders", "DROP CONSTRAINT FK_Orders_1", "", "ALTER TABLE Orders",
                "DROP CONSTRAINT FK_Orders_1", ""})},
    };
    for (const auto& c : cases) {
        const RunState run = WithConstraints(c.type, "Orders", Orders);
        EXPECT_EQ(run.m_sFkConstraintSQL, c.create);
        EXPECT_EQ(run.m_sDropFkConstraintSQL, c.drop);
    }
}

TEST(ConstraintScripts, TableWithoutForeignKeysAddsNothing) {
    const RunState run = WithConstraints(ScriptType::SqlServer, "T", {Key(Plain("A", 3)), Plain("B", 8)});
    EXPECT_EQ(run.m_sFkConstraintSQL, "");
    EXPECT_EQ(run.m_sDropFkConstraintSQL, "");
}

TEST(ConstraintScripts, NamesThatAreNotThereStayEmpty) {
    const RunState run = WithConstraints(ScriptType::Sybase, "T", {Reference("A", 99, 990)});
    EXPECT_EQ(run.m_sFkConstraintSQL,
              Lines({"ALTER TABLE T", "ADD CONSTRAINT FK_T_1 FOREIGN KEY (A)", " REFERENCES ()", ""}));
}

TEST(ConstraintScripts, LongConstraintNamesLoseTheirFront) {
    const std::string table = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const RunState run = WithConstraints(ScriptType::Sybase, table, {Reference("A", 7, 70)});
    EXPECT_EQ(run.m_sDropFkConstraintSQL,
              Lines({"ALTER TABLE " + table, "DROP CONSTRAINT _" + table + "_1", ""}));
}

}  // namespace
}  // namespace korvex::scriptgen
