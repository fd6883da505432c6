#include "scriptgen/engine_dialect.h"

#include "platform/platform.h"
#include "support/error_of.h"
#include "table_in_hand.h"

#include <gmock/gmock.h>

namespace korvex::scriptgen {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

DescribedTable Table(std::int32_t objectID, const std::string& name, std::vector<Column> columns = {}) {
    DescribedTable table;
    table.ObjectID = repository::ObjectId{objectID};
    table.Name = name;
    table.Columns = std::move(columns);
    table.Columns.push_back(Key(Counter(Plain(name + "ID", 3)), 1));
    table.PrimaryKey = {name + "ID"};
    return table;
}

void Refer(DescribedTable& table, const DescribedTable& parent) {
    const std::string column = "FK_" + parent.Name + "ID";
    table.Columns.push_back(Reference(column, Number(parent.ObjectID)));
    table.ForeignKeys.push_back({column, parent.ObjectID, parent.Name, parent.Name + "ID", true});
}

/// The line of a table's first column on each engine, without its end.
std::vector<std::string> FirstLines(const Column& column) {
    std::vector<std::string> lines;
    for (const EngineDialect* dialect : AllEngineDialects()) {
        const std::string text = dialect->Write(std::vector{Table(1, "tA", {column})}).create.front().text;
        const std::size_t begin = text.find('\t') + 1;
        lines.push_back(text.substr(begin, text.find(",\r\n") - begin));
    }
    return lines;
}

TEST(EngineDialect, ColumnsHaveTheTypesOfTheirEngineAndDefaultsAsLiterals) {
    const struct {
        Column column;
        std::string sqlite, mariaDb, postgreSql;
    } cases[] = {
        {Plain("A", 2, "0", "-7"), "A smallint DEFAULT -7", "A smallint DEFAULT -7", "A smallint DEFAULT -7"},
        {Plain("A", 3, "0", "1,000"), "A int DEFAULT 1000", "A int DEFAULT 1000", "A integer DEFAULT 1000"},
        {Plain("A", 4, "0", ".1"), "A real DEFAULT 0.1", "A float DEFAULT 0.1", "A real DEFAULT 0.1"},
        {Plain("A", 5, "0", "1e300"), "A double DEFAULT 1e+300", "A double DEFAULT 1e+300",
         "A double precision DEFAULT 1e+300"},
        {Plain("A", 6, "0", "922337203685477.5807"), "A decimal(19,4) DEFAULT 922337203685477.5807",
         "A decimal(19,4) DEFAULT 922337203685477.5807", "A decimal(19,4) DEFAULT 922337203685477.5807"},
        {Plain("A", 7, "0", "2/29/2024 8:30 PM"), "A datetime DEFAULT '2024-02-29 20:30:00'",
         "A datetime(3) DEFAULT '2024-02-29 20:30:00'", "A timestamp(3) DEFAULT '2024-02-29 20:30:00'"},
        {Plain("A", 7), "A datetime NULL", "A datetime(3) NULL", "A timestamp(3) NULL"},
        {Plain("A", 11, "0", "-1"), "A bit DEFAULT 1", "A bit DEFAULT 1", "A boolean DEFAULT true"},
        {Plain("A", 11), "A bit DEFAULT 0", "A bit DEFAULT 0", "A boolean DEFAULT false"},
        {Plain("A", 12), "A blob NULL", "A longblob NULL", "A bytea NULL"},
        {Plain("A", 17, "0", "255"), "A tinyint DEFAULT 255", "A tinyint unsigned DEFAULT 255",
         "A smallint DEFAULT 255"},
        {Plain("A", 8), "A varchar(50) DEFAULT ''", "A varchar(50) DEFAULT ''", "A varchar(50) DEFAULT ''"},
        {Plain("A", 8, "4000", "It's"), "A varchar(4000) DEFAULT 'It''s'", "A varchar(4000) DEFAULT 'It''s'",
         "A varchar(4000) DEFAULT 'It''s'"},
        {Plain("A", 8, "4001"), "A text NULL", "A longtext NULL", "A text NULL"},
        {Plain("A", 8, "9", "\\'"), "A varchar(9) DEFAULT '\\'''", "A varchar(9) DEFAULT _utf8mb4 X'5C27'",
         "A varchar(9) DEFAULT '\\'''"},
        {Plain("A", 14), "A varchar(50) DEFAULT ''", "A varchar(50) DEFAULT ''", "A varchar(50) DEFAULT ''"},
        {Reference("A", 9), "A int NULL", "A int NULL", "A integer NULL"},
    };
    for (const auto& c : cases)
        EXPECT_THAT(FirstLines(c.column), ElementsAre(c.sqlite, c.mariaDb, c.postgreSql));
}

TEST(EngineDialect, DefaultsThatAreNoneAndLengthsThatAreNoNumbersAreErrors) {
    const struct {
        Column column;
        std::int32_t number;
    } cases[] = {
        {Plain("Bad", 2, "0", "40000"), automation::InvalidProcedureCall},
        {Plain("Bad", 3, "0", "1.5"), automation::InvalidProcedureCall},
        {Plain("Bad", 5, "0", "many"), automation::InvalidProcedureCall},
        {Plain("Bad", 7, "0", "getdate()"), automation::InvalidProcedureCall},
        {Plain("Bad", 8, "2", "abc"), automation::InvalidProcedureCall},
        {Plain("Bad", 9, "0", "x"), automation::InvalidProcedureCall},
        {Plain("Bad", 11, "0", "yes"), automation::InvalidProcedureCall},
        {Plain("Bad", 17, "0", "256"), automation::InvalidProcedureCall},
        {Plain("Bad", 8, "long"), automation::TypeMismatch},
    };
    for (const auto& c : cases) {
        for (const EngineDialect* dialect : AllEngineDialects()) {
            const std::vector tables = {Table(1, "tA", {c.column})};
            const tests::Raised raised = tests::ErrorOf([&] { dialect->Write(tables); });
            EXPECT_EQ(raised, c.number) << c.column.DefaultVal;
            EXPECT_THAT(raised.description, HasSubstr("tA.Bad"));
            EXPECT_THAT(dialect->Problems(tables), ElementsAre(raised.description));
        }
    }
}

TEST(EngineDialect, ProblemsAreNamed) {
    DescribedTable table = Table(1, "tA", {Plain("Order", 3), Plain("a b", 3), Counter(Plain("N", 3))});
    DescribedTable parent = Table(2, "tP");
    for (std::int32_t i = 0; i < 64; ++i)
        table.ForeignKeys.push_back({"F" + std::to_string(i), parent.ObjectID, "tP", "tPID", true});
    std::vector<std::string> texts;
    for (const EngineDialect* dialect : AllEngineDialects())
        for (const std::string& problem : dialect->Problems(std::vector{table, parent}))
            texts.push_back(problem);
    EXPECT_THAT(texts, ElementsAre("column tA.Order is a reserved word of sqlite",
                                   "column tA.a b is no name that can stand unquoted in sqlite",
                                   "column tA.N is numbered beside the key; sqlite numbers the key only",
                                   "column tA.Order is a reserved word of mariadb",
                                   "column tA.a b is no name that can stand unquoted in mariadb",
                                   "column tA.N is numbered beside the key; mariadb numbers the key only",
                                   "table tA has 65 keys; mariadb takes 64 in a table",
                                   "column tA.Order is a reserved word of postgresql",
                                   "column tA.a b is no name that can stand unquoted in postgresql"));
}

TEST(EngineDialect, AThousandForeignKeysOfOneTableHoldOnSqlite) {
    const DescribedTable parent = Table(1, "tP");
    DescribedTable child = Table(2, "tC");
    for (int i = 1; i <= 1000; ++i) {
        const std::string column = "F" + std::to_string(i);
        child.Columns.push_back(Reference(column, 1));
        child.ForeignKeys.push_back({column, parent.ObjectID, "tP", "tPID", true});
    }
    const auto connection = DefaultPlatform().targetProvider->CreateConnection();
    connection->Open("Provider=SQLite;Data Source=:memory:");
    for (const EngineStatement& statement :
         EngineDialectOf("sqlite").Write(std::vector{parent, child}).create)
        connection->Execute(statement.text);
    connection->Execute("insert into tP (tPID) values (7)");
    connection->Execute("insert into tC (F1, F1000) values (0, 7)");
    EXPECT_EQ(tests::ErrorOf([&] { connection->Execute("update tC set F999 = 8"); }), ado::DbEConstraint);
    connection->Execute("update tC set F1000 = 0");
    const auto rows = connection->Execute("select * from tC where F1 is null and F1000 is null");
    EXPECT_FALSE(rows->Eof());
    rows->Close();
}

TEST(EngineDialect, NamesComeFromTableAndColumnAlone) {
    EXPECT_EQ(ColumnThingName("FK_", "tLine", "FK_OrderID"), "FK_tLine_FK_OrderID");
    const std::string a = ColumnThingName("IX_", "t_A", "B");
    EXPECT_THAT(a, testing::MatchesRegex("IX_t_A_B_[0-9a-f]{8}"));
    EXPECT_NE(a, ColumnThingName("IX_", "t", "A_B"));
    const std::string longTable(30, 'x');
    const std::string first = ColumnThingName("FK_", longTable, "FK_" + std::string(27, 'a'));
    const std::string second = ColumnThingName("FK_", longTable, "FK_" + std::string(26, 'a') + "b");
    EXPECT_EQ(first.size(), 60U);
    EXPECT_NE(first, second);
    EXPECT_EQ(first.substr(0, 51), second.substr(0, 51));
}

TEST(EngineDialect, ReferencesThatCannotBeKeptGetAnIndexAndANote) {
    DescribedTable table = Table(1, "tA");
    Refer(table, Table(2, "tElsewhere"));
    table.ForeignKeys.back().IsInRun = false;
    table.ForeignKeys.back().KeyField.clear();
    for (const EngineDialect* dialect : AllEngineDialects()) {
        const EngineScripts scripts = dialect->Write(std::vector{table});
        EXPECT_THAT(scripts.addKeys, IsEmpty());
        EXPECT_THAT(scripts.create.front().text, testing::Not(HasSubstr("REFERENCES")));
        EXPECT_THAT(scripts.create.at(1).text, "CREATE INDEX IX_tA_FK_tElsewhereID ON tA (FK_tElsewhereID)");
        EXPECT_THAT(scripts.notes,
                    ElementsAre("tA.FK_tElsewhereID refers to tElsewhere, which is none of these tables: it "
                                "gets an index, but no constraint."));
    }
}

TEST(EngineDialect, TablesGoBeforeThoseThatTheyReferTo) {
    DescribedTable root = Table(1, "tRoot");
    DescribedTable shared = Table(2, "tShared");
    DescribedTable late = Table(3, "tLate");
    Refer(late, root);
    Refer(shared, root);
    Refer(shared, late);
    for (const EngineDialect* dialect : AllEngineDialects()) {
        std::vector<std::string> drops;
        for (const EngineStatement& drop : dialect->Write(std::vector{root, shared, late}).drop)
            if (drop.thing == EngineThing::Table) drops.push_back(drop.text);
        EXPECT_THAT(drops, ElementsAre("DROP TABLE IF EXISTS tShared", "DROP TABLE IF EXISTS tLate",
                                       "DROP TABLE IF EXISTS tRoot"));
    }
    Refer(root, shared);  // a circle: none can go first
    EXPECT_EQ(AllEngineDialects().front()->Write(std::vector{root, shared, late}).drop.size(), 3U);
}

TEST(EngineDialect, TheLongestTextsOfARowThatIsTooLongForMariaDbBecomeLongTexts) {
    std::vector<Column> columns;
    for (int i = 0; i < 80; ++i)
        columns.push_back(Plain("C" + std::to_string(i), 8, i == 40 ? "3000" : "200"));
    const EngineScripts scripts = EngineDialectOf("mariadb").Write(std::vector{Table(1, "tWide", columns)});
    EXPECT_THAT(
        scripts.notes,
        ElementsAre("tWide.C40 becomes longtext in place of varchar(3000): the row would be too long."));
    EXPECT_THAT(scripts.create.front().text, HasSubstr("\tC40 longtext DEFAULT ''"));
    EXPECT_THAT(EngineDialectOf("postgresql").Write(std::vector{Table(1, "tWide", columns)}).notes,
                IsEmpty());
    EXPECT_EQ(tests::ErrorOf([] { EngineDialectOf("other"); }), automation::InvalidProcedureCall);
}

}  // namespace
}  // namespace korvex::scriptgen
