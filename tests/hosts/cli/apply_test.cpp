#include "automation/error.h"
#include "hosts/cli/apply/apply_run.h"
#include "hosts/cli/korvex_command.h"
#include "hosts/cli/target_database.h"
#include "platform/native/native_platform.h"
#include "support/test_seam.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

using Lines = std::vector<std::string>;

/// A parent, a child with a record that refers to it, and a frame within which the parent may go.
constexpr const char* Family =
    "create table A (AID INTEGER primary key autoincrement, B text);\n"
    "create table C (CID INTEGER primary key, FK_AID int references A (AID));\n"
    "insert into A values (7, 'b');\ninsert into C values (1, 7);\n";
constexpr const char* Opening = "-- made by hand\nPRAGMA foreign_keys=OFF; BEGIN;\n";
constexpr const char* Closing = "PRAGMA foreign_key_check;\nCOMMIT;\nPRAGMA foreign_keys=ON;\n";
constexpr const char* Rebuild =
    "create temp table K as select * from A;\ndrop table A;\n"
    "create table A (AID INTEGER primary key autoincrement, B varchar(9));\n"
    "insert into A select * from K;\ndrop table temp.K;\n";

std::string Framed(const std::string& script) { return Opening + script + Closing; }

class Apply : public testing::Test {
  protected:
    /// Runs the command on files given by path.
    CommandResult ApplyFiles(const Lines& files, const Lines& options = {"--create"}) const {
        Lines arguments = {"apply", "--connection", m_target.Connection()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.insert(arguments.end(), files.begin(), files.end());
        return RunKorvex(arguments);
    }
    std::string Write(const std::string& text, const std::string& name = "a.sql") const {
        return m_target.Folder().Write(name, text);
    }
    CommandResult ApplyText(const std::string& text) const { return ApplyFiles({Write(text)}); }
    void Expect(const CommandResult& result, const std::string& output) const {
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.messages, "");
        EXPECT_EQ(result.output, output);
    }
    /// Everything that the database holds.
    Lines Contents() const {
        Lines all = m_target.Query("select type, name, sql from sqlite_master order by 1, 2");
        for (const char* query : {"select * from A", "select * from C", "select * from sqlite_sequence"})
            for (const std::string& line : m_target.Query(query))
                all.push_back(line);
        return all;
    }

    TargetDatabase m_target;
};

// Nothing is rewritten, and no more than repetitions left out; a plan is only printed.
TEST_F(Apply, PlainScriptsRunAsTheyStand) {
    const RepositoryFile repository(ReadFile(KORVEX_TEST_DATA "/orders.json"));
    const std::string folder = m_target.Folder().Path("scripts");
    RunKorvex({"script", "--repository", repository.Path(), "--dialect", "sqlite", "--out", folder});
    const std::string create = folder + "/LiteCreate.sql";
    const std::string remove = folder + "/LiteDel.sql";
    const std::string own = Write(
        "insert into tOrder (State)\n values (1);\ndrop table if exists X;\n"
        "drop table if exists X;\ncreate view V as select 1;\n",
        "own.sql");
    const CommandResult plan = ApplyFiles({create, own}, {"--create", "--dry-run"});
    EXPECT_THAT(plan.output, StartsWith(create + ", line 1: create table tOrder\n"));
    EXPECT_THAT(plan.output, HasSubstr(": create trigger tCustomer_I\n"));
    EXPECT_THAT(plan.output,
                EndsWith("\n" + own + ", line 1: run insert into tOrder (State) ...\n" + own +
                         ", line 3: drop table X\n" + own + ", line 4: skip the repetition: drop table X\n" +
                         own + ", line 5: create view V\n"));
    EXPECT_FALSE(std::filesystem::exists(m_target.Path()));

    EXPECT_THAT(ApplyFiles({create}).output, MatchesRegex("[0-9]+ tables, [0-9]+ indexes and [0-9]+ triggers "
                                                          "created\n"));
    const std::string script = ReadFile(create);
    for (const std::string& made :
         m_target.Query("select sql from sqlite_master where name not like 'sqlite_%'"))
        EXPECT_THAT(script, HasSubstr(made + ";\r\n"));
    ExpectFailure(ApplyFiles({own, create}), create + ", line 1: Table tOrder already exists (");
    EXPECT_THAT(m_target.Query("select count(*) from tOrder"), ElementsAre("0"));
    EXPECT_EQ(ApplyFiles({remove}, {"--dry-run"}).exitCode, 0);
    Expect(ApplyFiles({own}),
           "1 view created\n1 table dropped\n1 other statement run\n1 repeated statement skipped\n");
    EXPECT_THAT(ApplyFiles({remove}).output, EndsWith(" tables dropped\n"));
    EXPECT_THAT(m_target.Objects(), ElementsAre("view V"));
}

TEST_F(Apply, OtherStylesRunAsTheyStand) {
    Expect(
        ApplyText("create table T (A int, B text);\nrem it's a remark\ninsert into T\n values (1, 'a;\nb');\n"
                  "create trigger TR after insert on T\nbegin\n  delete from T where A = 1;\nend;\n/\n"
                  "insert into T values (2, 'c');\n"),
        "1 table and 1 trigger created\n2 other statements run\n");
    EXPECT_THAT(m_target.Query("select * from T"), ElementsAre("2 c"));
    Expect(ApplyText("create table U (A int)\nGO\ncreate table U (A int)\nGO\ndrop table U\nGO\n"
                     "create table U (A int)\nGO\ndelete from T\nGO\ndelete from T\nGO\n"),
           "2 tables created\n1 table dropped\n2 other statements run\n1 repeated statement skipped\n");
    Expect(ApplyText("\r\n"), "nothing to do\n");
    Expect(ApplyFiles({Write("insert into T values (3, 'd')\n")}, {"--style", "go"}),
           "1 other statement run\n");
    EXPECT_THAT(m_target.Query("select * from T"), ElementsAre("3 d"));
}

TEST_F(Apply, ScriptsForOtherEnginesAreRefusedWithTheWayOut) {
    const std::pair<const char*, const char*> cases[] = {{"MSCreate", "Unknown database dbo"},
                                                         {"SyCreate", "syntax error"},
                                                         {"SyFKCr", "No such table: tCustomer"},
                                                         {"OraCreate", "Near \"sequence\": syntax error"}};
    for (const auto& [name, message] : cases) {
        const CommandResult result = ApplyFiles({KORVEX_TEST_DATA "/scripts/" + std::string(name) + ".sql"});
        ExpectFailure(result, message);
        EXPECT_THAT(result.messages, HasSubstr("korvex script --dialect sqlite, its tables made with korvex "
                                               "database create. The database is as it was."));
        EXPECT_FALSE(std::filesystem::exists(m_target.Path()));
    }
}

TEST_F(Apply, AScriptMayBringTheFrameWithinWhichTablesAreMadeAnew) {
    ApplyText(Family);
    ExpectFailure(ApplyText(Rebuild), "a.sql, line 2: FOREIGN KEY constraint failed");
    const CommandResult plan = ApplyFiles({Write(Framed(Rebuild))}, {"--dry-run"});
    EXPECT_THAT(plan.output, HasSubstr("a.sql, line 2: frame of the run: run BEGIN\n"));
    Expect(ApplyText(Framed(Rebuild)), "2 tables created\n2 tables dropped\n1 other statement run\n");
    EXPECT_THAT(m_target.Query("select AID, B, type from A, pragma_table_info('A') p where p.name = 'B'"),
                ElementsAre("7 b varchar(9)"));
    EXPECT_EQ(m_target.Execute("delete from A"), ado::DbEConstraint);

    const Lines before = Contents();
    const std::string framed = Write(Framed("delete from A;\n"));
    ExpectFailure(ApplyFiles({framed}),
                  "Records of C refer to records of A that are not there. The database is as it was.");
    ExpectFailure(ApplyFiles({framed, Write("select 1;\n", "b.sql")}), "and others do not");
    const std::string others[] = {Opening + std::string("delete from C;\nCOMMIT;\nPRAGMA foreign_keys=ON;\n"),
                                  "delete from C;\n" + Framed(""), Framed("COMMIT;\n"),
                                  Framed("savepoint a;\n"), "PRAGMA foreign_keys = OFF;\ndelete from C;\n"};
    for (const std::string& other : others)
        ExpectFailure(ApplyText(other), "cannot stand in a script for the embedded engine");
    EXPECT_EQ(Contents(), before);
}

TEST_F(Apply, AFailureNamesFileAndLineAndChangesNothing) {
    ApplyText(Family);
    const Lines before = Contents();
    const struct {
        std::string script;
        std::string message;
    } cases[] = {
        {"\n\nselect *\n frm C\nGO\n", "line 7: Near \"frm\": syntax error"},
        {"CREATE TABLE A (A int)\nGO\n", "line 5: Table A already exists"},
        {"CREATE TABLE A (A int)\nGO\n", "Run the drop scripts first"},
        {"delete from C; delete from A\nGO\n", "line 5: "},
        {"insert into C\n values ('x)\nGO\n", "line 6: The quote that begins here is never closed."},
        {"DROP TABLE A\nGO\n", "line 5: FOREIGN KEY constraint failed"},
        {"DROP TABLE A\nGO\n", "drop the foreign keys first. The database is as it was."},
        {"COMMIT\nGO\n", "line 5: COMMIT cannot stand in a script"},
        {"-- done\n;end transaction\nGO\n", "line 6: END cannot stand"},
        {"rollback\nGO\n", "line 5: ROLLBACK cannot stand"},
        {"/* a */ savepoint a\nGO\n", "line 5: SAVEPOINT cannot stand"},
        {"release a\nGO\n", "line 5: RELEASE cannot stand"},
        {"BEGIN\nGO\n", "line 5: BEGIN cannot stand"},
    };
    for (const auto& test : cases) {
        const CommandResult result =
            ApplyText("create table Before (A int)\nGO\ndelete from C where CID = 2\nGO\n" + test.script);
        ExpectFailure(result, test.message);
        EXPECT_THAT(result.messages, MatchesRegex("korvex: error -?[0-9]+: [^\n]*a.sql, line [^\n]*\n"));
        EXPECT_LT(result.messages.size(), 500U);
        EXPECT_EQ(Contents(), before);
    }
}

TEST_F(Apply, AFileThatTheRunMadeGoesWhenItFails) {
    const std::string bad = Write("create table T (A int)\nGO\nfrm\nGO\n", "b.sql");
    ExpectFailure(ApplyFiles({bad}), "b.sql, line 3: ");
    EXPECT_FALSE(std::filesystem::exists(m_target.Path()));
    Write("", "target.db");
    ExpectFailure(ApplyFiles({bad}), "b.sql, line 3: ");
    Expect(ApplyText("create table T (A int)\n"), "1 table created\n");
    ExpectFailure(ApplyFiles({bad}), "b.sql, line 1: ");
    EXPECT_THAT(m_target.Objects(), ElementsAre("table T"));
}

TEST_F(Apply, BadInput) {
    const std::string script = Write("create table T (A int)\n");
    const std::string missing = m_target.Folder().Path("missing.sql");
    const struct {
        Lines arguments;
        int exitCode;
        std::string message;
    } cases[] = {
        {{"apply", script}, 2, "--connection is required"},
        {{"apply", "--connection", m_target.Connection()}, 2, "FILE is required"},
        {{"apply", "--connection", m_target.Connection(), script}, 1, "target.db"},
        {{"apply", "--connection", "", script}, 1, "names no provider"},
        {{"apply", "--connection", "Provider", script}, 1, "has no \"=\""},
        {{"apply", "--connection", "Provider=Other", script}, 1, "no provider \"Other\""},
        {{"apply", "--connection", "DSN=x", "--create", script}, 1, "Only a database file can be made"},
        {{"apply", "--connection", m_target.Connection(), "--create", script, missing},
         1,
         "missing.sql: No such file"},
        {{"apply", "--connection", m_target.Connection(), "--style", "other", script}, 2, "--style"},
    };
    for (const auto& test : cases)
        ExpectFailure(RunKorvex(test.arguments), test.message, test.exitCode);
    EXPECT_THAT(m_target.Objects(), IsEmpty());
}

// Whichever engine call fails, the run ends with its error, and the database is as it was, which the error
// says unless the rollback itself has failed.
TEST_F(Apply, ARunThatTheEngineFailsChangesNothing) {
    const auto run = [](const std::shared_ptr<ado::Connection>& connection, const std::string& text) {
        std::ostringstream results;
        std::ostringstream messages;
        cli::Console console(results, messages);
        cli::RunStatements(connection, cli::ReadScript("script", text, cli::GuessStyle(text)), true, console);
    };
    const auto seam = std::make_shared<TestSeam>();
    const Platform platform = native::NativePlatform({.seam = seam});
    using native::sql::CallKind;
    int failedRollbacks = 0;
    for (const std::string& script : {Framed(Rebuild), std::string("delete from C;\nfrm;\n")}) {
        std::size_t failures = 0;
        bool failed = true;
        for (std::size_t n = 1; failed; ++n) {
            SCOPED_TRACE("call " + std::to_string(n));
            std::filesystem::remove(m_target.Path());
            run(m_target.Open(), Family);
            const Lines before = Contents();
            auto connection = platform.targetProvider->CreateConnection();
            connection->Open(m_target.Connection());
            seam->Record();
            seam->FailAt(n);
            const Raised raised = ErrorOf([&] { run(connection, script); });
            failed = seam->HasFailed();
            seam->FailAt(0);
            connection = nullptr;
            EXPECT_EQ(seam->OpenStatements(), 0);
            const auto& calls = seam->Calls();
            const auto isRefused = [&](CallKind kind) { return failed && calls[n - 1].kind == kind; };
            if (raised.number == 0) {
                EXPECT_NE(Contents(), before);
                continue;
            }
            ++failures;
            EXPECT_EQ(Contents(), before);
            const bool isBegun = !isRefused(CallKind::Begin) &&
                                 std::ranges::count(calls, CallKind::Begin, &TestSeam::Call::kind) > 0;
            failedRollbacks += isRefused(CallKind::Rollback) ? 1 : 0;
            EXPECT_EQ(raised.description.ends_with("The database is as it was."),
                      isBegun && !isRefused(CallKind::Rollback))
                << raised.description;
            EXPECT_EQ(raised.description.find("could not be rolled back") != std::string::npos,
                      isRefused(CallKind::Rollback));
        }
        EXPECT_GT(failures, 5U);
    }
    EXPECT_EQ(failedRollbacks, 1);
}

}  // namespace
}  // namespace korvex::tests
