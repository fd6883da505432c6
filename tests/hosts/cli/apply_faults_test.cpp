#include "automation/error.h"
#include "hosts/cli/apply/apply_run.h"
#include "hosts/cli/target_database.h"
#include "platform/native/native_platform.h"
#include "support/error_of.h"
#include "support/test_seam.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

constexpr const char* Before =
    "create table A (AID INTEGER primary key);\n"
    "create table C (CID INTEGER primary key autoincrement, FK_AID int, FK_BID int);\n"
    "create index C1 on C(FK_AID);\ninsert into A values (1);\ninsert into C values (7, 1, 0);\n";
constexpr const char* Script =
    "CREATE TABLE dbo.B (BID int IDENTITY (1, 1) Not NULL, PRIMARY KEY CLUSTERED (BID))\nGO\n"
    "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_AID) REFERENCES A(AID)\nGO\n"
    "insert into dbo.B default values\nGO\n"
    "ALTER TABLE C\nADD CONSTRAINT F FOREIGN KEY (FK_BID) REFERENCES B(BID)\nGO\n"
    "if exists(select 1) DROP TABLE dbo.None\nGO\n";

void RunScript(ado::Connection& connection, const std::string& text) {
    std::ostringstream results;
    std::ostringstream messages;
    cli::Console console(results, messages, false);
    cli::ApplyReport report;
    cli::RunStatements(connection, cli::ReadScript("script", text, cli::GuessStyle(text)), console, report);
}

/// Everything that a database holds.
std::vector<std::string> Contents(const TargetDatabase& target) {
    std::vector<std::string> all = target.Query("select type, name, sql from sqlite_master order by 1, 2");
    for (const char* query : {"select * from A", "select * from C", "select * from sqlite_sequence"})
        for (const std::string& line : target.Query(query))
            all.push_back(line);
    return all;
}

// Whichever engine call fails, the run ends with its error, and the database is as it was; or the run needed
// nothing of it, as of the look whether a second record follows.
TEST(ApplyFaults, ARunSucceedsOrChangesNothing) {
    const auto seam = std::make_shared<TestSeam>();
    const Platform platform = native::NativePlatform({.seam = seam});

    std::size_t failures = 0;
    bool reached = true;
    for (std::size_t n = 1; reached; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        const TargetDatabase target;
        RunScript(*target.Open(), Before);
        const std::vector<std::string> before = Contents(target);
        const auto connection = platform.targetProvider->CreateConnection();
        connection->Open(target.Connection());
        seam->FailAt(n);
        bool succeeded = true;
        try {
            RunScript(*connection, Script);
        } catch (const automation::Error& error) {
            succeeded = false;
            EXPECT_TRUE(seam->HasFailed()) << error.Description();
        }
        reached = seam->HasFailed();
        seam->FailAt(0);
        EXPECT_EQ(seam->OpenStatements(), 0);
        if (!succeeded) {
            ++failures;
            ASSERT_EQ(Contents(target), before);
            continue;
        }
        EXPECT_THAT(target.ForeignKeys(), testing::ElementsAre("C.FK_AID A.AID", "C.FK_BID B.BID"));
        EXPECT_THAT(target.Query("select * from C"), testing::ElementsAre("7 1 -"));
        EXPECT_EQ(target.Execute("insert into C (FK_AID) values (2)"), ado::DbEConstraint);
    }
    EXPECT_GT(failures, 50U);
}

TEST(ApplyFaults, ARollbackIsOnlyReportedWhenItWorked) {
    const TargetDatabase target;
    RunScript(*target.Open(), Before);
    const auto seam = std::make_shared<TestSeam>();
    const Platform platform = native::NativePlatform({.seam = seam});
    int failedRollbacks = 0;
    bool failed = true;
    for (std::size_t n = 1; failed; ++n) {
        const auto connection = platform.targetProvider->CreateConnection();
        connection->Open(target.Connection());
        seam->Record();
        seam->FailAt(n);
        const Raised raised = ErrorOf([&] { RunScript(*connection, "delete from C\nGO\nfrm\nGO\n"); });
        failed = seam->HasFailed();
        seam->FailAt(0);
        const auto& calls = seam->Calls();
        const auto refused = [&](native::sql::CallKind kind) { return failed && calls[n - 1].kind == kind; };
        const bool inRollback = refused(native::sql::CallKind::Rollback);
        const bool begun = !refused(native::sql::CallKind::Begin) &&
                           std::ranges::count(calls, native::sql::CallKind::Begin, &TestSeam::Call::kind) > 0;
        failedRollbacks += inRollback ? 1 : 0;
        EXPECT_EQ(raised.description.find("The database is as it was.") != std::string::npos,
                  begun && !inRollback)
            << raised.description;
        EXPECT_EQ(raised.description.find("could not be rolled back") != std::string::npos, inRollback);
    }
    EXPECT_EQ(failedRollbacks, 1);
}

TEST(ApplyFaults, ATableThatIsThereAlreadyIsToldInALineWithTheWayOut) {
    const TargetDatabase target;
    RunScript(*target.Open(), Before);
    std::string columns = "AID int";
    for (int i = 0; i < 200; ++i)
        columns += ",\n\tColumn" + std::to_string(i) + " varchar(20)";
    const Raised raised =
        ErrorOf([&] { RunScript(*target.Open(), "CREATE TABLE dbo.A (" + columns + ")\nGO\n"); });
    EXPECT_EQ(raised, ado::DbETableExists);
    EXPECT_LT(raised.description.size(), 400U);
    EXPECT_THAT(raised.description, testing::StartsWith("script, line 1: Table A already exists"));
    EXPECT_THAT(raised.description, testing::HasSubstr("Run the drop scripts first"));
}

}  // namespace
}  // namespace korvex::tests
