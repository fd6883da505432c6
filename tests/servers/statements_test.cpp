// What a server is asked, as its own log has it: each question costs the time of an answer.

#include "hosts/cli/korvex_command.h"
#include "servers/example_target.h"
#include "support/reply_counter.h"
#include "support/test_seam.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>

namespace korvex::tests {
namespace {

using Counts = std::map<std::string, int>;
using testing::ElementsAre;
using testing::Pair;

/// On the server that tells who asked it what.
class ServerStatements : public testing::Test {
  protected:
    void SetUp() override {
        m_connection->Execute("set global log_output = 'TABLE'");
        m_connection->Execute("set global general_log = 1");
    }
    void TearDown() override { m_connection->Execute("set global general_log = 0"); }

    /// What the connection with that number did while `work` ran, by kind.
    template <class Work>
    Counts Asked(const std::string& connection, Work&& work) {
        const std::string log = " from mysql.general_log where thread_id = " + connection;
        const std::string before = ValueOf(*m_connection, "select count(*)" + log);
        work();
        Counts counts;
        for (const std::string& kind :
             RowsOf(*m_connection, "select command_type" + log + " limit " + before + ", 1000000"))
            ++counts[kind];
        return counts;
    }

    const ServerDatabase m_database{QuestionLogger};
    const std::shared_ptr<ado::Connection> m_connection = m_database.Connect();
};

TEST_F(ServerStatements, ATreeIsSavedAndLoadedWithOneQuestionForEachRecordAndLookUp) {
    CreateExampleTables(m_connection);
    const auto definition = OrdersDefinition();
    const auto seam = std::make_shared<TestSeam>();
    clsCRUD crud(native::NativePlatform({.seam = seam}));
    ASSERT_TRUE(crud.ConnectDB(m_database.ConnectionString()));
    const std::string number = ValueOf(*crud.DbConn(), "select connection_id()");
    const auto load = [&] { crud.DbGetData(std::make_shared<objects::DataObject>(definition), 1); };
    crud.DbSaveData(FullOrder(definition));
    const int records = CountRecords(*m_connection, QuestionLogger);
    // What is used for the second time is prepared.
    crud.DbSaveData(FullOrder(definition));
    load();
    load();

    EXPECT_THAT(Asked(number, [&] { crud.DbSaveData(FullOrder(definition)); }),
                ElementsAre(Pair("Execute", records)));
    seam->Record();
    const Counts loading = Asked(number, load);
    EXPECT_THAT(loading, ElementsAre(Pair("Execute", static_cast<int>(seam->Executed().size()))));
    EXPECT_LT(loading.at("Execute"), 2 * records);
}

/// The command on the example, counted between it and the server.
class ServerReplies : public testing::TestWithParam<Driver> {
  protected:
    static std::string ServerSocket() {
        std::string place;
        std::getline(std::ifstream(ServersFolder() + "/place"), place);
        return place + SocketName();
    }
    static std::string SocketName() {
        return GetParam() == Driver::MariaDb ? "/mariadb.sock" : "/.s.PGSQL.5432";
    }
    std::string ConnectionString() const {
        return m_database.ConnectionString() + (GetParam() == Driver::MariaDb
                                                    ? ";SOCKET=" + m_folder.Path() + SocketName()
                                                    : ";Servername=" + m_folder.Path());
    }
    /// The replies that one command waits for.
    std::size_t Replies(const std::vector<std::string>& words) {
        std::vector<std::string> arguments = {words[0], "--repository", m_repository.Path(), "--storage",
                                              "Orders", "--connection", ConnectionString()};
        arguments.insert(arguments.end(), words.begin() + 1, words.end());
        m_counter.Take();
        const CommandResult result = RunKorvex(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.messages;
        return m_counter.Take();
    }

    const ServerDatabase m_database{GetParam()};
    const TempFolder m_folder;
    bench::ReplyCounter m_counter{m_folder.Path() + SocketName(), ServerSocket()};
    const RepositoryFile m_repository;
};

TEST_P(ServerReplies, ACommandWaitsLittleMoreThanOnceForEachStatement) {
    CreateExampleTables(m_database.Connect());
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"repository", "import", m_repository.Path(), KORVEX_TEST_DATA "/orders.json"},
             {"relate", "--repository", m_repository.Path(), "--storage", "Orders"}})
        EXPECT_EQ(RunKorvex(words).exitCode, 0);
    const std::string unchanged = m_folder.Path("unchanged.json");
    std::ofstream(unchanged) << "{}";
    const struct {
        std::vector<std::string> words;
        std::size_t mariaDb;
        std::size_t postgreSql;
    } commands[] = {
        {{"save", KORVEX_TEST_DATA "/order.json"}, 75, 85},
        {{"load", "--key", "1"}, 50, 65},
        {{"update", "--key", "1", unchanged}, 55, 65},
        {{"delete", "--key", "1"}, 95, 95},
    };
    for (const auto& command : commands) {
        const std::size_t replies = Replies(command.words);
        EXPECT_LE(replies, GetParam() == Driver::MariaDb ? command.mariaDb : command.postgreSql)
            << command.words[0];
    }
}

INSTANTIATE_TEST_SUITE_P(Drivers, ServerReplies, ServerDrivers(), DriverName);

}  // namespace
}  // namespace korvex::tests
