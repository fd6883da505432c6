#include "support/error_of.h"
#include "table_in_hand.h"

#include <gtest/gtest.h>

namespace korvex::scriptgen {
namespace {

struct ColumnCase {
    Column column;
    std::string expected;
};

/// Compares the whole table, so that nothing around the definition slips.
void ExpectDefinitions(ScriptType type, const std::string& before, const std::string& after,
                       const std::vector<ColumnCase>& cases) {
    for (const ColumnCase& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << "DataType " << c.column.DataType << ", MaxLength \"" << c.column.MaxLength
                     << "\", DefaultVal \"" << c.column.DefaultVal << '"');
        EXPECT_EQ(TableInHand(type, "T", {c.column}).CreateText(), before + c.expected + after);
    }
}

const std::vector<ColumnCase> ServerColumns{
    {Plain("F", 2), "F smallint default 0"},
    {Plain("F", 3), "F int default 0"},
    {Plain("F", 4), "F real default 0"},
    {Plain("F", 5), "F float default 0"},
    {Plain("F", 6, "0", "1.5"), "F float default 1.5"},
    {Plain("F", 7), "F datetime NULL"},
    {Plain("F", 7, "0", "getdate()"), "F datetime default getdate()"},
    {Plain("F", 9), "F image NULL"},
    {Plain("F", 9, "0", "x"), "F image default "},
    {Plain("F", 11), "F bit default 0"},
    {Plain("F", 11, "0", "1"), "F bit default 1"},
    {Plain("F", 12), "F image NULL"},
    // Codes without a type of their own are text; only a string gets a literal.
    {Plain("F", 0), "F varchar(50) default "},
    {Plain("F", -3), "F varchar(50) default "},
    {Plain("F", 1), "F varchar(50) NULL"},
    {Plain("F", 10), "F varchar(50) default "},
    {Plain("F", 17, "0", "7"), "F varchar(50) default "},
    {Plain("F", 65536 + 3), "F varchar(50) default "},
    {Plain("F", 17, "300"), "F text NULL"},
    // Sizes of text.
    {Plain("F", 8), "F varchar(50) default ''"},
    {Plain("F", 8, "-1"), "F varchar(50) default ''"},
    {Plain("F", 8, "  30 ", "abc"), "F varchar(30) default 'abc'"},
    {Plain("F", 8, "1e2", "it's"), "F varchar(1e2) default 'it's'"},
    {Plain("F", 8, "255"), "F varchar(255) default ''"},
    {Plain("F", 8, "255.5"), "F text NULL"},
    {Plain("F", 8, "256"), "F text NULL"},
    {Plain("F", 8, "256", "abc"), "F text default 'abc'"},
    {Key(Plain("F", 8, "20", "abc")),
     "F varchar(20) Not NULL,\r\n"
     "\tCONSTRAINT PK_T PRIMARY KEY CLUSTERED\r\n"
     "\t(\r\n"
     "\t\tF\r\n"
     "\t)"},
};

TEST(ColumnText, SqlServer) {
    ExpectDefinitions(ScriptType::SqlServer, "CREATE TABLE dbo.T\r\n( \r\n\t", "\r\n)\r\nGO\r\n",
                      ServerColumns);
    ExpectDefinitions(ScriptType::SqlServer, "CREATE TABLE dbo.T\r\n( \r\n\t", "\r\n)\r\nGO\r\n",
                      {{Counter(Plain("F", 3)), "F int IDENTITY (1, 1) Not NULL"}});
}

TEST(ColumnText, SybaseDiffersInTheIdentityOnly) {
    ExpectDefinitions(ScriptType::Sybase, "CREATE TABLE T\r\n( \r\n\t", "\r\n)\r\nGO\r\n", ServerColumns);
    ExpectDefinitions(ScriptType::Sybase, "CREATE TABLE T\r\n( \r\n\t", "\r\n)\r\nGO\r\n",
                      {{Counter(Plain("F", 3)), "F numeric(18, 0)  identity Not NULL"}});
}

TEST(ColumnText, Oracle) {
    const std::string before = "\r\nrem  ***** Creating table T\r\n\r\n\r\n\r\nCREATE TABLE T\r\n( \r\n\t";
    ExpectDefinitions(ScriptType::Oracle, before, "\r\n); \r\n",
                      {
                          {Plain("F", 2), "F NUMBER(5) default 0"},
                          {Plain("F", 3), "F NUMBER(11) default 0"},
                          {Plain("F", 4, "0", "2"), "F NUMBER(12,2) default 2"},
                          {Plain("F", 5), "F NUMBER(38,2) default 0"},
                          {Plain("F", 6), "F NUMBER(15, 2) default 0"},
                          {Plain("F", 7), "F DATE NULL"},
                          {Plain("F", 9), "F LONG RAW NULL"},
                          {Plain("F", 11), "F NUMBER(1) default 0"},
                          {Plain("F", 12), "F RAW(50) NULL"},
                          {Plain("F", 12, "4000"), "F RAW(4000) NULL"},
                          {Plain("F", 12, "4001"), "F LONG RAW NULL"},
                          {Plain("F", 12, "4001", "x"), "F LONG RAW default "},
                          {Plain("F", 17), "F VARCHAR2(50) default "},
                          {Plain("F", 1), "F VARCHAR2(50) NULL"},
                          {Plain("F", 8, "4000"), "F VARCHAR2(4000) default ''"},
                          {Plain("F", 8, " 4001 "), "F LONG NULL"},
                          {Plain("F", 8, "4001", "abc"), "F LONG default 'abc'"},
                      });
}

TEST(ColumnText, LengthThatIsNoNumberNamesTheColumn) {
    for (const std::string length : {"", "12 characters"}) {
        for (const ScriptType type : {ScriptType::SqlServer, ScriptType::Oracle, ScriptType::Sybase}) {
            const tests::Raised raised =
                tests::ErrorOf([&] { TableInHand(type, "tOrder", {Plain("Note", 8, length)}); });
            EXPECT_EQ(raised, automation::TypeMismatch) << length;
            EXPECT_NE(raised.description.find("tOrder.Note"), std::string::npos) << raised.description;
            EXPECT_NE(raised.description.find('"' + length + '"'), std::string::npos) << raised.description;
        }
    }
}

TEST(ColumnText, OnlyConvertedLongColumnsOfOneTableWarn) {
    const Column longText = Plain("L", 8, "5000");
    const Column longRaw = Plain("R", 12, "5000");
    const Column rawByType = Plain("B", 9, "5000");
    const struct {
        std::vector<Column> columns;
        bool warns;
    } cases[] = {
        {{longText, rawByType, rawByType}, false},
        {{longRaw, Plain("S", 8, "4000")}, false},
        {{longText, longRaw}, true},
        {{longText, longText}, true},
    };
    for (const auto& c : cases) {
        TableInHand hand(ScriptType::Oracle, "T", c.columns);
        hand.CreateText();
        EXPECT_EQ(hand.run.m_bLongWarning, c.warns);
    }

    TableInHand hand(ScriptType::Oracle, "T", {longText});
    hand.CreateText();
    hand.CreateText();
    EXPECT_FALSE(hand.run.m_bLongWarning) << "long columns of two tables are counted together";
}

}  // namespace
}  // namespace korvex::scriptgen
