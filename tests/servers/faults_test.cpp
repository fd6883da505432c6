#include "automation/convert.h"
#include "automation/outcome.h"
#include "hosts/cli/korvex_command.h"
#include "objects/json.h"
#include "servers/example_target.h"
#include "support/definition_repository.h"
#include "support/engine_words.h"
#include "support/error_of.h"
#include "support/recording_parts.h"
#include "support/test_seam.h"
#include "surface/cls_create_db.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <thread>
#include <unistd.h>

namespace korvex::tests {
namespace {

using objects::DataObject;

/// Calls `action` in front of one engine call.
class ActingSeam final : public native::sql::Seam {
  public:
    void BeforeCall(const native::sql::EngineCall& call) override {
        if (action && call.kind == kind && --countdown == 0) std::exchange(action, nullptr)();
    }

    native::sql::CallKind kind = native::sql::CallKind::Execute;
    int countdown = 0;
    std::function<void()> action;
};

/// What happens when a server or another client is in the way.
class ServerFaults : public testing::TestWithParam<Driver> {
  protected:
    void SetUp() override {
        platform.desktop = std::make_shared<RecordingDesktop>(messages);
        platform.files = files;
    }

    std::shared_ptr<clsCRUD> Connected(const std::string& connection) {
        auto crud = std::make_shared<clsCRUD>(platform);
        EXPECT_TRUE(crud->ConnectDB(connection));
        return crud;
    }

    Journal messages = std::make_shared<std::vector<std::string>>();
    std::shared_ptr<ActingSeam> seam = std::make_shared<ActingSeam>();
    std::shared_ptr<RecordingFiles> files = std::make_shared<RecordingFiles>(messages);
    Platform platform = native::NativePlatform({.seam = seam});
};

/// Works on a server of its own, which it stops.
class ServerStops : public ServerFaults {
  protected:
    void SetUp() override {
        ServerFaults::SetUp();
        Run("start.sh", server);
        UseServers(folder);
    }
    void TearDown() override {
        UseServers(ServersFolder());
        Run("stop.sh", "all");
    }

    void Run(const std::string& script, const std::string& which) const {
        const std::string command = "sh " KORVEX_SERVER_SCRIPTS "/" + script + " " + folder + " " + which;
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
    }
    /// Stops the server in front of the n-th call of a kind.
    void StopBefore(int n, native::sql::CallKind kind) {
        seam->kind = kind;
        seam->countdown = n;
        seam->action = [this] { Run("stop.sh", server); };
    }
    void Restart() {
        EXPECT_EQ(seam->action, nullptr) << "the call was never made";
        Run("start.sh", server);
    }

    const std::string server = ServerName(GetParam());
    // Below the folder of the servers that the whole run uses: it ends with them, whatever happens to the
    // test.
    const std::string folder = ServersFolder() + "/" + server + std::to_string(getpid());
};

const std::string Failed = "error " + std::to_string(ado::DbEFail);

TEST_P(ServerStops, InTheMiddleOfASave) {
    const ServerDatabase database(GetParam());
    CreateExampleTables(database.Connect());
    const auto definition = OrdersDefinition();
    const auto crud = Connected(database.ConnectionString());
    StopBefore(7, native::sql::CallKind::Execute);
    const Raised lost = ErrorOf([&] { crud->DbSaveData(FullOrder(definition)); });
    EXPECT_EQ(lost, ado::DbEFail);
    EXPECT_THAT(lost.description, testing::StartsWith("The connection was lost, connect again: "));
    EXPECT_EQ(crud->DbDeleteData(FullOrder(definition), 1), 0);
    EXPECT_EQ(crud->LastResult(), dbCannotOpenRecordset);
    EXPECT_FALSE(crud->ConnectDB(database.ConnectionString()));
    EXPECT_EQ(crud->LastResult(), dbConnectError);

    Restart();
    EXPECT_TRUE(crud->ConnectDB(database.ConnectionString()));
    EXPECT_EQ(CountRecords(*crud->DbConn(), GetParam()), 6) << "what was written before stays";
    const std::int32_t key = crud->DbSaveData(FullOrder(definition));
    EXPECT_GT(key, 1);
    EXPECT_TRUE(crud->DbDataExists(FullOrder(definition), key));
}

TEST_P(ServerStops, InTheMiddleOfALoad) {
    const ServerDatabase database(GetParam());
    CreateExampleTables(database.Connect());
    const auto definition = OrdersDefinition();
    const auto crud = Connected(database.ConnectionString());
    const std::int32_t key = crud->DbSaveData(FullOrder(definition));
    const auto load = [&] { return crud->DbGetData(std::make_shared<DataObject>(definition), key); };
    const struct {
        native::sql::CallKind before;
    } moments[] = {{native::sql::CallKind::Prepare}, {native::sql::CallKind::Execute}};
    for (const auto& moment : moments) {
        EXPECT_TRUE(crud->ConnectDB(database.ConnectionString()));  // nothing is prepared
        StopBefore(3, moment.before);
        EXPECT_EQ(automation::OutcomeOf(load), "Long 1");
        EXPECT_EQ(crud->LastResult(), dbCannotOpenRecordset) << "opening a recordset has a code";
        Restart();
        EXPECT_TRUE(crud->ConnectDB(database.ConnectionString()));
        EXPECT_EQ(load(), key);
    }
}

TEST_P(ServerStops, InTheMiddleOfAScriptRun) {
    const TempFolder unused;
    Places places(GetParam(), unused);
    const std::string place = places.New("repository");
    DefinitionRepository(platform, place)
        .Definition("D", 1)
        .Object(1, "Customer")
        .Object(2, "Order")
        .Value(1, "Name", 8)
        .Child(1, "o", 2);
    const std::string before = DumpRepository(platform, place);
    clsCreateDb scripts(platform);
    for (const auto& [kind, call] :
         {std::pair{native::sql::CallKind::Execute, 12}, std::pair{native::sql::CallKind::Prepare, 9},
          std::pair{native::sql::CallKind::Commit, 1}}) {
        messages->clear();
        StopBefore(call, kind);
        const std::string outcome = automation::OutcomeOf([&] { scripts.DoMSsqlDb(place, "D"); });
        EXPECT_TRUE(outcome != "done" || !messages->empty());
        EXPECT_THAT(*messages, testing::Each(testing::Not(testing::HasSubstr("write"))));
        Restart();
        EXPECT_EQ(DumpRepository(platform, place), before);
    }
    scripts.DoMSsqlDb(place, "D");
    EXPECT_THAT(scripts.DbSQL(), testing::HasSubstr("CREATE TABLE dbo.tOrder"));
}

TEST_P(ServerFaults, ALockThatAnotherClientHoldsEndsInAnError) {
    const ServerDatabase database(GetParam());
    const auto other = database.Connect();
    other->Execute("create table tNote (NoteID integer primary key, Text varchar(20))");
    other->Execute("insert into tNote values (1, 'a')");
    other->BeginTrans();
    other->Execute("update tNote set Text = 'b'");

    const auto crud = Connected(database.ConnectionString() + ShortLockWait(GetParam()));
    const auto definition = std::make_shared<objects::Definition>("Note", "tNote");
    definition->AddValue(
        {"NoteID", "NoteID", static_cast<std::int32_t>(automation::VarType::Long), true, true});
    definition->AddPrimaryKey("NoteID");
    const auto note = std::make_shared<DataObject>(definition);
    const Raised raised = ErrorOf([&] { crud->DbDeleteData(note, 1); });
    EXPECT_EQ(raised, ado::DbEFail);
    EXPECT_THAT(raised.description, testing::HasSubstr("ock"));
    EXPECT_EQ(ValueOf(*other, "select Text from tNote"), "b");
    other->CommitTrans();
    EXPECT_EQ(crud->DbDeleteData(note, 1), 1);
    EXPECT_EQ(ValueOf(*other, "select Text from tNote"), "");
}

TEST_P(ServerFaults, AnApplyThatFailsTellsWhatItMadeBefore) {
    const ServerDatabase database(GetParam());
    const std::string script = database.Folder().Write(
        "a.sql", "create table T (A int)\nGO\ninsert into T values (1)\nGO\ninsert into U values (1)\nGO\n");
    const CommandResult result = RunKorvex({"apply", "--connection", database.ConnectionString(), script});
    ExpectFailure(result, script + ", line 5: ");
    EXPECT_THAT(result.messages,
                testing::HasSubstr(
                    " --dialect " + std::string(GetParam() == Driver::MariaDb ? "mariadb" : "postgresql") +
                    ", its tables made with korvex database create. Done before that, and kept: 1 table "
                    "created, 1 other statement run."));
}

/// A user of the server who may connect, and nothing else.
TEST_P(ServerFaults, AMissingRightHasItsNumber) {
    const ServerDatabase database(GetParam());
    const auto owner = database.Connect();
    owner->Execute("create table tNote (NoteID integer primary key)");
    const std::string guest = "guest" + std::to_string(getpid());
    owner->Execute("create user " + guest);
    if (GetParam() == Driver::MariaDb) owner->Execute("grant create on *.* to " + guest);
    const auto crud = Connected(database.ConnectionString() + ";UID=" + guest);
    for (const char* statement :
         {"select * from tNote", "insert into tNote values (1)", "drop table tNote"}) {
        const Raised raised = ErrorOf([&] { crud->DbConn()->Execute(statement); });
        EXPECT_EQ(raised, ado::DbEPermissionDenied) << statement;
        EXPECT_THAT(raised.description, testing::StartsWith("The user lacks the right to do this: "))
            << statement;
    }
    crud->DisconnectDB();
    owner->Execute("drop user " + guest);
}

/// Two clients save at once; the foreign key of every record must be the key that its own parent got.
TEST_P(ServerFaults, TwoClientsAtOnceMixUpNoKey) {
    constexpr int treesPerClient = 5000;
    const ServerDatabase database(GetParam());
    const auto connection = database.Connect();
    for (const char* table : {"tOrder (OrderID", "tPart (FK_OrderID int, PartID"}) {
        connection->Execute(
            InWordsOf(GetParam(), "create table " + std::string(table) +
                                      " integer primary key, Mark int, QORSelectState int, QORCounter int)"));
    }

    const auto number = static_cast<std::int32_t>(automation::VarType::Long);
    const auto part = std::make_shared<objects::Definition>("Part", "tPart");
    const auto order = std::make_shared<objects::Definition>("Order", "tOrder");
    for (const auto& definition : {part, order}) {
        definition->AddValue({definition->Name() + "ID", definition->Name() + "ID", number, true, true});
        definition->AddPrimaryKey(definition->Name() + "ID");
        definition->AddValue({"Mark", "Mark", number});
    }
    part->AddValue({"FK_OrderID", "FK_OrderID", number});
    part->AddForeignKey("FK_OrderID");
    order->AddChild("Part", part);

    const auto save = [&](int first) {
        clsCRUD crud(native::NativePlatform());
        ASSERT_TRUE(crud.ConnectDB(database.ConnectionString()));
        for (int mark = first; mark < first + treesPerClient; ++mark) {
            const auto tree = std::make_shared<DataObject>(order);
            tree->Set("Mark", mark);
            tree->Child("Part")->Set("Mark", mark);
            ASSERT_GT(crud.DbSaveData(tree), 0);
        }
    };
    std::thread other(save, 1'000'000);
    save(0);
    other.join();
    EXPECT_EQ(ValueOf(*connection,
                      "select count(*) from tOrder o inner join tPart p on p.FK_OrderID = o.OrderID and "
                      "p.Mark = o.Mark"),
              std::to_string(2 * treesPerClient));
}

TEST_P(ServerFaults, ARepositoryHoldsEveryCharacterWhateverItsDatabaseTakes) {
    const ServerDatabase database(GetParam());
    const auto connection = database.Connect();
    if (GetParam() == Driver::MariaDb) connection->Execute("alter database character set latin1");
    const std::string name = "\u6F22\U0001F600\u0142";
    DefinitionRepository(platform, database.ConnectionString()).Definition(name, 1).Object(1, name);
    EXPECT_EQ(ValueOf(*connection, "select Name from tObjects"), name);
}

INSTANTIATE_TEST_SUITE_P(Drivers, ServerFaults, ServerDrivers(), DriverName);
INSTANTIATE_TEST_SUITE_P(Drivers, ServerStops, ServerDrivers(), DriverName);

}  // namespace
}  // namespace korvex::tests
