#include "hosts/cli/korvex_command.h"
#include "hosts/cli/target_database.h"
#include "scriptgen/migration/live_tables.h"
#include "support/driver.h"
#include "support/text_files.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

namespace korvex::tests {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// What the engines do differently.
struct Engine {
    std::string dialect;
    std::string things;       ///< that the example's definition makes beside tables and indexes
    std::string dropTrigger;  ///< a statement that removes one
    std::string trigger;      ///< its name
    /// Statements that are in the way of something late in a run, and that take it away again.
    std::vector<std::string> obstacle;
    std::string clearance;
};

Engine EngineOf(Driver driver) {
    switch (driver) {
        case Driver::MariaDb:
            return {"mariadb",
                    "30 triggers and 16 foreign keys",
                    "drop trigger tParcel_I",
                    "tParcel_I",
                    {"create table other (ID int primary key, Up int, constraint FK_tPayment_FK_PaymentsID "
                     "foreign key (Up) references other (ID))"},
                    "drop table other"};
        case Driver::PostgreSql:
            return {"postgresql",
                    "15 triggers and 16 foreign keys",
                    "drop trigger tParcel_noparent on tParcel",
                    "tParcel_noparent",
                    {"create table IX_tPayment_FK_PaymentsID (A int)"},
                    "drop table IX_tPayment_FK_PaymentsID"};
        default:
            return {"sqlite",
                    "30 triggers and 16 foreign keys",
                    "drop trigger tParcel_I",
                    "tParcel_I",
                    {"create table other (A int)", "create index IX_tPayment_FK_PaymentsID on other (A)"},
                    "drop table other"};
    }
}

class DatabaseCommand : public testing::TestWithParam<Driver> {
  protected:
    std::string Target() const {
        const Driver driver = GetParam();
        if (driver == Driver::Sqlite) return "Provider=SQLite;Data Source=" + m_place;
        return m_places.Connection(m_place) + (driver == Driver::OdbcSqlite ? ";FKSupport=1" : "");
    }
    CommandResult Run(const RepositoryFile& repository, const std::string& what, const std::string& storage,
                      const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"database",        what,           "--repository",
                                              repository.Path(), "--connection", Target()};
        if (!storage.empty()) arguments.insert(arguments.end(), {"--storage", storage});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunKorvex(arguments);
    }
    void Expect(const CommandResult& result, const std::string& output, int exitCode = 0) const {
        EXPECT_EQ(result.output, output);
        EXPECT_EQ(result.messages, "");
        EXPECT_EQ(result.exitCode, exitCode);
    }
    void Execute(const std::vector<std::string>& statements) const {
        const auto connection = DefaultPlatform().targetProvider->CreateConnection();
        connection->Open(Target());
        for (const std::string& statement : statements)
            connection->Execute(statement);
    }
    std::string Value(const std::string& query) const {
        const auto connection = DefaultPlatform().targetProvider->CreateConnection();
        connection->Open(Target());
        const automation::Variant value = connection->Execute(query)->Fields(0)->Value();
        return value.IsNull() ? "-" : automation::ToString(value);
    }
    std::string Made(const std::string& things) const {
        return things + " made (" + m_engine.dialect + ")\n";
    }

    const Engine m_engine = EngineOf(GetParam());
    const bool m_rollsBack = DefinitionsRollBack(GetParam());
    TempFolder m_folder;
    Places m_places{GetParam(), m_folder};
    const std::string m_place = m_places.New("target");
};

constexpr const char* Equal = "the tables are those of the definition\n";

TEST_P(DatabaseCommand, MakesChecksCompletesAndRemovesTheTablesOfADefinition) {
    const RepositoryFile repository(ReadFile(KORVEX_TEST_DATA "/orders.json"));
    const auto run = [&](const std::string& what, const std::vector<std::string>& more = {}) {
        return Run(repository, what, "Orders", more);
    };
    Expect(run("create"), Made("16 tables, 16 indexes, " + m_engine.things));
    Expect(run("check"), Equal);
    Expect(run("create"), Made("nothing"));

    Execute({m_engine.dropTrigger, "drop table tPayment"});
    Expect(run("check"), "tParcel has no trigger " + m_engine.trigger + "\ntPayment is missing\n", 1);
    Execute({"alter table tParcel add extra int"});
    ExpectFailure(run("create"), "tParcel.extra is not in the definition. Nothing was done.");
    EXPECT_THAT(run("check").output, HasSubstr("tPayment is missing\n"));
    Execute({"alter table tParcel drop column extra"});

    Execute(m_engine.obstacle);
    const CommandResult failed = run("create");
    ExpectFailure(failed, m_rollsBack ? "The database is as it was."
                                      : "Done before that, and kept: 1 table, 1 index and 3 triggers. The "
                                        "same command goes on from there.");
    Execute({m_engine.clearance});
    const std::string triggers = GetParam() == Driver::PostgreSql ? "2" : "3";
    Expect(run("create"), m_rollsBack ? Made("1 table, 1 index, " + triggers + " triggers and 1 foreign key")
                                      : Made("1 foreign key"));
    Expect(run("check"), Equal);

    ExpectFailure(run("drop"), "with all records. Nobody can be asked here: say so with --yes.");
    EXPECT_THAT(run("drop", {"--yes"}).output, StartsWith("16 tables"));
    EXPECT_THAT(run("check").output, StartsWith("tOrder is missing\ntCustomer is missing\n"));
    Expect(run("create"), Made("16 tables, 16 indexes, " + m_engine.things));
}

/// Everything that the database tells of its tables, a line each, whatever their order.
std::multiset<std::string> CatalogueOf(const std::string& target, const std::string& dialect) {
    const auto connection = DefaultPlatform().targetProvider->CreateConnection();
    connection->Open(target);
    std::multiset<std::string> lines;
    for (const auto& table : scriptgen::ReadLiveTables(*connection, scriptgen::EngineDialectOf(dialect))) {
        for (const auto& column : table.Columns)
            lines.insert(table.Name + "." + column.FieldName + " " + column.TypeSize + " default " +
                         column.DefaultVal + (column.IsAutoNumber ? " numbered" : "") +
                         (column.IsPrimaryKey ? " key" : ""));
        for (const auto& key : table.ForeignKeys)
            lines.insert(table.Name + "." + key.FieldName + " refers to " + key.Table + "." + key.KeyField);
        for (const auto& index : table.Indexes)
            lines.insert(table.Name + " index " + index.Name + " on " + index.Columns.front());
        for (const auto& trigger : table.Triggers)
            lines.insert(table.Name + " trigger " + trigger);
    }
    return lines;
}

TEST_P(DatabaseCommand, IsPulledAsAModelThatMakesTheSameTables) {
    const RepositoryFile repository(ReadFile(KORVEX_EXAMPLES "/orders.json"));
    ASSERT_EQ(Run(repository, "create", "Orders").messages, "");
    const std::multiset<std::string> made = CatalogueOf(Target(), m_engine.dialect);
    const std::string model = m_folder.Path("pulled.json");
    const std::vector<std::string> pull = {"repository", "pull", "--connection", Target(), model};
    const CommandResult pulled = RunKorvex(pull);
    EXPECT_THAT(
        pulled.messages,
        testing::MatchesRegex("korvex: t[Oo]rder.[Ii]nternal[Rr]emarks does not tell the length of its "
                              "texts, 4001 stands for it\n"));
    EXPECT_EQ(pulled.output, model + "\n");
    ExpectFailure(RunKorvex(pull), "korvex: error 75: The file exists: " + model);

    EXPECT_THAT(Run(repository, "drop", "Orders", {"--yes"}).output, StartsWith("17 tables"));
    EXPECT_THAT(RunKorvex({"database", "create", model, "--connection", Target()}).output,
                StartsWith("17 tables"));
    EXPECT_EQ(CatalogueOf(Target(), m_engine.dialect), made);
}

TEST_P(DatabaseCommand, DefinitionsShareTables) {
    const RepositoryFile repository(R"({
      "definitions": [ { "storage": "A", "root": "Alpha" }, { "storage": "B", "root": "Beta" } ],
      "objects": [ { "name": "Alpha", "values": [ { "name": "V", "child": "Shared" } ] },
                   { "name": "Beta", "values": [ { "name": "V", "child": "Shared" } ] },
                   { "name": "Shared", "values": [ { "name": "W", "type": "string", "maxLength": 9 } ] } ] })");
    const std::string two = GetParam() == Driver::PostgreSql ? "1 trigger" : "2 triggers";
    const CommandResult made = Run(repository, "create", "A");
    EXPECT_EQ(made.output, Made("2 tables, 2 indexes, " + two + " and 1 foreign key"));
    EXPECT_THAT(made.messages, HasSubstr("tShared.FK_BetaID refers to tBeta, which is none of these tables"));
    Execute({"insert into tAlpha (QORCounter) values (1)",
             "insert into tShared (W, FK_AlphaID, FK_BetaID) values ('x', 1, 0)",
             "insert into tShared (W, FK_AlphaID) values ('gone', 1)", "delete from tShared where W = 'gone'",
             "create index Own on tShared (W)"});
    EXPECT_EQ(Run(repository, "create", "B").output, Made("1 table and 1 foreign key"));
    Expect(Run(repository, "check", "A"), Equal);
    EXPECT_ANY_THROW(Execute({"insert into tShared (FK_BetaID) values (7)"}));
    Execute({"insert into tShared (W, FK_BetaID) values ('y', 0)",
             "drop index Own" + std::string(GetParam() == Driver::MariaDb ? " on tShared" : "")});
    if (!IsServer(GetParam())) {
        EXPECT_EQ(Value("select SharedID from tShared where W = 'y'"), "3") << "numbers go on";
    }

    const CommandResult dropped = Run(repository, "drop", "A", {"--yes"});
    EXPECT_THAT(dropped.output, StartsWith("1 table"));
    EXPECT_THAT(dropped.messages, HasSubstr("tShared stays: the definition B uses it."));
    Expect(Run(repository, "check", "B"), Equal);
    Execute({"insert into tShared (W, FK_AlphaID) values ('z', 7)"});
    EXPECT_EQ(Value("select count(*) from tShared"), "3");
    EXPECT_EQ(Run(repository, "drop", "B", {"--yes"}).exitCode, 0);
    EXPECT_EQ(Run(repository, "check", "B").output, "tBeta is missing\ntShared is missing\n")
        << "A was gone already";

    EXPECT_EQ(Run(repository, "create", "").output,
              Made("3 tables, 2 indexes, " + two + " and 2 foreign keys"));
    Expect(Run(repository, "check", ""), Equal);
    EXPECT_THAT(Run(repository, "drop", "", {"--yes"}).output, StartsWith("3 tables"));
}

INSTANTIATE_TEST_SUITE_P(Drivers, DatabaseCommand, AllDrivers(), DriverName);

TEST(DatabaseFile, IsNotMadeForADefinitionThatTheEngineDoesNotTake) {
    const struct {
        const char* values;
        const char* message;
    } cases[] = {
        {R"({"name":"Select","type":"long"},{"name":"N","type":"long","default":"x"})",
         "sqlite does not take the definition: column tA.Select is a reserved word of sqlite; tA.N: the "
         "default"},
        {R"({"name":"Total","type":"long"},{"name":"total","type":"long"})",
         "Nothing was done, because data would be mixed up or lost"},
    };
    for (const auto& c : cases) {
        const RepositoryFile repository(
            R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A","values":[)" +
            std::string(c.values) + "]}]}");
        const TargetDatabase target;
        ExpectFailure(RunKorvex({"database", "create", "--repository", repository.Path(), "--connection",
                                 target.Connection()}),
                      c.message);
        EXPECT_FALSE(std::filesystem::exists(target.Path()));
    }
}

TEST(DatabaseFile, IsCheckedThoughAnotherDialectWouldRefuseTheDefinition) {
    const RepositoryFile repository(
        R"({"definitions":[{"storage":"S","root":"A"}],"objects":[{"name":"A","values":[
            {"name":"B","type":"byte"},{"name":"N","type":"double"}]}]})");
    repository.Execute({"update tValues set MaxLength = 'long' where Name = 'B'"});
    const TargetDatabase target;
    ASSERT_EQ(target.Execute("create table tA (B tinyint default 0, N text default 0)"), 0);
    EXPECT_THAT(RunKorvex({"database", "check", "--repository", repository.Path(), "--connection",
                           target.Connection()})
                    .output,
                StartsWith("tA.N is TEXT, not double\n"));
}

TEST(DatabaseFile, IsPulledWithWordsForWhatAModelCannotSay) {
    const TargetDatabase target;
    for (
        const char* statement :
        {"create table tGroup (GroupID integer primary key autoincrement, Label varchar(20) default 'it''s', "
         "FK_GroupID int references tGroup (GroupID))",
         "create table persons (name text primary key, rating bigint default (1 + 1), born date, "
         "grp int references tGroup, boss references none (x))",
         "create unique index persons_born on persons (born)"})
        ASSERT_EQ(target.Execute(statement), 0) << statement;
    const std::string model = target.Folder().Path("pulled.json");
    const CommandResult result =
        RunKorvex({"repository", "pull", "--connection", target.Connection(), model});
    EXPECT_EQ(result.exitCode, 0);
    ExpectSameText("messages", result.messages, ReadFile(KORVEX_EXPECTED "/pull.messages.txt"));
    ExpectSameText("model", ReadFile(model), ReadFile(KORVEX_EXPECTED "/pull.json"));
}

/// A command that has printed something before it failed.
void ExpectFailureAfterResults(const CommandResult& result, const std::string& message) {
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.messages, HasSubstr(message));
}

TEST(DatabaseFile, OfVersion01IsToldGoesOnWorkingAndIsBroughtToItsDialect) {
    const RepositoryFile repository(ReadFile(KORVEX_TEST_DATA "/orders.json"));
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    const TargetDatabase target;
    std::string script = ReadFile(KORVEX_EXPECTED "/target_0.1.sql");
    for (std::size_t end = 0; (end = script.find(";\n")) != std::string::npos; script.erase(0, end + 2))
        ASSERT_EQ(target.Execute(script.substr(0, end)), 0) << script.substr(0, end);
    const auto run = [&](std::vector<std::string> words, const std::vector<std::string>& more = {}) {
        words.insert(words.end(), {"--repository", repository.Path(), "--storage", "Orders", "--connection",
                                   target.Connection()});
        words.insert(words.end(), more.begin(), more.end());
        return RunKorvex(words);
    };
    const CommandResult checked = run({"database", "check"});
    EXPECT_EQ(checked.exitCode, 1);
    EXPECT_THAT(checked.output, StartsWith("made by 0.1\n"));
    EXPECT_THAT(checked.output, HasSubstr("\ntOrder.Total is float, not decimal(19,4)\n"));
    ExpectFailure(run({"database", "create"}), "Tables are there that differ from the definition");

    EXPECT_EQ(run({"save"}, {KORVEX_TEST_DATA "/order.json"}).output, "1\n");
    const CommandResult loaded = run({"load"}, {"--key", "1"});
    EXPECT_THAT(loaded.output, HasSubstr("\"OrderNumber\""));
    EXPECT_EQ(RunKorvex({"update", "--repository", repository.Path(), "--storage", "Orders", "--connection",
                         target.Connection(), "--key", "1"},
                        {}, {}, target.Folder().Write("update.json", R"({"State": 4})"))
                  .messages,
              "");
    EXPECT_EQ(target.Query("select State from tOrder"), std::vector<std::string>{"4"});
    EXPECT_EQ(run({"delete"}, {"--key", "1"}).exitCode, 0);
    EXPECT_EQ(target.Query("select count(*) from tOrderLine"), std::vector<std::string>{"0"});
    target.Execute("alter table tPayment add More int");
    EXPECT_THAT(run({"database", "check"}).output, HasSubstr("tPayment.More is not in the definition"));

    // Brought to the types of its engine, with its records and counters.
    ASSERT_EQ(run({"save"}, {KORVEX_TEST_DATA "/order.json"}).output, "2\n");
    const std::string before = run({"load"}, {"--key", "2"}).output;
    const std::string notes = target.Query("select Notes from tOrder").front();
    target.Execute("create index Own on tOrder (State)");
    ExpectFailureAfterResults(run({"database", "update"}), "need --allow-loss. Nothing was changed.");
    target.Execute("update tOrder set Notes = printf('%.3000c', 'x')");
    ExpectFailureAfterResults(
        run({"database", "update"}, {"--allow-loss"}),
        "tOrder.Notes: varchar(2000) does not hold 1 of 1 values. Change them first. Nothing was changed.");
    target.Execute("update tOrder set Notes = 'x'");
    EXPECT_THAT(run({"database", "update"}, {"--dry-run"}).output,
                HasSubstr("destructive: tPayment.More is dropped"));
    EXPECT_THAT(run({"database", "update"}, {"--allow-loss"}).output, HasSubstr("statements run (sqlite)"));
    EXPECT_EQ(run({"database", "check"}).output, Equal);
    EXPECT_EQ(run({"database", "update"}).output, "0 statements run (sqlite)\n");
    EXPECT_EQ(target.Query("select count(*) from tOrder where OrderID = 2 and Notes = 'x'"),
              std::vector<std::string>{"1"});
    target.Execute("update tOrder set Notes = '" + notes + "'");
    EXPECT_EQ(run({"load"}, {"--key", "2"}).output, before);
    EXPECT_EQ(target.Query("select count(*) from sqlite_master where name = 'Own'"),
              std::vector<std::string>{"1"});
    ASSERT_EQ(run({"save"}, {KORVEX_TEST_DATA "/order.json"}).output, "3\n");
}

}  // namespace
}  // namespace korvex::tests
