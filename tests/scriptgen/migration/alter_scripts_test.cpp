#include "hosts/cli/source.h"
#include "scriptgen/migration/column_types.h"
#include "scriptgen/migration/definition_diff.h"
#include "scriptgen/migration/definition_identity.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/rename_order.h"
#include "support/error_of.h"
#include "support/temp_folder.h"
#include "support/text_files.h"

#include <gmock/gmock.h>

namespace korvex::scriptgen {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Tables = std::vector<DescribedTable>;

Tables Describe(const std::string& json, const std::string& storage) {
    const tests::TempFolder folder;
    cli::Source source = cli::OpenSource(DefaultPlatform(), folder.Write("model.json", json));
    return DescribeState(repository::Catalog::Read(source.repository.Open()), storage, "FK_",
                         &*source.numbered)
        .tables;
}

/// A model with one root object, whose members are given.
Tables Root(const std::string& members) {
    return Describe(
        R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A",)" + members + "}]}", "S");
}

std::vector<std::string> Texts(const DefinitionDiff& diff) {
    std::vector<std::string> texts;
    for (const TableChange& change : diff.Changes())
        texts.push_back(std::string(ClassName(change.cls)) + ": " + ChangeText(change));
    return texts;
}
std::vector<std::string> Changes(const std::string& before, const std::string& now) {
    return Texts(DefinitionDiff("sqlite", Root(before), Root(now)));
}

/// The example's definition some months later.
std::string Later(std::string model) {
    const std::pair<std::string_view, std::string_view> edits[] = {
        {R"~("root": "Order")~", R"~("root": "Sale")~"},
        {R"~("name": "Order",)~", R"~("name": "Sale",)~"},
        {R"~({ "name": "OrderNumber")~",
         R"~({ "name": "Incoterm", "type": "string", "maxLength": 3 }, { "name": "OrderNumber")~"},
        {R"~({ "name": "Urgency", "type": "byte", "caption": "Urgency", "minValue": 0, "maxValue": 5 },)~",
         R"~({ "name": "Channel", "type": "integer" },)~"},
        {R"~("SalesRepresentative", "type": "long")~", R"~("SalesRepresentative", "type": "double")~"},
        {R"~("Total", "type": "currency")~", R"~("Total", "type": "single")~"},
        {R"~("Notes", "type": "string", "maxLength": 2000)~",
         R"~("Remarks", "type": "string", "maxLength": 200)~"},
        {R"~("child": {
            "name": "Customer")~",
         R"~("child": {
            "name": "Client")~"},
        {R"~("TaxCode", "type": "string", "maxLength": 4)~",
         R"~("TaxCode", "type": "string", "maxLength": 8)~"},
        {R"~("AllocatedOn", "type": "date" })~",
         R"~("AllocatedOn", "type": "date" }, { "name": "Bin", "child": { "name": "Bin", "values": [ { "name": "Shelf", "type": "string" } ] } })~"},
        {R"~({ "name": "BillingAddress", "child": "Address" },)~", R"~()~"},
    };
    for (const auto& [from, to] : edits) {
        const std::size_t at = model.find(from);
        if (at == std::string::npos) throw std::runtime_error("no " + std::string(from));
        model.replace(at, from.size(), to);
    }
    return model;
}

TEST(AlterScripts, OfTheExampleAreThePublishedOnes) {
    const std::string model = tests::ReadFile(KORVEX_TEST_DATA "/orders.json");
    const Tables before = Describe(model, "Orders");
    const Tables now = Describe(Later(model), "Orders");
    const DiffOptions options{.renames = {{"tOrder.Notes", "tSale.Remarks"}}};
    for (const char* dialect : {"sqlite", "mariadb", "postgresql", "mssql", "oracle"}) {
        const DefinitionDiff diff(dialect, before, now, options);
        const std::string file(diff.FileName());
        EXPECT_EQ(diff.Script(false), tests::ReadFile(std::string(KORVEX_EXPECTED "/") + file)) << dialect;
        EXPECT_THAT(Texts(DefinitionDiff(dialect, now, now)), IsEmpty());
    }
    EXPECT_THAT(tests::ErrorOf([&] { DefinitionDiff("sybase", before, now); }).description,
                HasSubstr("no script that changes tables on Sybase"));
}

TEST(TableIdentity, ValuesAreTheirNumbersElseTheirNames) {
    const struct {
        std::string before, now;
        std::vector<std::string> changes;
    } cases[] = {
        // Without numbers: names, whatever stands first.
        {R"("values":[{"name":"X","type":"long"}])",
         R"("values":[{"name":"Y","type":"long"},{"name":"X","type":"long"}])",
         {"safe: tA.Y is added, int"}},
        // With numbers: a rename, also of two at once.
        {R"("values":[{"name":"X","type":"long","vid":1},{"name":"Y","type":"long","vid":2}])",
         R"("values":[{"name":"Y","type":"long","vid":1},{"name":"X","type":"long","vid":2}])",
         {"safe: tA.Y is renamed from X", "safe: tA.X is renamed from Y"}},
        {R"("values":[{"name":"X","type":"double","vid":7}])",
         R"("values":[{"name":"Y","type":"single","vid":7}])",
         {"safe: tA.Y is renamed from X",
          "lossy: tA.Y: real in place of double (larger numbers do not fit, digits may be rounded)"}},
        // A key column matches by its objects, whatever it is called.
        {R"("values":[{"name":"C","child":{"name":"B"}}])",
         R"("values":[{"name":"C","child":{"name":"D"}}])",
         {"safe: tD is renamed from tB", "safe: tD.DID is renamed from BID"}},
        {R"("values":[{"name":"X","type":"date","vid":7}])",
         R"("values":[{"name":"X","type":"long","vid":7}])",
         {"destructive: tA.X: int in place of datetime (its values do not convert: the column is made anew, empty)",
          "safe: tA.X: default 0 in place of default Null"}},
    };
    for (const auto& c : cases)
        EXPECT_THAT(Changes(c.before, c.now), testing::ElementsAreArray(c.changes)) << c.now;
}

TEST(TableIdentity, AValueThatGoesToAnotherTableTakesNothingAlong) {
    const auto model = [](const std::string& ofA, const std::string& ofB) {
        return R"("interfaces":[)" + ofA + R"(],"values":[{"name":"C","child":{"name":"B","interfaces":[)" +
               ofB + "]}}]";
    };
    const std::string shared = R"({"name":"I","values":[{"name":"X","type":"long"}]})";
    EXPECT_THAT(
        Changes(model(shared, ""), model("", shared)),
        ElementsAre(
            "blocked: tA.X is dropped: it moves to tB, which takes no values along: carry them over first",
            "safe: tB.X is added, int"));
}

TEST(TableIdentity, RenamesThatCannotBeAreErrors) {
    const Tables before = Root(R"("values":[{"name":"X","type":"long"},{"name":"C","child":{"name":"B"}}])");
    const Tables now = Root(
        R"("values":[{"name":"Y","type":"long"},{"name":"C","child":{"name":"B"}},{"name":"D","child":{"name":"B","id":"B2"}}])");
    const struct {
        NamedRename rename;
        std::string error;
    } cases[] = {
        {{"tA.Z", "tA.Y"}, "tA has no column \"Z\""},
        {{"tA.X", "tQ.Y"}, "there is no table \"tQ\" in the new definition"},
        {{"tA.X", "tB.BID"}, "no value moves from one table to another"},
        {{"B", "B"}, "several tables are meant by \"B\""},
        {{"tA", "tA.Y"}, "it takes Old=New for a table and Old.Column=New.Column for a column"},
    };
    for (const auto& c : cases)
        EXPECT_THAT(tests::ErrorOf([&] {
                        DefinitionDiff("sqlite", before, now, {.renames = {c.rename}});
                    }).description,
                    HasSubstr(c.error));
    EXPECT_THAT(Texts(DefinitionDiff("sqlite", before, now, {.renames = {{"a.x", "ta.y"}}})),
                testing::Contains("safe: tA.Y is renamed from X"));
}

TEST(LiveTables, TriggersMaySpellTheirTableInAnotherCase) {
    const auto connection = DefaultPlatform().targetProvider->CreateConnection();
    connection->Open("Provider=SQLite;Data Source=:memory:");
    for (const char* statement : {"CREATE TABLE tOrder (OrderID int)", "CREATE INDEX Own ON TORDER (OrderID)",
                                  "CREATE TRIGGER Noted AFTER INSERT ON torder BEGIN SELECT 1; END"})
        connection->Execute(statement);
    const Tables tables = ReadLiveTables(*connection, SqliteDialect());
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_THAT(tables[0].Triggers, ElementsAre("Noted"));
    ASSERT_EQ(tables[0].Dependents.size(), 2U);
    EXPECT_EQ(tables[0].Dependents[1].Name, "Noted");
}

TEST(RenameOrder, ChainsAndCirclesGoThroughFreeNames) {
    const NamedThing things[] = {
        {"A", "b", true}, {"B", "A", true}, {"C", "", false, true}, {"korvex_1", "korvex_1"}};
    std::string text;
    for (const NameChange& change : OrderRenames(things))
        text += change.from + ">" + change.to + " ";
    EXPECT_EQ(text, "C>korvex_2 A>korvex_3 B>A korvex_3>b ");
}

TEST(ColumnTypes, TellWhatBecomesOfValues) {
    const struct {
        const char* before;
        const char* now;
        automation::Variant value;
        ChangeClass cls;
        Fit fit;
    } cases[] = {
        {"int", "double", std::int32_t{7}, ChangeClass::Safe, Fit::Whole},
        {"double", "float", 0.1, ChangeClass::Lossy, Fit::Rounded},
        {"double", "float", 1e300, ChangeClass::Lossy, Fit::None},
        {"decimal(19,4)", "float", 12.5, ChangeClass::Lossy, Fit::Whole},
        {"decimal(19,4)", "float", 1234567.8912, ChangeClass::Lossy, Fit::Rounded},
        {"double", "int", 2.5, ChangeClass::Lossy, Fit::Rounded},
        {"int", "smallint", std::int32_t{40000}, ChangeClass::Lossy, Fit::None},
        {"smallint", "tinyint unsigned", std::int16_t{-1}, ChangeClass::Lossy, Fit::None},
        {"int", "bit", std::int32_t{2}, ChangeClass::Lossy, Fit::None},
        {"varchar(9)", "varchar(3)", "abcd", ChangeClass::Lossy, Fit::None},
        {"varchar(9)", "text", "abcd", ChangeClass::Safe, Fit::Whole},
        {"varchar(9)", "int", "12", ChangeClass::Lossy, Fit::Whole},
        {"varchar(9)", "int", "1,2", ChangeClass::Lossy, Fit::None},
        {"varchar(20)", "datetime", "2024-02-29 20:30:00", ChangeClass::Lossy, Fit::Whole},
        {"varchar(20)", "datetime", "2/29/2024", ChangeClass::Lossy, Fit::None},
        {"int", "varchar(12)", std::int32_t{7}, ChangeClass::Safe, Fit::Whole},
        {"datetime", "varchar(22)", automation::Date{1}, ChangeClass::Lossy, Fit::None},
        {"timestamp", "timestamp(3)", "2024-02-29 20:30:00.123456", ChangeClass::Lossy, Fit::Rounded},
        {"datetime(6)", "datetime(3)", "2024-02-29 20:30:00.120000", ChangeClass::Lossy, Fit::Whole},
        {"datetime", "datetime(3)", "2024-02-29 20:30:00", ChangeClass::Safe, Fit::Whole},
        {"varchar(30)", "timestamp(3)", "2024-02-29 20:30:00.1234", ChangeClass::Lossy, Fit::Rounded},
        {"decimal(19,4)", "double", automation::Currency{9223372036854775807}, ChangeClass::Lossy,
         Fit::Rounded},
        {"decimal(19,4)", "double", automation::Currency{12345678912}, ChangeClass::Lossy, Fit::Whole},
        {"bigint", "double", std::int64_t{9007199254740993}, ChangeClass::Lossy, Fit::Rounded},
        {"int unsigned", "int", std::int64_t{3000000000}, ChangeClass::Lossy, Fit::None},
        {"bytea", "text", "x", ChangeClass::Destructive, Fit::Whole},
        {"NUMBER(12,2)", "NUMBER(15, 2)", 1.25, ChangeClass::Safe, Fit::Whole},
        {"NUMBER(5)", "NUMBER(1)", std::int32_t{1}, ChangeClass::Lossy, Fit::Whole},
    };
    for (const auto& c : cases) {
        const ColumnType before = ColumnTypeOf(c.before, true);
        const ColumnType now = ColumnTypeOf(c.now, true);
        EXPECT_EQ(ConversionBetween(before, now).cls, c.cls) << c.before << " to " << c.now;
        EXPECT_EQ(FitOf(c.value, before, now), c.fit) << c.before << " to " << c.now;
    }
}

}  // namespace
}  // namespace korvex::scriptgen
