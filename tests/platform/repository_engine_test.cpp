#include "engine_fixture.h"

namespace korvex::tests {
namespace {

using automation::Variant;
using Texts = std::vector<std::string>;

class RepositoryEngine : public EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        Run("create table tInterfaces (InterfaceID integer primary key, Name varchar(60), Flag bit, MaxValue "
            "text)");
        for (const char* name : {"Alpha", "Beta", "Gamma"}) {
            Run("insert into tInterfaces (Name, Flag) values ('" + std::string(name) + "', 0)");
        }
    }
};

TEST_P(RepositoryEngine, StatementsOfTheRepositoryRunAsTheyAreSent) {
    EXPECT_EQ(
        Rows("SELECT Name from tInterfaces where InterfaceID <> 0and Name is not null and InterfaceID =2",
             {"name"}),
        Texts{"Beta"});
    EXPECT_EQ(Rows("select * from tInterfaces where Name like 'gAMMA'", {"InterfaceID"}), Texts{"3"});
    EXPECT_EQ(
        Rows("select a.Name, b.InterfaceID from tInterfaces a INNER JOIN (tInterfaces b INNER JOIN "
             "tInterfaces c "
             "ON b.InterfaceID = c.InterfaceID) ON a.InterfaceID = b.InterfaceID where ((b.InterfaceID>1 And "
             "b.InterfaceID<3) AND ((c.InterfaceID)= 2))ORDER BY a.Name",
             {"Name", "InterfaceID"}),
        Texts{"Beta|2"});
}

TEST_P(RepositoryEngine, AnAddedRowIsTheLastOneAndCarriesItsKey) {
    auto dynaset = Dynaset("select * from tInterfaces");
    m_seam->Record();
    dynaset->AddNew();
    dynaset->Fields("name").Value(Variant("New"));
    EXPECT_TRUE(dynaset->Fields("Flag").Value().IsNull());
    dynaset->Update();
    dynaset->MoveLast();
    EXPECT_EQ(dynaset->Fields("InterfaceID").Value(), Variant(4));
    EXPECT_EQ(dynaset->Fields("Name").Value(), Variant("New"));
    for (const std::string& text : m_seam->Executed())
        EXPECT_NE(text, "select * from tInterfaces");
    EXPECT_FALSE(dynaset->Eof());
    dynaset->MoveNext();
    EXPECT_TRUE(dynaset->Eof());
    EXPECT_EQ(Rows("select InterfaceID, Name, Flag from tInterfaces where InterfaceID=4", {"Name", "Flag"}),
              Texts{"New|-"});
}

TEST_P(RepositoryEngine, EditingInALoopOverTheSameTableTouchesEachRowOnce) {
    auto dynaset = Dynaset("select * from tInterfaces");
    for (int seen = 0; !dynaset->Eof(); dynaset->MoveNext()) {
        ASSERT_LT(++seen, 4);
        dynaset->Edit();
        dynaset->Fields("Name").Value(automation::ToString(dynaset->Fields("Name").Value()) + "!");
        dynaset->Fields("InterfaceID")
            .Value(automation::ToLong(dynaset->Fields("InterfaceID").Value()) + 100);
        dynaset->Update();
    }
    dynaset->Close();
    EXPECT_EQ(Rows("select * from tInterfaces order by InterfaceID", {"InterfaceID", "Name"}),
              (Texts{"101|Alpha!", "102|Beta!", "103|Gamma!"}));
}

INSTANTIATE_TEST_SUITE_P(Drivers, RepositoryEngine, testing::Values(Driver::Sqlite, Driver::OdbcSqlite),
                         DriverName);

}  // namespace
}  // namespace korvex::tests
