#include "table_in_hand.h"

#include <gtest/gtest.h>

namespace korvex::scriptgen {
namespace {

// A key of two columns that stand in the wrong order, a counter beside it, two references to one object and
// one to another.
std::vector<Column> OrderLine() {
    return {Key(Plain("LineNo", 2), 2),     Key(Plain("OrderID", 3), 1),
            Reference("FK_ProductID", 31),  Counter(Plain("SerialNo", 3)),
            Reference("FK_Spare", 31),      Plain("Note", 8, "40"),
            Reference("FK_WarehouseID", 4), Plain("Due", 7)};
}

TEST(TableScripts, SqlServer) {
    RunState run = RunWith(ScriptType::SqlServer, "OrderLine", OrderLine());
    EXPECT_EQ(CreateText(run), Lines({"CREATE TABLE dbo.OrderLine",
                                      "( ",
                                      "\tLineNo smallint Not NULL,",
                                      "\tOrderID int Not NULL,",
                                      "\tFK_ProductID int default 0,",
                                      "\tSerialNo int IDENTITY (1, 1) Not NULL,",
                                      "\tFK_Spare int default 0,",
                                      "\tNote varchar(40) default '',",
                                      "\tFK_WarehouseID int default 0,",
                                      "\tDue datetime NULL,",
                                      "\tCONSTRAINT PK_OrderLine PRIMARY KEY CLUSTERED",
                                      "\t(",
                                      "\t\tOrderID, LineNo",
                                      "\t)",
                                      ")",
                                      "GO",
                                      "",
                                      "CREATE INDEX OrderLine1 ON dbo.OrderLine(FK_ProductID, FK_Spare)",
                                      "GO",
                                      "",
                                      "CREATE INDEX OrderLine2 ON dbo.OrderLine(FK_WarehouseID)",
                                      "GO"}));
    EXPECT_EQ(run.m_sDropSQL,
              Lines({"if exists(select * from sysobjects where id = object_id('dbo.OrderLine') and sysstat & "
                     "0xf = 3)",
                     "\tDROP TABLE dbo.OrderLine", "GO", ""}));
}

TEST(TableScripts, Sybase) {
    RunState run = RunWith(ScriptType::Sybase, "OrderLine", OrderLine());
    EXPECT_EQ(CreateText(run), Lines({"CREATE TABLE OrderLine",
                                      "( ",
                                      "\tLineNo smallint Not NULL,",
                                      "\tOrderID int Not NULL,",
                                      "\tFK_ProductID int default 0,",
                                      "\tSerialNo numeric(18, 0)  identity Not NULL,",
                                      "\tFK_Spare int default 0,",
                                      "\tNote varchar(40) default '',",
                                      "\tFK_WarehouseID int default 0,",
                                      "\tDue datetime NULL,",
                                      "\tCONSTRAINT PK_OrderLine PRIMARY KEY CLUSTERED",
                                      "\t(",
                                      "\t\tOrderID, LineNo",
                                      "\t)",
                                      ")",
                                      "GO",
                                      "",
                                      "CREATE INDEX OrderLine1 ON OrderLine(FK_ProductID, FK_Spare)",
                                      "GO",
                                      "",
                                      "CREATE INDEX OrderLine2 ON OrderLine(FK_WarehouseID)",
                                      "GO"}));
    EXPECT_EQ(
        run.m_sDropSQL,
        Lines({"if exists(select * from sysobjects where id = object_id('OrderLine') and sysstat & 0xf = 3)",
               "\tDROP TABLE OrderLine", "GO", ""}));
}

TEST(TableScripts, Oracle) {
    RunState run = RunWith(ScriptType::Oracle, "OrderLine", OrderLine());
    EXPECT_EQ(CreateText(run), Lines({"",
                                      "rem  ***** Creating table OrderLine",
                                      "",
                                      "create sequence SEQ_OrderLine increment by 1 start with 1; ",
                                      "",
                                      "",
                                      "CREATE TABLE OrderLine",
                                      "( ",
                                      "\tLineNo NUMBER(5) Not NULL,",
                                      "\tOrderID NUMBER(11) Not NULL,",
                                      "\tFK_ProductID NUMBER(11) default 0,",
                                      "\tSerialNo NUMBER(11) Not NULL,",
                                      "\tFK_Spare NUMBER(11) default 0,",
                                      "\tNote VARCHAR2(40) default '',",
                                      "\tFK_WarehouseID NUMBER(11) default 0,",
                                      "\tDue DATE NULL,",
                                      "\tCONSTRAINT PK_OrderLine PRIMARY KEY ",
                                      "\t(",
                                      "\t\tOrderID, LineNo",
                                      "\t)",
                                      "); ",
                                      "",
                                      "CREATE INDEX OrderLine1 ON OrderLine(FK_ProductID, FK_Spare); ",
                                      "",
                                      "CREATE INDEX OrderLine2 ON OrderLine(FK_WarehouseID); ",
                                      "",
                                      "",
                                      "/",
                                      "CREATE TRIGGER TR_OrderLine BEFORE INSERT ON OrderLine FOR EACH ROW ",
                                      "DECLARE",
                                      "\tiCounter OrderLine.SerialNo%TYPE; ",
                                      "\tcannot_change_counter EXCEPTION; ",
                                      "BEGIN",
                                      "\tIf INSERTING Then",
                                      "\t\tSelect SEQ_OrderLine.NEXTVAL INTO iCounter FROM Dual; ",
                                      "\t\t:new.SerialNo := iCounter; ",
                                      "\tEND IF; ",
                                      "\tIf UPDATING Then",
                                      "\t\tIF NOT (:new.SerialNo = :old.SerialNo) THEN",
                                      "\t\t\tRAISE cannot_change_counter; ",
                                      "\t\tEND IF; ",
                                      "\tEND IF; ",
                                      "EXCEPTION",
                                      "\tWHEN cannot_change_counter THEN",
                                      "\traise_application_error(-20000, 'Cannot Change Counter Value'); ",
                                      "End; ",
                                      "/"}));
    EXPECT_EQ(run.m_sDropSQL, Lines({"DROP SEQUENCE SEQ_OrderLine; ", "", "DROP TABLE OrderLine; ", ""}));
}

TEST(TableScripts, OracleWithoutCounterHasNoSequenceAndNoTrigger) {
    RunState run = RunWith(ScriptType::Oracle, "Plain", {Plain("A", 3)});
    EXPECT_EQ(CreateText(run), Lines({"", "rem  ***** Creating table Plain", "", "", "", "CREATE TABLE Plain",
                                      "( ", "\tA NUMBER(11) default 0", "); "}));
    EXPECT_EQ(run.m_sDropSQL, Lines({"DROP TABLE Plain; ", ""}));
}

TEST(TableScripts, OracleNumbersTheFirstOfTwoCounters) {
    RunState run = RunWith(ScriptType::Oracle, "T", {Counter(Plain("A", 3)), Counter(Plain("B", 3))});
    const std::string text = CreateText(run);
    EXPECT_NE(text.find("\t\t:new.A := iCounter; \r\n"), std::string::npos);
    EXPECT_EQ(text.find(":new.B"), std::string::npos);
    EXPECT_EQ(text.find("create sequence"), text.rfind("create sequence"));
}

TEST(TableScripts, TableWithoutColumns) {
    RunState run = RunWith(ScriptType::SqlServer, "Empty", {});
    EXPECT_EQ(CreateText(run), Lines({"CREATE TABLE dbo.Empty", "( ", "", ")", "GO"}));
}

TEST(TableScripts, KeyColumnsOutsideTheSequenceAreLeftOut) {
    RunState run = RunWith(ScriptType::Sybase, "T",
                           {Key(Plain("Last", 3), 4), Key(Plain("Below", 3), -1), Key(Plain("Zero", 3), 0),
                            Key(Plain("Beyond", 3), 5)});
    EXPECT_NE(CreateText(run).find("\t\tZero, Last\r\n"), std::string::npos) << CreateText(run);
}

TEST(TableScripts, ReferencedObjectWithinTheDigitsOfAnEarlierOneGetsNoIndex) {
    const struct {
        std::vector<Column> columns;
        std::string expected;
    } cases[] = {
        {{Reference("A", 12), Reference("B", 2)}, "\r\nCREATE INDEX T1 ON T(A)\r\nGO\r\n"},
        {{Reference("A", 2), Reference("B", 12)},
         "\r\nCREATE INDEX T1 ON T(A)\r\nGO\r\n\r\nCREATE INDEX T2 ON T(B)\r\nGO\r\n"},
        {{Reference("A", 3), Reference("B", 1), Reference("C", 31)},
         "\r\nCREATE INDEX T1 ON T(A)\r\nGO\r\n\r\nCREATE INDEX T2 ON T(B)\r\nGO\r\n"
         "\r\nCREATE INDEX T3 ON T(C)\r\nGO\r\n"},
        // Columns that are no foreign keys carry -1, which a reference may name as well.
        {{Plain("P", 3), Reference("A", -1)}, "\r\nCREATE INDEX T1 ON T(P, A)\r\nGO\r\n"},
    };
    for (const auto& c : cases) {
        RunState run = RunWith(ScriptType::Sybase, "T", c.columns);
        const std::string text = CreateText(run);
        const std::string tableEnd = ")\r\nGO\r\n";
        EXPECT_EQ(text.substr(text.find(tableEnd) + tableEnd.size()), c.expected);
    }
}

}  // namespace
}  // namespace korvex::scriptgen
