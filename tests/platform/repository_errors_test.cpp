#include "automation/text.h"
#include "engine_fixture.h"

#include <functional>

namespace korvex::tests {
namespace {

using automation::Variant;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

class RepositoryErrors : public EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        Run("create table tObjects (ObjectID integer primary key, Name varchar(20) not null, Guid "
            "varchar(40) unique)");
        Run("create table tChildren (ChildID integer primary key, ObjectID int not null references "
            "tObjects (ObjectID))");
        Run("insert into tObjects (Name, Guid) values ('One', 'g1')");
        Run("insert into tObjects (Name, Guid) values ('Two', 'g2')");
    }

    /// Edits or adds the given field and stores it.
    void Store(const std::string& sql, bool add, const std::string& field, const Variant& value) {
        auto dynaset = Dynaset(sql);
        if (add) {
            dynaset->AddNew();
        } else {
            dynaset->Edit();
        }
        dynaset->Fields(field).Value(value);
        dynaset->Update();
    }
};

TEST_P(RepositoryErrors, EachFailureHasItsNumberAndNamesItsCause) {
    const struct {
        std::int32_t number;
        std::string mentioned;
        std::function<void()> work;
    } cases[] = {
        {dao::TableNotFound, "tMissing", [&] { Snapshot("select * from tMissing where A = 1"); }},
        {dao::TableNotFound, "tMissing", [&] { Run("delete from tMissing"); }},
        {dao::FieldNotFoundInQuery, "Missing", [&] { Dynaset("select Missing from tObjects"); }},
        {dao::FieldNotFoundInQuery, "Missing", [&] { Snapshot("select * from tObjects where Missing=1"); }},
        {dao::FieldNotFoundInQuery, "expected 1",
         [&] { Snapshot("select * from tObjects where ObjectID = ?"); }},
        {dao::SyntaxError, "selec * from tObjects", [&] { Snapshot("selec * from tObjects"); }},
        {dao::SyntaxError, "where where",
         [&] { Snapshot("select * from tObjects where where ObjectID = 1"); }},
        {dao::SyntaxError, "", [&] { Snapshot(""); }},
        {dao::TextBehindStatement, "delete from", [&] { Snapshot("select 1; delete from tObjects"); }},
        {dao::TextBehindStatement, "drop table",
         [&] { Run("delete from tObjects where ObjectID = 9; drop table tObjects"); }},
        {dao::InvalidOperation, "delete from", [&] { Snapshot("delete from tObjects"); }},
        {dao::ItemNotFound, "Missing", [&] { Snapshot("select * from tObjects")->Fields("Missing"); }},
        {dao::DuplicateKey, "Guid",
         [&] { Store("select * from tObjects where ObjectID = 1", false, "Guid", "g2"); }},
        {dao::DuplicateKey, "the record of tObjects with ObjectID = 1",
         [&] { Store("select * from tObjects where ObjectID = 1", false, "Guid", "g2"); }},
        {dao::ConstraintViolated, "a new record of tObjects",
         [&] { Store("select * from tObjects", true, "Guid", "g3"); }},
        {dao::TableNotFound, "did you mean \"tObjects\"?", [&] { Snapshot("select * from tObject"); }},
        {dao::TableExists, "tObjects", [&] { Run("create table tObjects (A int)"); }},
        {dao::ItemNotFound, "did you mean \"Name\"?",
         [&] { Snapshot("select * from tObjects")->Fields("Nam"); }},
        {dao::DuplicateKey, "tObjects", [&] { Run("insert into tObjects values (1, 'x', 'y')"); }},
        {dao::ConstraintViolated, "Name", [&] { Store("select * from tObjects", true, "Guid", "g3"); }},
        {dao::ValueOutOfColumn, "ObjectID",
         [&] { Store("select * from tObjects", true, "ObjectID", "abc"); }},
        {dao::ValueOutOfColumn, "Guid",
         [&] { Store("select * from tObjects", true, "Guid", automation::Bytes{1}); }},
        {automation::InvalidProcedureCall, "", [&] { m_database->OpenRecordset("select 1", 99); }},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::to_string(each.number) + " " + each.mentioned);
        const Raised raised = ErrorOf(each.work);
        EXPECT_EQ(raised, each.number);
        EXPECT_TRUE(automation::ContainsIgnoreCase(raised.description, each.mentioned)) << raised.description;
        EXPECT_EQ(m_seam->OpenStatements(), 0);
    }
    EXPECT_EQ(Rows("select * from tObjects", {"Name", "Guid"}), (Texts{"One|g1", "Two|g2"}));
}

TEST_P(RepositoryErrors, AFailedUpdateMayBeMendedOrDropped) {
    auto dynaset = Dynaset("select * from tObjects");
    dynaset->AddNew();
    dynaset->Fields("Guid").Value("g1");
    dynaset->Fields("Name").Value("Three");
    EXPECT_EQ(ErrorOf([&] { dynaset->Update(); }), dao::DuplicateKey);
    dynaset->Fields("Guid").Value("g3");
    dynaset->Update();
    dynaset->MoveLast();
    Run("delete from tObjects where Guid = 'g3'");
    dynaset->Edit();
    dynaset->Fields("Name").Value("Four");
    EXPECT_EQ(ErrorOf([&] { dynaset->Update(); }), dao::RecordChanged);
    EXPECT_EQ(Rows("select * from tObjects", {"Name"}), (Texts{"One", "Two"}));
}

TEST_P(RepositoryErrors, ClosedObjectsSayThatTheyAre) {
    auto open = Snapshot("select * from tObjects");
    auto closed = Snapshot("select * from tObjects");
    dao::Field& field = open->Fields("Name");
    closed->Close();
    EXPECT_EQ(ErrorOf([&] { closed->Close(); }), dao::ObjectInvalid);
    EXPECT_EQ(ErrorOf([&] { closed->Eof(); }), dao::ObjectInvalid);
    EXPECT_EQ(ErrorOf([&] { closed->Fields("Name"); }), dao::ObjectInvalid);
    m_database->Close();
    EXPECT_EQ(ErrorOf([&] { open->MoveNext(); }), dao::ObjectInvalid);
    EXPECT_EQ(ErrorOf([&] { field.Value(); }), dao::ObjectInvalid);
    for (const std::function<void()>& work : std::vector<std::function<void()>>{
             [&] { Snapshot("select 1"); }, [&] { Run("select 1"); }, [&] { m_database->Close(); },
             [&] { m_database->BeginTrans(); }}) {
        EXPECT_EQ(ErrorOf(work), dao::ObjectInvalid);
    }
}

INSTANTIATE_TEST_SUITE_P(Drivers, RepositoryErrors, AllDrivers(), DriverName);

TEST(RepositoryFiles, WhatIsNoDatabaseSaysWhatItIs) {
    const TempFolder folder;
    const auto engine = native::NativePlatform().repositoryEngine;
    const std::string desktopFile = std::string("\0\1\0\0Standard ACE DB\0", 20) + std::string(4096, 'x');
    const struct {
        std::string path;
        std::int32_t number;
        std::string mentioned;
    } cases[] = {
        {folder.Path("missing.db"), dao::FileNotFound, "does not exist"},
        {folder.Path("no/such/folder.db"), dao::FileNotFound, "does not exist"},
        {"", dao::FileNotFound, "does not exist"},
        {folder.Path(), dao::CannotOpenFile, "directory"},
        {folder.Write("empty.db", ""), dao::UnrecognizedFormat, "empty"},
        {folder.Write("text.db", "These are words.\n"), dao::UnrecognizedFormat, "no database"},
        {folder.Write("old.mdb", desktopFile), dao::UnrecognizedFormat, "as a repository only"},
        {folder.Write("torn.db", std::string("SQLite format 3\0", 16) + "torn"), dao::UnrecognizedFormat,
         "not a database"},
        {"/dev/null", dao::UnrecognizedFormat, "no regular file"},
    };
    for (const auto& each : cases) {
        const Raised raised = ErrorOf([&] { engine->OpenDatabase(each.path); });
        EXPECT_EQ(raised, each.number) << each.path;
        EXPECT_THAT(raised.description, testing::AllOf(HasSubstr(each.mentioned), HasSubstr(each.path)));
    }
}

TEST(RepositoryFiles, NewOnesReplaceNothing) {
    const TempFolder folder;
    const auto engine = native::NativePlatform().repositoryEngine;
    const std::string path = folder.Path("new.db");
    engine->CreateDatabase(path)->Execute("create table t (a int)");
    engine->OpenDatabase(path)->OpenRecordset("select * from t", dao::dbOpenSnapshot);
    const std::string content = folder.Read("new.db");
    for (const std::string& taken : {path, folder.Path(), folder.Path("no/folder.db")}) {
        const Raised raised = ErrorOf([&] { engine->CreateDatabase(taken); });
        EXPECT_EQ(raised, automation::PathFileAccessError);
        EXPECT_THAT(raised.description, HasSubstr(taken));
    }
    EXPECT_EQ(folder.Read("new.db"), content);
}

TEST(RepositoryOdbc, AConnectionThatFailsIsNamedWithoutItsPassword) {
    const auto workspace =
        native::NativePlatform().repositoryEngine->CreateWorkspace("", "admin", "", dao::dbUseODBC);
    const Raised raised =
        ErrorOf([&] { workspace->OpenConnection("", false, "DSN=NoSuchSource;UID=me;Pwd=secret"); });
    EXPECT_EQ(raised, dao::OdbcConnectFailed);
    EXPECT_THAT(raised.description, HasSubstr("DSN=NoSuchSource"));
    EXPECT_THAT(raised.description, testing::Not(HasSubstr("secret")));
}

TEST(RepositoryOdbc, AReadOnlyConnectionOnlyReads) {
    const TempFolder folder;
    const auto engine = native::NativePlatform().repositoryEngine;
    engine->CreateDatabase(folder.Path("r.db"))->Execute("create table t (a int)");
    const auto database =
        engine->CreateWorkspace("", "admin", "", dao::dbUseODBC)
            ->OpenConnection("", true, "ODBC;DRIVER=SQLite3;Database=" + folder.Path("r.db"));
    EXPECT_TRUE(database->OpenRecordset("select * from t", dao::dbOpenDynaset)->Eof());
    EXPECT_EQ(ErrorOf([&] { database->OpenRecordset("select * from t", dao::dbOpenDynaset)->AddNew(); }),
              dao::OperationNotSupported);
    EXPECT_EQ(ErrorOf([&] { database->Execute("delete from t"); }), dao::ReadOnlyDatabase);
}

}  // namespace
}  // namespace korvex::tests
