#include "hosts/cli/korvex_command.h"
#include "repository/stored_rows.h"
#include "scriptgen/table_model.h"
#include "support/definition_repository.h"
#include "support/driver.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

namespace korvex::tests {
namespace {

class Example : public testing::Test {
  protected:
    const std::string m_model = ReadFile(KORVEX_TEST_DATA "/orders.json");
    const RepositoryFile m_repository{m_model};
};

class ExampleScripts : public testing::TestWithParam<Driver> {};

TEST_P(ExampleScripts, AreTheGoldenFiles) {
    const TempFolder folder;
    Places places(GetParam(), folder);
    const std::vector<const char*> published = {"MSCreate",  "MSDel",  "MSSProc",  "MSFKCr",  "MSFKdel",
                                                "OraCreate", "OraDel", "OraSProc", "OraFKCr", "OraFKDel",
                                                "SyCreate",  "SyDel",  "SySProc",  "SyFKCr",  "SyFKdel"};
    const struct {
        const char* model;
        const char* dialect;
        const char* golden;
        std::vector<const char*> files;
    } cases[] = {{KORVEX_EXAMPLES "/orders.json", "all", KORVEX_EXAMPLES "/scripts", published},
                 {KORVEX_TEST_DATA "/orders.json", "all", KORVEX_TEST_DATA "/scripts", published},
                 {KORVEX_TEST_DATA "/orders.json",
                  "all-engines",
                  KORVEX_EXPECTED "/engines",
                  {"LiteCreate", "LiteDel", "MariaCreate", "MariaDel", "MariaFKCr", "MariaFKdel", "PgCreate",
                   "PgDel", "PgFKCr", "PgFKdel"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.golden);
        const std::string number = std::to_string(&c - cases);
        const std::string connection = places.Connection(places.New("orders" + number + ".db"));
        ASSERT_EQ(RunKorvex({"repository", "new", connection}).messages, "");
        if (connection.find("DSN=") != std::string::npos) {
            // As one that was cut off leaves it.
            Execute(DefaultPlatform(), connection, "drop table tForeignKeys");
            ASSERT_EQ(RunKorvex({"repository", "new", connection}).messages, "");
        }
        ASSERT_EQ(RunKorvex({"repository", "import", connection, c.model}).messages, "");
        ExpectFailure(RunKorvex({"repository", "new", connection}), "korvex: error 75: ");
        const std::string out = folder.Path("deep/" + number);
        const CommandResult result = RunKorvex({"script", "--repository", connection, "--dialect", c.dialect,
                                                "--storage", "Orders", "--out", out});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.messages, "");
        std::string paths;
        for (const char* name : c.files)
            paths += out + "/" + name + ".sql\n";
        EXPECT_EQ(result.output, paths);

        const std::map<std::string, std::string> golden = ReadFolder(c.golden);
        const std::map<std::string, std::string> written = ReadFolder(out);
        ASSERT_EQ(golden.size(), c.files.size());
        EXPECT_EQ(written.size(), c.files.size());
        for (const auto& [name, text] : golden) {
            ASSERT_TRUE(written.contains(name)) << name;
            ExpectSameText(name, written.at(name), text);
        }
    }
}

/// What a table's description says, a line for the table and one for each column.
std::string TableText(const scriptgen::DescribedTable& table) {
    std::string text = table.Name + ": object " + std::to_string(Number(table.ObjectID)) + " beneath";
    for (const repository::ObjectId parent : table.Parents)
        text += " " + std::to_string(Number(parent));
    text += ", key";
    for (const std::string& column : table.PrimaryKey)
        text += " " + column;
    auto key = table.ForeignKeys.begin();
    for (const scriptgen::Column& column : table.Columns) {
        text += "\n    " + column.FieldName + ": value " + std::to_string(Number(column.ValueID)) +
                ", type " + std::to_string(column.DataType) + "(" + column.MaxLength + ")";
        if (!column.DefaultVal.empty()) text += ", default " + column.DefaultVal;
        if (column.IsAutoNumber) text += ", numbered";
        if (column.IsPrimaryKey) text += ", key " + std::to_string(column.nPrimaryKeySeq);
        if (!column.IsForeignKey) continue;
        text += ", object " + std::to_string(Number(column.FKObjectID)) + " value " +
                std::to_string(Number(column.FKValueID)) + ": " + key->Table + "(" + key->KeyField +
                (key->IsInRun ? ")" : ") elsewhere");
        EXPECT_EQ(key->FieldName, column.FieldName);
        EXPECT_EQ(key++->FKObjectID, column.FKObjectID);
    }
    return text + "\n";
}

std::string DescribedText(const std::vector<scriptgen::DescribedTable>& tables) {
    std::string text;
    for (const scriptgen::DescribedTable& table : tables)
        text += TableText(table);
    return text;
}

TEST_P(ExampleScripts, TablesAreDescribedWhateverWasScriptedBefore) {
    const TempFolder folder;
    Places places(GetParam(), folder);
    const std::string connection = places.Connection(places.New("orders.db"));
    ASSERT_EQ(RunKorvex({"repository", "new", connection}).messages, "");
    ASSERT_EQ(RunKorvex({"repository", "import", connection, KORVEX_TEST_DATA "/orders.json"}).messages, "");
    const std::string golden = ReadFile(KORVEX_EXPECTED "/orders.tables.txt");

    const auto described = [&](const auto& describe) {
        repository::Repository repository{DefaultPlatform()};
        repository.OpenRepository(connection);
        return DescribedText(describe(repository));
    };
    const auto orders = [&](const char* prefix) {
        return described([&](auto& source) {
            return scriptgen::DescribeDefinition(repository::Catalog::Read(source.Open()), "Orders", prefix);
        });
    };
    const std::string imported = DumpRepository(DefaultPlatform(), connection);
    ExpectSameText("orders.tables.txt", orders("FK_"), golden);
    EXPECT_EQ(DumpRepository(DefaultPlatform(), connection), imported) << "describing changes nothing";

    // The address, which two objects hold, has another table in a definition that meets it once.
    Execute(DefaultPlatform(), connection,
            "insert into tDataDefs (Storage, RootObjectID) "
            "select 'Customers', ObjectID from tObjects where Name = 'Customer'");
    ASSERT_EQ(RunKorvex({"relate", "--repository", connection, "--storage", "Customers"}).messages, "");
    const std::string address = "select TableName from tObjects where Name = 'Address'";
    EXPECT_THAT(ReadRows(DefaultPlatform(), connection, address, {"TableName"}),
                testing::ElementsAre("tAddress"));
    const auto withoutNumbers = [](const std::string& text) {
        return std::regex_replace(text, std::regex("value \\d+"), "value");
    };
    ExpectSameText("after another", withoutNumbers(orders("FK_")), withoutNumbers(golden));
    ExpectSameText("with a prefix", withoutNumbers(orders("P2_")),
                   std::regex_replace(withoutNumbers(golden), std::regex("FK_"), "P2_"));
    ASSERT_EQ(RunKorvex({"relate", "--repository", connection, "--storage", "Orders"}).messages, "");
    ExpectSameText("related", withoutNumbers(described([](auto& related) {
                       repository::StoredRows rows(related);
                       return scriptgen::DescribeTables(rows, "Orders");
                   })),
                   withoutNumbers(golden));
}

TEST_P(ExampleScripts, AreReplacedByAnotherModelOrStayAsTheyWere) {
    const TempFolder folder;
    Places places(GetParam(), folder);
    const std::string connection = places.Connection(places.New("orders.db"));
    const std::string model = ReadFile(KORVEX_TEST_DATA "/orders.json");
    const auto replace = [&](const std::string& text) {
        return RunKorvex(
            {"repository", "import", connection, folder.Write("orders.json", text), "--replace"});
    };
    ASSERT_EQ(RunKorvex({"repository", "new", connection}).messages, "");
    EXPECT_EQ(replace(model).output.substr(0, 24), "definition Orders added\n");
    ASSERT_EQ(RunKorvex({"relate", connection}).messages, "");
    const std::string before = DumpRepository(DefaultPlatform(), connection);
    if (IsServer(GetParam())) {
        std::string tooLong = Replace(model, "\"Street\"", "\"" + std::string(300, 'S') + "\"");
        tooLong = Replace(tooLong, "\"Latitude\"", "\"Renamed\"");
        ExpectFailure(replace(tooLong), "orders.json: objects[");
        EXPECT_EQ(DumpRepository(DefaultPlatform(), connection), before);
    }
    EXPECT_THAT(replace(Replace(model, "\"Street\"", "\"Road\"")).output,
                testing::StartsWith("value Address.Street removed\nvalue Address.Road added\nthe names"));
    EXPECT_EQ(RunKorvex({"repository", "remove", connection, "--storage", "Orders"}).messages, "");
    EXPECT_EQ(DumpRepository(DefaultPlatform(), connection), "");
}

INSTANTIATE_TEST_SUITE_P(Drivers, ExampleScripts, AllDrivers(), DriverName);

TEST_F(Example, ChecksWithoutErrorsBeforeAndAfterItsFirstRun) {
    const CommandResult before = RunKorvex({"repository", "check", m_repository.Path()});
    EXPECT_EQ(before.exitCode, 0) << before.output;
    EXPECT_EQ(RunKorvex({"relate", "--repository", m_repository.Path()}).exitCode, 0);
    const CommandResult after = RunKorvex({"repository", "check", m_repository.Path()});
    EXPECT_EQ(after.exitCode, 0);
    EXPECT_EQ(after.output, before.output) << "what a run adds must not be found fault with";
}

TEST_F(Example, CopiesThroughItsJsonForm) {
    for (const bool related : {false, true}) {
        SCOPED_TRACE(related ? "related" : "as imported");
        if (related) {
            ASSERT_EQ(RunKorvex({"relate", "--repository", m_repository.Path()}).exitCode, 0);
        }
        const std::vector<std::string> show = {"repository", "show", m_repository.Path(), "--format", "json"};
        const CommandResult shown = RunKorvex(show);
        ASSERT_EQ(shown.exitCode, 0);
        EXPECT_EQ(shown.messages, "");
        EXPECT_EQ(shown.output.find("FK_CustomerID") != std::string::npos, related);

        const RepositoryFile copy(shown.output);
        const CommandResult copied = RunKorvex({"repository", "show", copy.Path(), "--format", "json"});
        EXPECT_EQ(copied.output, shown.output);
    }
}

TEST_F(Example, AModelStandsForItsRepository) {
    const TempFolder& folder = m_repository.Folder();
    const std::string model = folder.Write("orders", "// a model by its content\n" + m_model);
    const auto same = [&](std::vector<std::string> words, std::size_t place) {
        words[place] = m_repository.Path();
        const CommandResult expected = RunKorvex(words);
        words[place] = model;
        const CommandResult result = RunKorvex(words);
        EXPECT_EQ(result.output, expected.output);
        EXPECT_EQ(result.messages, expected.messages);
    };
    same({"repository", "show", "", "--format", "json"}, 2);
    same({"repository", "check", "--repository", "", "--dialect", "all-engines"}, 3);
    EXPECT_EQ(RunKorvex({"script", model, "--dialect", "all", "--out", folder.Path("out")}).messages, "");
    EXPECT_EQ(ReadFolder(folder.Path("out")), ReadFolder(KORVEX_TEST_DATA "/scripts"));
    const std::string target = "Provider=SQLite;Data Source=" + folder.Path("target.db");
    EXPECT_EQ(RunKorvex({"database", "create", model, "--connection", target}).exitCode, 0);
    EXPECT_EQ(RunKorvex({"database", "check", "--repository", m_repository.Path(), "--connection", target})
                  .exitCode,
              0);

    ExpectFailure(RunKorvex({"relate", model}), "korvex: error 3027: " + model + " is a model");
    ExpectFailure(RunKorvex({"repository", "import", model, model}), "korvex: error 3027: " + model);
    ExpectFailure(RunKorvex({"script", folder.Write("bad.json", "{\"objects\":[{}]}"), "--dialect", "all"}),
                  "bad.json: objects[0]: lacks the member \"name\"");
    ExpectFailure(RunKorvex({"repository", "show", folder.Write("blank.json", "/* to do */")}),
                  "blank.json: line 1, column 12: syntax error");
    ExpectFailure(RunKorvex({"repository", "show", folder.Path("none.json")}), "korvex: error 3024: ");
}

}  // namespace
}  // namespace korvex::tests
