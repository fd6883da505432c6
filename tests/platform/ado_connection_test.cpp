#include "automation/convert.h"
#include "automation/dispatch.h"
#include "automation/text.h"
#include "platform/ado_fixture.h"

#include <gmock/gmock.h>

#include <fstream>

namespace korvex::tests {
namespace {

using automation::Variant;
using testing::HasSubstr;

class AdoConnection : public AdoTest {};
INSTANTIATE_TEST_SUITE_P(Drivers, AdoConnection, AllDrivers(), DriverName);

TEST_P(AdoConnection, OpensOnceAndClosesItsRecordsets) {
    const auto connection = m_platform.targetProvider->CreateConnection();
    EXPECT_EQ(connection->State(), ado::adStateClosed);
    EXPECT_EQ(ErrorOf([&] { connection->Close(); }), ado::adErrObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection->Execute("select 1"); }), ado::adErrObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection->BeginTrans(); }), ado::adErrObjectClosed);
    EXPECT_EQ(ErrorOf([&] { Open(connection, "select 1"); }), ado::adErrObjectClosed);
    connection->Open(ConnectionString());
    EXPECT_EQ(connection->State(), ado::adStateOpen);
    EXPECT_EQ(ErrorOf([&] { connection->Open(ConnectionString()); }), ado::adErrObjectOpen);

    const auto recordset = Open(connection, "select 1 as One");
    EXPECT_EQ(automation::ToLong(recordset->Fields("One")->Value()), 1);
    const auto field = recordset->Fields("One");
    connection->Close();
    EXPECT_EQ(recordset->State(), ado::adStateClosed);
    EXPECT_EQ(ErrorOf([&] { field->Value(); }), ado::adErrObjectClosed);
    EXPECT_EQ(m_seam->OpenStatements(), 0);
    connection->Open(ConnectionString());
    EXPECT_EQ(Number(connection, "select 2"), 2);
}

TEST_P(AdoConnection, LivesAsLongAsItsRecordsets) {
    auto connection = Connect();
    const auto recordset = Open(connection, "select 1 as One");
    connection.reset();
    EXPECT_EQ(automation::ToLong(recordset->Fields("One")->Value()), 1);
}

TEST_P(AdoConnection, ExecuteRunsActionsAtOnce) {
    const auto connection = Connect();
    EXPECT_EQ(connection->Execute("create table t (n int)")->State(), ado::adStateClosed);
    std::int32_t affected = -1;
    connection->Execute("insert into t values (1)", ado::adUnspecified, &affected);
    EXPECT_EQ(affected, 1);
    connection->Execute("insert into t select n + 1 from t");
    EXPECT_EQ(connection->Execute("update t set n = n + 10", ado::adUnspecified, &affected)->State(),
              ado::adStateClosed);
    EXPECT_EQ(affected, 2);
    EXPECT_EQ(Number(connection, "select sum(n) from t"), 23);
    connection->Execute("delete from t where n=99", ado::adUnspecified, &affected);
    EXPECT_EQ(affected, 0);
    const auto error = ErrorOf([&] { connection->Execute("delete from Nowhere where n=1"); });
    EXPECT_EQ(error, ado::DbENoTable);
    EXPECT_THAT(error.description, HasSubstr("Nowhere"));
    EXPECT_EQ(ErrorOf([&] { connection->Execute("delete from t; delete from t"); }), ado::DbEStatement);
    EXPECT_EQ(Number(connection, "select count(*) from t"), 2);
}

TEST_P(AdoConnection, TransactionsHoldTogetherAndDoNotNest) {
    auto connection = Connect();
    Run(connection, "create table t (n int)");
    EXPECT_EQ(ErrorOf([&] { connection->CommitTrans(); }), ado::XactENoTransaction);
    EXPECT_EQ(ErrorOf([&] { connection->RollbackTrans(); }), ado::XactENoTransaction);
    EXPECT_EQ(connection->BeginTrans(), 1);
    EXPECT_EQ(ErrorOf([&] { connection->BeginTrans(); }), ado::XactEExists);
    connection->Execute("insert into t values (1)");
    connection->RollbackTrans();
    EXPECT_EQ(Number(connection, "select count(*) from t"), 0);
    connection->BeginTrans();
    connection->Execute("insert into t values (1)");
    EXPECT_EQ(ErrorOf([&] { connection->Close(); }), ado::adErrInTransaction);
    connection->CommitTrans();
    connection->BeginTrans();
    connection->Execute("insert into t values (2)");
    connection.reset();  // rolls back
    EXPECT_EQ(Number(Connect(), "select count(*) from t"), 1);
}

TEST_P(AdoConnection, WorksByNameAlone) {
    using automation::Call;
    using automation::Get;
    const automation::ObjectRef connection = m_platform.targetProvider->CreateConnection();
    const automation::ObjectRef recordset = m_platform.targetProvider->CreateRecordset();
    Call(*connection, "open", ConnectionString());
    Call(*connection, "Execute",
         InWordsOf(GetParam(), "create table t (id integer primary key, Name varchar(9), Photo image)"));
    automation::Let(*recordset, "LockType", ado::adLockOptimistic);
    Call(*recordset, "Open", "select * from t", connection, ado::adOpenKeyset);
    Call(*recordset, "AddNew");

    const auto fields = automation::ToObject(Get(*recordset, "Fields"));
    EXPECT_EQ(Get(*fields, "Count"), Variant(3));
    std::string names;
    for (auto each = fields->NewEnum(); const auto item = each->Next();) {
        names += automation::ToString(Get(*automation::ToObject(*item), "Name")) + " ";
    }
    EXPECT_TRUE(automation::EqualsIgnoreCase(names, "id Name Photo ")) << names;

    automation::Let(*automation::ToObject(Call(*recordset, "Fields", "name")), "Value", "one");
    Variant indexAndValue[] = {"Name", "two"};
    fields->Invoke("Item", automation::InvokeKind::PropertyLet, indexAndValue);
    EXPECT_EQ(Get(*automation::ToObject(Call(*fields, "", "Name")), ""), Variant("two"));
    recordset->Invoke("", automation::InvokeKind::PropertyLet, indexAndValue);
    Call(*automation::ToObject(Call(*fields, "Item", 2)), "AppendChunk", automation::Bytes{1, 2});
    Call(*recordset, "Update");
    EXPECT_EQ(Get(*automation::ToObject(Call(*recordset, "", "id")), "Value"), Variant(1));
    EXPECT_EQ(Get(*recordset, "EOF"), Variant(false));
    Call(*recordset, "Close");

    Variant execute[] = {"update t set Name = 'x'", Variant()};
    connection->Invoke("Execute", automation::InvokeKind::Method, execute);
    EXPECT_EQ(execute[1], Variant(1));
    EXPECT_EQ(Call(*connection, "BeginTrans"), Variant(1));
    Call(*connection, "RollbackTrans");
    Call(*connection, "Close");
    EXPECT_EQ(Get(*connection, "State"), Variant(0));
    EXPECT_EQ(ErrorOf([&] { Call(*recordset, "Open", "select 1", "no connection"); }),
              ado::adErrInvalidArgument);
    EXPECT_EQ(ErrorOf([&] { automation::Let(*connection, "State", 1); }), automation::PropertyIsReadOnly);
}

/// What only the embedded engine has to say for itself.
class AdoEmbedded : public AdoTest {
  protected:
    std::string Setting(const std::string& options, const std::string& pragma) {
        const auto connection = Connect("Provider=SQLite;Data Source=" + File() + options);
        return automation::ToString(Scalar(connection, "pragma " + pragma));
    }
};
INSTANTIATE_TEST_SUITE_P(Drivers, AdoEmbedded, testing::Values(Driver::Sqlite), DriverName);

TEST_P(AdoEmbedded, IsDurableUnlessToldOtherwise) {
    EXPECT_EQ(Setting(";Mode=Create", "journal_mode"), "wal");
    EXPECT_EQ(Setting("", "synchronous"), "2");
    EXPECT_EQ(Setting(";Synchronous=Normal", "synchronous"), "1");
    EXPECT_EQ(Setting("", "journal_mode = delete"), "delete");
    EXPECT_EQ(Setting(";Mode=Create", "journal_mode"), "delete");  // an existing file keeps what it has
}

TEST_P(AdoEmbedded, KeepsADatabaseInMemoryForItsConnection) {
    const auto connection = Connect("Provider=SQLite;Data Source=:memory:");
    Run(connection, "create table t (n int)");
    EXPECT_EQ(Number(connection, "select count(*) from t"), 0);
    EXPECT_FALSE(std::filesystem::exists(":memory:"));
}

TEST_P(AdoEmbedded, NamesTheFileThatDoesNotOpen) {
    std::ofstream(File("text.db"))
        << "This is no database, but it is long enough to be taken for one at first.";
    const struct {
        std::string options;
        std::string file;
        std::vector<std::string> says;
    } cases[] = {
        {"", "missing.db", {"missing.db", "Mode=Create"}},
        {";Mode=Read", "missing.db", {"missing.db"}},
        {"", "text.db", {"text.db"}},
        {"", ".", {}},
        {";Mode=Create", "no/such/folder.db", {"no/such/folder.db"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file + c.options);
        const auto error =
            ErrorOf([&] { Connect("Provider=SQLite;Data Source=" + File(c.file) + c.options); });
        EXPECT_EQ(error, ado::DbEFail);
        for (const std::string& part : c.says) {
            EXPECT_THAT(error.description, HasSubstr(part));
        }
    }
    EXPECT_FALSE(std::filesystem::exists(File("missing.db")));
}

TEST_P(AdoEmbedded, WritesNothingWhenOpenedToRead) {
    Connect()->Execute("create table t (n int)");
    const auto connection = Connect("Provider=SQLite;Mode=Read;Data Source=" + File());
    EXPECT_EQ(ErrorOf([&] { connection->Execute("insert into t values (1)"); }), ado::DbEPermissionDenied);
    const auto recordset = Open(connection, "select * from t");
    recordset->AddNew();
    recordset->Fields("n")->Value(1);
    EXPECT_EQ(ErrorOf([&] { recordset->Update(); }), ado::DbEPermissionDenied);
    recordset->CancelUpdate();
    EXPECT_TRUE(recordset->Eof());
}

TEST(AdoOdbc, SaysWhatTheDriverManagerSays) {
    const auto connection = native::NativePlatform().targetProvider->CreateConnection();
    for (const char* text : {"DSN=NoSuchSource", "Driver={NoSuchDriver};Database=x"}) {
        SCOPED_TRACE(text);
        const auto error = ErrorOf([&] { connection->Open(text); });
        EXPECT_EQ(error, ado::DbEFail);
        EXPECT_FALSE(error.description.empty());
        EXPECT_EQ(connection->State(), ado::adStateClosed);
    }
}

}  // namespace
}  // namespace korvex::tests
