#include "repository/repository.h"

#include "automation/convert.h"
#include "automation/outcome.h"
#include "repository/lookups.h"
#include "repository/stored_rows.h"
#include "repository_files.h"
#include "support/error_of.h"

#include <string>
#include <vector>

namespace korvex::repository {
namespace {

using automation::OutcomeOf;

/// An engine that notes how it is called and opens nothing.
struct NotingEngine : dao::DBEngine {
    struct NotingDatabase : dao::Database {
        explicit NotingDatabase(tests::Journal notes) : notes(std::move(notes)) {}
        std::unique_ptr<dao::Recordset> OpenRecordset(std::string_view sql, std::int32_t type,
                                                      std::int32_t options, std::int32_t lockEdit) override {
            notes->push_back("OpenRecordset " + std::string(sql) + " " + std::to_string(type) + " " +
                             std::to_string(options) + " " + std::to_string(lockEdit));
            return nullptr;
        }
        void Execute(std::string_view) override {}
        void Close() override { notes->push_back("Close"); }
        bool BeginTrans() override { return false; }
        void CommitTrans() override {}
        void Rollback() override {}
        tests::Journal notes;
    };
    struct NotingWorkspace : dao::Workspace {
        explicit NotingWorkspace(tests::Journal notes) : notes(std::move(notes)) {}
        std::unique_ptr<dao::Database> OpenConnection(std::string_view name, bool readOnly,
                                                      std::string_view connect) override {
            notes->push_back("OpenConnection <" + std::string(name) + "> " +
                             (readOnly ? "read-only" : "writable") + " <" + std::string(connect) + ">");
            return std::make_unique<NotingDatabase>(notes);
        }
        tests::Journal notes;
    };

    std::shared_ptr<dao::Workspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                    std::string_view password, std::int32_t type) override {
        notes->push_back("CreateWorkspace <" + std::string(name) + "> <" + std::string(user) + "> <" +
                         std::string(password) + "> " + std::to_string(type));
        return std::make_shared<NotingWorkspace>(notes);
    }
    std::unique_ptr<dao::Database> OpenDatabase(std::string_view name) override {
        notes->push_back("OpenDatabase <" + std::string(name) + ">");
        return std::make_unique<NotingDatabase>(notes);
    }
    std::unique_ptr<dao::Database> CreateDatabase(std::string_view) override { return nullptr; }

    tests::Journal notes = std::make_shared<std::vector<std::string>>();
};

TEST(RepositoryOpenTest, AnyStringThatHoldsDsnOpensThroughOdbc) {
    const std::string workspace = "CreateWorkspace <> <admin> <> 1";
    struct Case {
        std::string connection;
        bool isOdbc;
    };
    const Case cases[] = {
        {"/data/orders.db", false},
        {"", false},
        {"DSN=Orders", true},
        {"Driver={SQLite3};dsn=Orders;UID=me;PWD=secret", true},
        {"/data/oldDsN=s/orders.db", true},
        {"DSN = Orders", false},
    };
    for (const Case& test : cases) {
        auto engine = std::make_shared<NotingEngine>();
        Repository repository(
            Platform{.repositoryEngine = engine, .targetProvider = {}, .desktop = {}, .files = {}});
        repository.OpenRepository(test.connection);
        repository.OpenSnapshot("S");
        repository.OpenDynaset("D");
        repository.Close();

        std::vector<std::string> expected;
        if (test.isOdbc) {
            expected = {workspace, "OpenConnection <> writable <" + test.connection + ">",
                        "OpenRecordset S 4 -1 -1", "OpenRecordset D 2 2048 3", "Close"};
        } else {
            expected = {"OpenDatabase <" + test.connection + ">", "OpenRecordset S 4 -1 -1",
                        "OpenRecordset D 2 -1 -1", "Close"};
        }
        EXPECT_EQ(*engine->notes, expected);
        EXPECT_EQ(repository.IsOdbc(), test.isOdbc);
    }
}

class RepositoryTest : public RepositoryFileTest {
  protected:
    RepositoryTest() : repository(platform) {}
    void Open() { repository.OpenRepository(Connection()); }

    Repository repository;
    StoredRows rows{repository};
};

/// The view fails when it is executed.
TEST_P(RepositoryTest, AFailedQueryIsShownAndGivesNoRecordset) {
    NewRepository().Object(1, "A");
    Execute("create view vFails as select ObjectID, abs(-9223372036854775807 - ObjectID) as X from tObjects");
    Open();
    const struct {
        bool isSnapshot;
        std::string query;
    } cases[] = {{true, "select * from tMissing"},
                 {false, "select * from tMissing"},
                 {true, "select * from vFails"},
                 {false, "select * from vFails where ObjectID = 1"}};
    for (const auto& [isSnapshot, query] : cases) {
        journal->clear();
        EXPECT_EQ(isSnapshot ? repository.OpenSnapshot(query) : repository.OpenDynaset(query), nullptr);
        ASSERT_EQ(journal->size(), 1u) << query;
        EXPECT_EQ(journal->front().find("message 0 <> <"), 0u) << journal->front();
        EXPECT_NE(journal->front().find(query), std::string::npos) << journal->front();
    }
}

TEST_P(RepositoryTest, NothingOpenIsAFailedQueryToReadersAndAnErrorToTheOthers) {
    EXPECT_EQ(repository.OpenSnapshot("select * from tObjects"), nullptr);
    EXPECT_EQ(*journal,
              (std::vector<std::string>{"message 0 <> <Object variable or With block variable not set>"}));
    EXPECT_EQ(OutcomeOf([&] { repository.Execute("delete from tObjects"); }), "error 91");
    EXPECT_EQ(OutcomeOf([&] { repository.Close(); }), "error 91");
    EXPECT_EQ(OutcomeOf([&] { repository.IsObjectIncluded(ObjectId{1}); }), "error 91");
}

TEST_P(RepositoryTest, ASecondOpenReplacesTheFirstAndAFailedOneDoesNot) {
    NewRepository().Object(1, "A");
    Open();
    EXPECT_EQ(OutcomeOf([&] { repository.OpenRepository(folder.Path("missing.db")); }), "error 3024");
    EXPECT_EQ(GetObjectInterfaces(rows, ObjectId{1}), std::vector{InterfaceId{1}});

    const std::string other = places.New("other.db");
    const tests::DefinitionRepository empty(platform, other);
    repository.OpenRepository(other);
    EXPECT_EQ(GetObjectInterfaces(rows, ObjectId{1}), std::vector<InterfaceId>{});
    repository.Close();
    EXPECT_FALSE(repository.IsOpen());
}

TEST_P(RepositoryTest, InclusionReadsNullAndAMissingRowAsFalse) {
    NewRepository();
    Execute("insert into tObjects (ObjectID, IsIncluded) values (1, 0), (2, -1), (3, 1), (4, null)");
    Open();
    const std::vector<bool> expected = {false, true, true, false, false};
    for (std::int32_t objectID = 1; objectID <= 5; ++objectID) {
        EXPECT_EQ(repository.IsObjectIncluded(ObjectId{objectID}),
                  expected[static_cast<std::size_t>(objectID) - 1])
            << objectID;
    }
    Execute("drop table tObjects");
    Open();
    EXPECT_EQ(OutcomeOf([&] { repository.IsObjectIncluded(ObjectId{2}); }), "error 91");
    EXPECT_EQ(journal->size(), 1u);
}

TEST_P(RepositoryTest, FieldValuesTurnNullIntoEmpty) {
    NewRepository();
    Execute("insert into tObjects (ObjectID, Name, TableName, IsIncluded) values (1, null, '', 0)");
    Open();
    const auto rows = repository.OpenSnapshot("select * from tObjects");
    EXPECT_TRUE(Repository::FieldValue(rows->Fields("Name")).IsEmpty());
    EXPECT_EQ(Repository::FieldValue(rows->Fields("tablename")), automation::Variant(""));
    EXPECT_EQ(automation::ToLong(Repository::FieldValue(rows->Fields("IsIncluded"))), 0);
    EXPECT_FALSE(Repository::FieldValue(rows->Fields("IsIncluded")).IsEmpty());
}

TEST_P(RepositoryTest, LookUpsGiveRowsInOrderAndNeutralAnswersWithoutOne) {
    NewRepository()
        .Definition("Orders", 1)
        .Definition("Stock", 3)
        .Definition("Orders", 2)
        .Object(1, "Customer")
        .Object(2, "Order")
        .Child(1, "Second", 20)
        .Value(1, "Plain", 8)
        .Child(1, "First", 10);
    Execute("insert into tObjectInterfaces (ObjectID, InterfaceID) values (1, 2)");
    Execute("update tObjects set TableName = 'tCustomer' where ObjectID = 1");
    Execute("update tValues set FieldName = 'Column' where ValueID = 2");
    Open();
    using Objects = std::vector<ObjectId>;
    EXPECT_EQ(GetRootObjects(rows, ""), (Objects{ObjectId{1}, ObjectId{3}, ObjectId{2}}));
    const Objects both = {ObjectId{1}, ObjectId{2}};
    EXPECT_EQ(GetRootObjects(rows, "Orders"), both);
    EXPECT_EQ(GetRootObjects(rows, "orders"), tests::EqualIgnoresCase(GetParam()) ? both : Objects{});
    EXPECT_EQ(GetObjectInterfaces(rows, ObjectId{1}), (std::vector{InterfaceId{1}, InterfaceId{2}}));
    EXPECT_EQ(GetChildObjects(rows, InterfaceId{1}), (Objects{ObjectId{20}, ObjectId{10}}));
    EXPECT_EQ(FindObjectInterface(rows, ObjectId{1}, "iorder"), InterfaceId{2});
    EXPECT_EQ(FindObjectInterface(rows, ObjectId{2}, "ICustomer"), InterfaceId{});
    EXPECT_EQ(GetObjectTableName(rows, ObjectId{1}), "tCustomer");
    EXPECT_EQ(GetObjectTableName(rows, ObjectId{2}), "");
    EXPECT_EQ(GetFieldName(rows, ValueId{2}), "Column");
    EXPECT_EQ(GetFieldName(rows, ValueId{99}), "");
    EXPECT_EQ(*journal, std::vector<std::string>{});
}

TEST_P(RepositoryTest, AValueThatIsNoNumberIsNamed) {
    NewRepository();
    const std::string insert = "insert into tDataDefs (Storage, RootObjectID) values ('Orders', 'one')";
    if (!tests::ColumnsTakeAnyType(GetParam())) {
        EXPECT_THROW(Execute(insert), automation::Error);
        return;
    }
    Execute(insert);
    Open();
    const tests::Raised raised = tests::ErrorOf([&] { GetRootObjects(rows, "Orders"); });
    EXPECT_EQ(raised, automation::TypeMismatch);
    EXPECT_NE(raised.description.find("RootObjectID"), std::string::npos) << raised.description;
}

KORVEX_FOR_EACH_DRIVER(RepositoryTest);

}  // namespace
}  // namespace korvex::repository
