// What a server is asked, as its own log has it: each question costs the time of an answer.

#include "servers/example_target.h"
#include "support/test_seam.h"

#include <gmock/gmock.h>

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
    CreateExampleTables(*m_connection, QuestionLogger);
    const auto definition = OrdersDefinition();
    const auto seam = std::make_shared<TestSeam>();
    clsCRUD crud(native::NativePlatform({.seam = seam}));
    ASSERT_TRUE(crud.ConnectDB(m_database.ConnectionString()));
    const std::string number = ValueOf(*crud.DbConn(), "select connection_id()");
    const auto load = [&] { crud.DbGetData(std::make_shared<objects::DataObject>(definition), 1); };
    crud.DbSaveData(FullOrder(definition));
    const int records = CountRecords(*m_connection, QuestionLogger);
    load();

    EXPECT_THAT(Asked(number, [&] { crud.DbSaveData(FullOrder(definition)); }),
                ElementsAre(Pair("Execute", records)));
    seam->Record();
    const Counts loading = Asked(number, load);
    EXPECT_THAT(loading, ElementsAre(Pair("Execute", static_cast<int>(seam->Executed().size()))));
    EXPECT_LT(loading.at("Execute"), 2 * records);
}

}  // namespace
}  // namespace korvex::tests
