#include "automation/outcome.h"
#include "platform/native/native_platform.h"
#include "support/definition_repository.h"
#include "support/recording_parts.h"
#include "support/temp_folder.h"
#include "support/test_seam.h"
#include "surface/cls_create_db.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace korvex::surface {
namespace {

using automation::OutcomeOf;
using automation::Variant;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Lines = std::vector<std::string>;

/// Runs on a real repository whose desktop and files are noted.
class ScriptRunTest : public testing::Test {
  protected:
    ScriptRunTest() {
        platform.desktop = desktop;
        platform.files = files;
        scripts = std::make_shared<clsCreateDb>(platform);
        scripts->ScriptFilePath("/out");
        repository = std::make_unique<tests::DefinitionRepository>(platform, path);
        repository->Definition("Orders", 1)
            .Definition("Stock", 3)
            .Object(1, "Customer")
            .Object(2, "Order")
            .Object(3, "Item")
            .Value(1, "Name", 8, "40")
            .Child(1, "Orders", 2)
            .Value(2, "Amount", 6);
    }

    static Lines FilesOf(const std::vector<std::string>& names) {
        Lines lines;
        for (const std::string& name : names) {
            lines.push_back("write /out/" + name);
            lines.push_back("edit /out/" + name);
        }
        return lines;
    }

    tests::TempFolder folder;
    std::string path = folder.Path("definitions.db");
    tests::Journal journal = std::make_shared<Lines>();
    std::shared_ptr<tests::RecordingDesktop> desktop = std::make_shared<tests::RecordingDesktop>(journal);
    std::shared_ptr<tests::RecordingFiles> files = std::make_shared<tests::RecordingFiles>(journal);
    std::shared_ptr<tests::TestSeam> seam = std::make_shared<tests::TestSeam>();
    Platform platform = native::NativePlatform({.seam = seam});
    std::shared_ptr<clsCreateDb> scripts;
    std::unique_ptr<tests::DefinitionRepository> repository;
};

TEST_F(ScriptRunTest, AFreshObjectHasTheLibrarysFolderAndNothingElse) {
    clsCreateDb fresh(platform);
    EXPECT_EQ(fresh.ScriptFilePath(), "/library");
    EXPECT_EQ(fresh.FKPrefix(), "");
    EXPECT_EQ(fresh.DbSQL() + fresh.FkConstraintSQL(), "");
    EXPECT_TRUE(fresh.ConnectDB("DSN=Orders").IsEmpty());
    EXPECT_THAT(*journal, IsEmpty());
}

TEST_F(ScriptRunTest, EachDialectWritesAndShowsItsFilesInOrder) {
    const Lines sqlServer = {"MSCreate.sql", "MSDel.sql", "MSSProc.sql", "MSFKCr.sql", "MSFKdel.sql"};
    const Lines oracle = {"OraCreate.sql", "OraDel.sql", "OraSProc.sql", "OraFKCr.sql", "OraFKDel.sql"};
    const Lines sybase = {"SyCreate.sql", "SyDel.sql", "SySProc.sql", "SyFKCr.sql", "SyFKdel.sql"};
    scripts->DoScript("90", path, "Orders");
    EXPECT_EQ(*journal, FilesOf(sqlServer));
    EXPECT_EQ(files->texts["/out/MSCreate.sql"], scripts->DbSQL() + "\r\n");
    EXPECT_EQ(files->texts["/out/MSDel.sql"], scripts->DropSQL() + "\r\n");
    EXPECT_EQ(files->texts["/out/MSSProc.sql"], scripts->StoredProcSQL() + "\r\n");
    EXPECT_EQ(files->texts["/out/MSFKCr.sql"], scripts->FkConstraintSQL() + "\r\n");
    EXPECT_EQ(files->texts["/out/MSFKdel.sql"], scripts->DropFkConstraintSQL() + "\r\n");
    EXPECT_THAT(scripts->DbSQL(), HasSubstr("CREATE TABLE dbo.tOrder"));
    EXPECT_THAT(scripts->DbSQL(), HasSubstr("FK_CustomerID int default 0"));

    journal->clear();
    scripts->DoScript("92", path, "Orders");
    EXPECT_EQ(*journal, FilesOf(oracle));
    journal->clear();
    scripts->DoScript("94", path, "Orders");
    EXPECT_EQ(*journal, FilesOf(sybase));
}

TEST_F(ScriptRunTest, ThePrefixIsTheCallsOwnOrTheUsualOne) {
    scripts->DoMSsqlDb(path, "Orders", "Parent");
    EXPECT_EQ(scripts->FKPrefix(), "Parent");
    EXPECT_THAT(scripts->DbSQL(), HasSubstr("ParentCustomerID int"));
    scripts->DoMSsqlDb(path, "Orders");
    EXPECT_EQ(scripts->FKPrefix(), "FK_");
    scripts->DoMSsqlDb(path, "Orders", "");
    EXPECT_EQ(scripts->FKPrefix(), "");
}

TEST_F(ScriptRunTest, OnlyTheCreateForeignKeyTextGrowsFromRunToRun) {
    scripts->DoOracleDb(path, "Orders");
    const std::string oracleKeys = scripts->FkConstraintSQL();
    ASSERT_NE(oracleKeys, "");
    scripts->DoMSsqlDb(path, "Orders");
    EXPECT_EQ(scripts->FkConstraintSQL().find(oracleKeys), 0u);
    EXPECT_GT(scripts->FkConstraintSQL().size(), oracleKeys.size());
    EXPECT_EQ(scripts->DbSQL().find("CREATE TABLE dbo.tCustomer"), 0u);
}

TEST_F(ScriptRunTest, OracleWarnsOfTablesWithTwoLongColumns) {
    repository->Value(3, "Text", 8, "5000").Value(3, "More", 8, "5000");
    scripts->DoMSsqlDb(path, "Stock");
    EXPECT_EQ(journal->size(), 10u);
    journal->clear();
    scripts->DoOracleDb(path, "Stock");
    EXPECT_EQ(journal->front(),
              "message 48 <Script Creation Warning> <The scripts were created with the following warning!\r\n"
              "Some of the tables contain more than one \r\n"
              "LONG or LONG RAW fields.  You will not be able\r\n"
              "to create tables using the scripts.>");
    EXPECT_EQ(journal->size(), 11u);
    journal->clear();
    scripts->DoOracleDb(path, "Orders");
    EXPECT_EQ(journal->size(), 10u) << "the warning of the run before was not forgotten";
}

TEST_F(ScriptRunTest, OnlyAFailureOfTheFirstFileIsRaised) {
    for (const char* name : {"MSDel.sql", "MSSProc.sql", "MSFKCr.sql", "MSFKdel.sql"}) {
        files->failing.insert("/out/" + std::string(name));
        desktop->failing.insert("/out/" + std::string(name));
    }
    desktop->failing.insert("/out/MSCreate.sql");
    scripts->DoMSsqlDb(path, "Orders");
    EXPECT_EQ(*journal, FilesOf({"MSCreate.sql", "MSDel.sql", "MSSProc.sql", "MSFKCr.sql", "MSFKdel.sql"}));
    EXPECT_EQ(files->texts.size(), 1u);

    journal->clear();
    files->failing.insert("/out/MSCreate.sql");
    EXPECT_EQ(OutcomeOf([&] { scripts->DoMSsqlDb(path, "Orders"); }), "error 61");
    EXPECT_EQ(*journal, Lines{"write /out/MSCreate.sql"});
}

TEST_F(ScriptRunTest, ARunThatFailsWritesNoFileAndTheNextOneWorks) {
    EXPECT_EQ(OutcomeOf([&] { scripts->DoMSsqlDb(folder.Path("missing.db"), "Orders"); }), "error 3024");
    EXPECT_EQ(scripts->FKPrefix(), "") << "the run went on after the open failed";

    repository->Child(2, "Customer", 1);
    EXPECT_EQ(OutcomeOf([&] { scripts->DoMSsqlDb(path, "Orders"); }), "error 28");
    EXPECT_EQ(OutcomeOf([&] { scripts->DoMSsqlDb(path, "it's"); }), "error 5");
    EXPECT_EQ(OutcomeOf([&] { scripts->DoMSsqlDb(path, "Stock", Variant::Null()); }), "error 94");
    EXPECT_THAT(*journal, IsEmpty());

    scripts->DoMSsqlDb(path, "Stock");
    EXPECT_EQ(journal->size(), 10u);
    EXPECT_THAT(scripts->DbSQL(), HasSubstr("CREATE TABLE dbo.tItem"));
}

/// Every engine call of a run fails once, on one and the same object.
TEST_F(ScriptRunTest, AFailureAtAnyCallIsRaisedOrShownAndTheObjectWorksOn) {
    scripts->DoMSsqlDb(path, "Stock");
    const std::string whole = scripts->DbSQL();
    int raised = 0;
    bool failed = true;
    for (std::size_t refused = 1; failed; ++refused) {
        ASSERT_LT(refused, 1000u);
        SCOPED_TRACE("call " + std::to_string(refused));
        journal->clear();
        seam->FailAt(refused, native::sql::ErrorKind::DiskFull);
        const std::string outcome = OutcomeOf([&] { scripts->DoMSsqlDb(path, "Stock"); });
        failed = seam->HasFailed();
        seam->FailAt(0);
        EXPECT_EQ(seam->OpenStatements(), 0);
        if (outcome != "done") {
            ++raised;
            EXPECT_THAT(*journal, Each(Not(HasSubstr("write"))));
        } else if (journal->size() == 10) {  // the files alone, no message: a call that nothing depended on
            EXPECT_EQ(scripts->DbSQL(), whole);
        }
        scripts->DoMSsqlDb(path, "Stock");
        EXPECT_EQ(scripts->DbSQL(), whole);
    }
    EXPECT_GT(raised, 10);
}

TEST_F(ScriptRunTest, AStorageNameWithoutDefinitionGivesEmptyFiles) {
    scripts->DoSybaseDb(path, "Nobody");
    EXPECT_EQ(files->texts["/out/SyCreate.sql"], "\r\n");
    EXPECT_EQ(files->texts.size(), 5u);
}

TEST_F(ScriptRunTest, ShutDownWithoutARepositoryFailsBeforeTheFiles) {
    EXPECT_EQ(OutcomeOf([&] { scripts->ShowLog(); }), "error 76") << "there are no files yet";
    scripts->DoMSsqlDb(path, "Orders");
    journal->clear();
    EXPECT_EQ(OutcomeOf([&] { scripts->ShutDown(); }), "error 91");
    EXPECT_THAT(*journal, IsEmpty());
    scripts->ShowLog();
    EXPECT_EQ(journal->size(), 10u);
}

TEST_F(ScriptRunTest, RelationshipsAreBroughtUpToDateOnTheirOwn) {
    scripts->OpenRepository(path);
    scripts->CreateRelationship("Orders");
    scripts->CloseRepository();
    scripts->CloseRepository();
    EXPECT_THAT(*journal, IsEmpty());
    EXPECT_THAT(
        tests::ReadRows(platform, path, "select TableName from tObjects order by ObjectID", {"TableName"}),
        ElementsAre("tCustomer", "tOrder", "-"));

    scripts->CreateRelationship("Orders");
    EXPECT_THAT(*journal, ElementsAre("message 0 <> <Object variable or With block variable not set>"));
}

/// A modal box lets the host's calls in; the run that shows it goes on as if there had been none.
TEST_F(ScriptRunTest, CallsFromAMessageBoxAreRefused) {
    struct CallingDesktop : tests::RecordingDesktop {
        using RecordingDesktop::RecordingDesktop;
        void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override {
            RecordingDesktop::ShowMessage(text, style, title);
            for (const auto& call : calls)
                outcomes.push_back(OutcomeOf(call));
        }
        std::vector<std::function<void()>> calls;
        Lines outcomes;
    };
    repository->Database().Execute("drop table tForeignKeys");
    scripts->DoMSsqlDb(path, "Orders");  // a key that was just made is looked for in another way
    journal->clear();
    scripts->DoMSsqlDb(path, "Orders");
    const Lines alone = *journal;
    const std::string text = scripts->DbSQL();
    const auto boxes =
        std::ranges::count_if(alone, [](const std::string& line) { return line.starts_with("message"); });
    ASSERT_GT(boxes, 0);

    const auto calling = std::make_shared<CallingDesktop>(journal);
    platform.desktop = calling;
    scripts = std::make_shared<clsCreateDb>(platform);
    scripts->ScriptFilePath("/out");
    calling->calls = {[&] { scripts->OpenRepository(path); },
                      [&] { scripts->CloseRepository(); },
                      [&] { scripts->ShutDown(); },
                      [&] { scripts->CreateRelationship("Stock"); },
                      [&] { scripts->DoScript("90", path, "Stock"); },
                      [&] { scripts->DoEngineDb("sqlite", path, "Stock"); },
                      [&] { scripts->DoOracleDb(path, "Stock"); },
                      [&] { scripts->DoSybaseDb(path, "Stock"); }};
    const std::size_t refused = calling->calls.size();
    calling->calls.push_back([&] { scripts->FKPrefix(std::string(100, 'x')); });
    journal->clear();
    scripts->DoMSsqlDb(path, "Orders");
    EXPECT_EQ(*journal, alone);
    EXPECT_EQ(scripts->DbSQL(), text);
    EXPECT_EQ(calling->outcomes.size(), static_cast<std::size_t>(boxes) * (refused + 1));
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(calling->outcomes, "error 5")),
              static_cast<std::size_t>(boxes) * refused);
    calling->calls.clear();
    scripts->ShowLog();
}

/// A host that wraps the class sees the calls between its members, and its own answers count.
TEST_F(ScriptRunTest, InnerCallsGoThroughThePublicMembers) {
    class Wrapped : public clsCreateDb {
      public:
        using clsCreateDb::clsCreateDb;
        using clsCreateDb::ScriptFilePath;
        std::string ScriptFilePath() override { return "/elsewhere/"; }
        void CreateRelationship(const std::string& storageName, const Variant& sFKPrefix) override {
            calls.push_back("CreateRelationship");
            clsCreateDb::CreateRelationship(storageName, sFKPrefix);
        }
        void ShutDown() override {
            calls.push_back("ShutDown");
            clsCreateDb::ShutDown();
        }
        void ShowLog() override {
            calls.push_back("ShowLog");
            clsCreateDb::ShowLog();
        }
        const std::string& DropSQL() override { return drop; }
        Lines calls;
        std::string drop = "-- nothing is dropped";
    };
    Wrapped wrapped(platform);
    wrapped.DoMSsqlDb(path, "Orders");
    EXPECT_THAT(wrapped.calls, ElementsAre("CreateRelationship", "ShutDown", "ShowLog"));
    EXPECT_EQ(files->texts["/elsewhere/MSDel.sql"], "-- nothing is dropped\r\n");
}

}  // namespace
}  // namespace korvex::surface
