#include "automation/text.h"
#include "engine_fixture.h"
#include "support/print_variant.h"

namespace korvex::tests {
namespace {

using automation::Variant;
using Texts = std::vector<std::string>;

class RepositoryEngine : public EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        Run("create table tInterfaces (InterfaceID integer primary key, Name varchar(60), Flag bit, "
            "[MaxValue] "
            "text)");
        for (const char* name : {"Alpha", "Beta", "Gamma"}) {
            auto dynaset = Dynaset("select * from tInterfaces");
            dynaset->AddNew();
            dynaset->Fields("Name").Value(name);
            dynaset->Fields("Flag").Value(false);
            dynaset->Update();
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

TEST_P(RepositoryEngine, NamesAndLiteralsHoldAnyLetter) {
    const std::string name = "Gr\xC3\xBC\xC3\x9F\xE2\x82\xAC";
    Run("create table t" + name + " (ID integer primary key, " + name + " varchar(40))");
    auto dynaset = Dynaset("select * from t" + name);
    for (int key = 1; key <= 2; ++key) {
        dynaset->AddNew();
        dynaset->Fields(name).Value(name + std::to_string(key));
        dynaset->Update();
    }
    dynaset->MoveLast();
    dynaset->Edit();
    dynaset->Fields(name).Value(name);
    dynaset->Update();
    for (const std::string condition : {" = '", " like '"})
        EXPECT_EQ(Rows("select * from t" + name + " where " + name + condition + name + "'", {"ID", name}),
                  Texts{"2|" + name});
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

TEST_P(RepositoryEngine, ARecordsetStandsWhereDaoHasIt) {
    auto rows = Snapshot("select * from tInterfaces order by InterfaceID");
    EXPECT_EQ(rows->Fields("INTERFACEID").Value(), Variant(1));
    EXPECT_TRUE(automation::EqualsIgnoreCase(rows->Fields("interfaceid").Name(), "InterfaceID"));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("Name").Value(), Variant("Beta"));
    rows->MoveLast();
    EXPECT_EQ(rows->Fields("Name").Value(), Variant("Gamma"));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), dao::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Fields("Name").Value(); }), dao::NoCurrentRecord);

    auto none = Dynaset("select * from tInterfaces where InterfaceID = 99");
    EXPECT_TRUE(none->Eof());
    EXPECT_EQ(ErrorOf([&] { none->MoveLast(); }), dao::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { none->Edit(); }), dao::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { none->Update(); }), dao::UpdateWithoutEdit);
    EXPECT_EQ(ErrorOf([&] { none->Fields("Name").Value("x"); }), dao::UpdateWithoutEdit);
}

TEST_P(RepositoryEngine, SnapshotsStayWhatTheyWereAndAreNotWritten) {
    auto snapshot = Snapshot("select * from tInterfaces");
    EXPECT_FALSE(snapshot->Eof());
    Run("update tInterfaces set Name = 'changed'");
    Run("delete from tInterfaces where InterfaceID = 3");
    EXPECT_EQ(Rows(*snapshot, {"Name"}), (Texts{"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(ErrorOf([&] { snapshot->AddNew(); }), dao::OperationNotSupported);
    EXPECT_EQ(ErrorOf([&] { snapshot->Edit(); }), dao::OperationNotSupported);
    Run("create table tOthers (OtherID integer primary key)");
    Run("insert into tOthers (OtherID) values (7)");
    auto join = Dynaset("select a.Name, b.OtherID from tInterfaces a, tOthers b");
    EXPECT_EQ(ErrorOf([&] { join->AddNew(); }), dao::OperationNotSupported);
}

TEST_P(RepositoryEngine, ATransactionIsOfferedOnlyWhereItHolds) {
    if (!m_database->BeginTrans()) GTEST_SKIP() << "this engine commits each statement";
    auto dynaset = Dynaset("select * from tInterfaces");
    dynaset->AddNew();
    dynaset->Fields("Name").Value("lost");
    dynaset->Update();
    EXPECT_NE(ErrorOf([&] { Run("insert into tInterfaces (InterfaceID) values (1)"); }), 0);
    if (DefinitionsRollBack(GetParam())) Run("create table tLost (A int)");
    Run("delete from tInterfaces where InterfaceID = 1");
    m_database->Rollback();
    EXPECT_EQ(Rows("select * from tInterfaces", {"Name"}), (Texts{"Alpha", "Beta", "Gamma"}));
    EXPECT_EQ(ErrorOf([&] { Snapshot("select * from tLost"); }), dao::TableNotFound);
    ASSERT_TRUE(m_database->BeginTrans());
    Run("delete from tInterfaces where InterfaceID = 1");
    m_database->CommitTrans();
    m_database = Open();
    EXPECT_EQ(Rows("select * from tInterfaces", {"Name"}), (Texts{"Beta", "Gamma"}));
}

INSTANTIATE_TEST_SUITE_P(Drivers, RepositoryEngine, AllDrivers(), DriverName);

}  // namespace
}  // namespace korvex::tests
