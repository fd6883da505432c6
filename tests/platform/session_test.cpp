// The SQL layer itself: statements, cursors and what they do to each other, on the embedded engine.

#include "automation/convert.h"
#include "platform/native/sql/cursor.h"
#include "platform/native/sql/sqlite/sqlite_session.h"
#include "support/print_variant.h"
#include "support/temp_folder.h"
#include "support/test_seam.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace korvex::native::sql {
namespace {

using automation::Variant;
using tests::TestSeam;

class SessionTest : public testing::Test {
  protected:
    SessionTest() : m_session(std::make_unique<SqliteSession>(m_file, Options())) {
        m_session->Execute("create table t (ID integer primary key, N text, V int)");
        for (int i = 1; i <= 4; ++i) {
            m_session->Execute("insert into t (N, V) values ('n" + std::to_string(i) + "', " +
                               std::to_string(i) + ")");
        }
    }
    void TearDown() override {
        m_session.reset();
        EXPECT_EQ(m_seam->OpenStatements(), 0);
    }

    SqliteOptions Options() const {
        SqliteOptions options;
        options.mode = SqliteMode::Create;
        options.seam = m_seam;
        return options;
    }

    static std::string Rest(Cursor& cursor, std::size_t column = 0) {
        std::string text;
        for (; !cursor.Eof(); cursor.MoveNext())
            text += automation::ToString(cursor.Value(column)) + " ";
        return text;
    }
    std::string All(std::string_view sql) {
        Cursor cursor(*m_session, sql);
        return Rest(cursor);
    }
    std::size_t Prepared() const {
        return static_cast<std::size_t>(
            std::ranges::count(m_seam->Calls(), CallKind::Prepare, &TestSeam::Call::kind));
    }

    tests::TempFolder m_folder;
    std::string m_file = m_folder.Path("t.db");
    std::shared_ptr<TestSeam> m_seam = std::make_shared<TestSeam>();
    std::unique_ptr<SqliteSession> m_session;
};

ErrorKind KindOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const EngineError& error) {
        return error.Kind();
    }
    ADD_FAILURE() << "no error";
    return ErrorKind::Other;
}

TEST_F(SessionTest, TheSameTextIsPreparedOnceForEachUseAtATime) {
    m_seam->Record();
    for (int i = 1; i <= 4; ++i) {
        EXPECT_EQ(All("select N from t where ID = " + std::to_string(i)), "n" + std::to_string(i) + " ");
    }
    EXPECT_EQ(Prepared(), 1U);
    Cursor outer(*m_session, "select N from t where ID > 2");
    EXPECT_FALSE(outer.Eof());
    EXPECT_EQ(All("select N from t where ID > 3"), "n4 ");
    EXPECT_EQ(Rest(outer), "n3 n4 ");
    EXPECT_EQ(Prepared(), 3U);
    EXPECT_EQ(m_seam->OpenStatements(), 0);
    EXPECT_EQ(All("select N from t where ID > 1"), "n2 n3 n4 ");
    EXPECT_EQ(Prepared(), 3U);
}

TEST_F(SessionTest, ComparedTextsAreBoundAndKeptWithTheirStatement) {
    m_seam->Record();
    std::vector<StatementLease> leases;
    for (const char* name : {"n1", "N2", "N_"}) {
        leases.push_back(m_session->Prepare("select ID from t where N like '" + std::string(name) + "'"));
    }
    const auto rows = [](StatementLease& lease) {
        std::string ids;
        lease.Execute({});
        while (lease.Fetch({}))
            ids += automation::ToString(lease->Value(0));
        return ids;
    };
    EXPECT_EQ(rows(leases[0]) + " " + rows(leases[1]) + " " + rows(leases[2]), "1 2 1234");
    leases.clear();
    EXPECT_EQ(All("select ID from t where N like 'n4' and V = 4"), "4 ");
    EXPECT_EQ(All("select ID from t where N like 'N3' and V = 3"), "3 ");
    EXPECT_EQ(Prepared(), 4U);
}

TEST_F(SessionTest, TheCacheIsBoundedAndForgetsWhatWasUsedLongestAgo) {
    const auto text = [](int i) {
        return "select N from t where ID = 1 and N not in ('x" + std::to_string(i) + "')";
    };
    for (int i = 0; i < 1000; ++i)
        All(text(i));
    m_seam->Record();
    for (int i = 999; i >= 744; --i)
        All(text(i));
    EXPECT_EQ(Prepared(), 0U);
    All(text(743));
    EXPECT_EQ(Prepared(), 1U);
}

TEST_F(SessionTest, AWholeTableThatIsAddedToWaitsForALookAtARow) {
    for (const char* text : {"select * from t", "SELECT\n*FROM [t] ", "select * from main.t"}) {
        m_seam->Record();
        Cursor cursor(*m_session, text);
        EXPECT_EQ(cursor.Shape().columns.size(), 3U);
        EXPECT_TRUE(m_seam->Executed().empty()) << text;
        EXPECT_FALSE(cursor.Eof());
        EXPECT_EQ(m_seam->Executed(), std::vector<std::string>{text});
    }
    Cursor action(*m_session, "delete from t where ID = 4");
    EXPECT_FALSE(action.HasColumns());
    EXPECT_EQ(action.AffectedRows(), 1);
    EXPECT_TRUE(action.Eof());
}

TEST_F(SessionTest, OthersStandOnTheirFirstRowAndASingleOneHoldsNothing) {
    m_session->Execute(
        "create view bad as select ID, abs(case ID when 3 then -9223372036854775808 else ID "
        "end) as A from t");
    EXPECT_EQ(KindOf([&] { Cursor(*m_session, "select * from bad where ID > 2"); }), ErrorKind::Other);
    EXPECT_EQ(KindOf([&] { Cursor(*m_session, "select A from bad order by A"); }), ErrorKind::Other);
    m_session->Execute("delete from t where ID = 1");
    const struct {
        const char* text;
        bool addsRows;
        int open;
    } cases[] = {{"select * from t where ID = 2", true, 0}, {"select * from t where ID > 9", true, 0},
                 {"select * from t where ID > 2", true, 1}, {"select * from t", false, 1},
                 {"select * from t order by N", true, 1},   {"select * from t as u", true, 1}};
    for (const auto& each : cases) {
        m_seam->Record();
        const Cursor cursor(*m_session, each.text, each.addsRows);
        EXPECT_EQ(m_seam->Executed(), std::vector<std::string>{each.text});
        EXPECT_EQ(m_seam->OpenStatements(), each.open) << each.text;
    }
    // What fails behind the first row fails there.
    Cursor late(*m_session, "select * from bad where ID > 1");
    EXPECT_EQ(late.Value(1), Variant(2));
    EXPECT_EQ(KindOf([&] { late.MoveNext(); }), ErrorKind::Other);
    EXPECT_EQ(KindOf([&] { late.Eof(); }), ErrorKind::Other);
    Cursor last(*m_session, "select * from bad where ID > 1");
    EXPECT_EQ(KindOf([&] { last.MoveLast(); }), ErrorKind::Other);
}

TEST_F(SessionTest, HalfReadRowsOutliveEveryWriteAndTheEndOfATransaction) {
    const std::vector<std::function<void()>> writes = {
        [&] { m_session->Execute("delete from t where ID > 0"); },
        [&] { m_session->Execute("insert into t (N) values ('new')"); },
        [&] { m_session->Execute("update t set N = 'x' where ID > 0"); },
        [&] { m_session->Execute("drop table t"); },
        [&] {
            Cursor adding(*m_session, "select * from t");
            adding.AddNew();
            adding.Set(1, "new");
            adding.Update();
        },
    };
    for (const auto& write : writes) {
        m_session->Begin();
        Cursor first(*m_session, "select N from t");
        Cursor second(*m_session, "select N from t where ID <> 2");
        Cursor untouched(*m_session, "select N from t where ID < 3");
        EXPECT_FALSE(first.Eof());
        second.MoveNext();
        write();
        EXPECT_EQ(automation::ToString(first.Value(0)), "n1");
        m_session->Rollback();
        EXPECT_EQ(Rest(first), "n1 n2 n3 n4 ");
        EXPECT_EQ(Rest(second), "n3 n4 ");
        EXPECT_EQ(Rest(untouched), "n1 n2 ");
    }
}

TEST_F(SessionTest, ACursorThatCouldNotTakeItsRowsSaysSoWhenItIsRead) {
    Cursor cursor(*m_session, "select N from t");
    EXPECT_FALSE(cursor.Eof());
    m_seam->FailAt(2);  // the write is prepared first, then come the rows from the third on
    m_session->Execute("delete from t where ID = 1");
    EXPECT_TRUE(m_seam->HasFailed());
    cursor.MoveNext();
    EXPECT_EQ(cursor.Value(0), Variant("n2"));
    EXPECT_EQ(KindOf([&] { cursor.MoveNext(); }), ErrorKind::Other);
    EXPECT_EQ(KindOf([&] { cursor.Eof(); }), ErrorKind::Other);
    EXPECT_EQ(All("select N from t"), "n2 n3 n4 ");
}

TEST_F(SessionTest, AddedRowsStandBehindTheOthersOnceEach) {
    Cursor cursor(*m_session, "select * from t");
    for (const char* name : {"a", "b"}) {
        cursor.AddNew();
        cursor.Set(1, name);
        cursor.Update();
    }
    // Behind the key 5 and 6 that they got, another row comes in from elsewhere.
    m_session->Execute("insert into t (ID, N) values (10, 'c')");
    EXPECT_EQ(Rest(cursor, 1), "n1 n2 n3 n4 c a b ");
    cursor.MoveLast();
    EXPECT_EQ(cursor.Value(0), Variant(6));
}

TEST_F(SessionTest, RowsWithoutAKeyAreEditedWhenOnlyOneIsMeant) {
    m_session->Execute("create table k (A int, B text)");
    for (const char* values : {"(1, 'x')", "(1, null)", "(2, 'y')", "(2, 'y')"}) {
        m_session->Execute("insert into k values " + std::string(values));
    }
    Cursor cursor(*m_session, "select * from k");
    const auto edit = [&] {
        cursor.Edit();
        cursor.Set(0, 9);
        cursor.Update();
        cursor.MoveNext();
    };
    edit();
    edit();
    EXPECT_EQ(KindOf(edit), ErrorKind::RecordChanged);
    cursor.AddNew();
    cursor.Set(0, 3);
    cursor.Update();
    cursor.MoveLast();
    EXPECT_TRUE(cursor.Value(1).IsNull());
    cursor.Edit();
    cursor.Set(1, "z");
    cursor.Update();
    EXPECT_EQ(All("select A || coalesce(B, '-') from k"), "9x 9- 2y 2y 3z ");
}

TEST_F(SessionTest, TablesThatChangeAreSeenAnew) {
    const std::string text = "select * from t where ID = 1";
    EXPECT_EQ(All(text), "1 ");
    m_session->Execute("alter table t add column W int default 5");
    {
        Cursor cursor(*m_session, text);
        EXPECT_EQ(cursor.Value(3), Variant(5));
    }
    // The same from another connection, of which this one is told by the engine alone.
    SqliteSession(m_file, Options()).Execute("alter table t add column X int default 6");
    EXPECT_EQ(All(text), "1 ");
    EXPECT_EQ(Cursor(*m_session, text).Shape().columns.size(), 5U);
    SqliteSession(m_file, Options()).Execute("alter table t add column Y int default 7");
    Cursor late(*m_session, "select * from t");
    EXPECT_EQ(late.Shape().columns.size(), 5U);
    EXPECT_EQ(KindOf([&] { late.Eof(); }), ErrorKind::Other);
}

/// Whether a process of its own finds the file locked.
bool IsLockedForOthers(const std::string& path) {
    const pid_t other = ::fork();
    if (other == 0) {
        struct flock whole {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        const int file = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
        ::_exit(::fcntl(file, F_GETLK, &whole) == 0 && whole.l_type != F_UNLCK ? 1 : 0);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(other, &status, 0), other);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

/// Without its lock on the file, another process that leaves takes the log away from under a connection.
TEST_F(SessionTest, AnotherConnectionOfTheProcessCostsNoLock) {
    ASSERT_TRUE(IsLockedForOthers(m_file));
    { const SqliteSession other(m_file, Options()); }
    EXPECT_TRUE(IsLockedForOthers(m_file));
}

TEST_F(SessionTest, AnotherConnectionsLockIsReportedAndPasses) {
    SqliteOptions impatient = Options();
    impatient.busyTimeoutMilliseconds = 1;
    SqliteSession other(m_file, impatient);
    m_session->Begin();
    EXPECT_EQ(KindOf([&] { other.Execute("delete from t"); }), ErrorKind::Locked);
    EXPECT_EQ(KindOf([&] { other.Begin(); }), ErrorKind::Locked);
    m_session->Commit();
    EXPECT_EQ(other.Execute("delete from t where ID = 1"), 1);
}

}  // namespace
}  // namespace korvex::native::sql
