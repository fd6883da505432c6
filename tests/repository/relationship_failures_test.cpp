#include "automation/outcome.h"
#include "repository_files.h"
#include "support/error_of.h"
#include "support/test_seam.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace korvex::repository {
namespace {

using native::sql::CallKind;
using Fill = std::function<void(tests::DefinitionRepository&)>;

class RelationshipFailuresTest : public RepositoryFileTest {
  protected:
    explicit RelationshipFailuresTest(
        std::shared_ptr<tests::TestSeam> testSeam = std::make_shared<tests::TestSeam>())
        : RepositoryFileTest({.seam = testSeam}), seam(std::move(testSeam)) {}

    std::shared_ptr<tests::TestSeam> seam;
};

TEST_P(RelationshipFailuresTest, RefusesWhatCanNotBeStoredAndChangesNothing) {
    const std::string longPrefix(28, 'F');
    struct Case {
        const char* what;
        Fill fill;
        std::string prefix;
        std::int32_t number;
        std::string description;  ///< a part of it
    };
    const Case cases[] = {
        {"own child", [](auto& r) { r.Object(1, "A").Child(1, "a", 1); }, "FK_", 28,
         "Object 1 is its own ancestor"},
        {"own grandchild", [](auto& r) { r.Object(1, "A").Object(2, "B").Child(1, "b", 2).Child(2, "a", 1); },
         "FK_", 28, "Object 1 is its own ancestor: object 2 holds it again."},
        {"own element", [](auto& r) { r.Object(1, "A", 2).Object(2, "B").Child(2, "a", 1); }, "FK_", 28,
         "Object 1 is its own ancestor: object 2"},
        {"object name with a quote", [](auto& r) { r.Object(1, "A").Object(2, "O'Neil").Child(1, "b", 2); },
         "FK_", 5, "'O'Neil' (ObjectID 2)"},
        {"prefix with a quote", [](auto& r) { r.Object(1, "A"); }, "F'", 5, "holds a single quote"},
        {"prefix that is too long", [](auto& r) { r.Object(1, "A"); }, longPrefix, 5,
         "has 28 characters; at most 27"},
        {"interfaces without numbers",
         [](auto& r) {
             r.Object(1, "A");
             r.Database().Execute("drop table tInterfaces");
             r.Database().Execute("create table tInterfaces (InterfaceID int, Name varchar(255))");
         },
         "FK_", 94, "InterfaceID of ADBKeys"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        path = places.New(std::string(test.what) + ".db");
        {
            auto repository = NewRepository();
            repository.Definition("D", 1);
            test.fill(repository);
        }
        const std::string before = Dump();
        const tests::Raised raised = tests::ErrorOf([&] { Relate("", test.prefix); });
        EXPECT_EQ(raised, test.number);
        EXPECT_NE(raised.description.find(test.description), std::string::npos) << raised.description;
        EXPECT_EQ(Dump(), before);
    }
}

TEST_P(RelationshipFailuresTest, LongestPrefixIsTaken) {
    NewRepository().Definition("D", 1).Object(1, "Customer").Object(2, "Order").Child(1, "o", 2);
    Relate("", std::string(27, 'F'));
    EXPECT_EQ(Rows("select * from tValues where VID > 10000 order by ValueID", {"FieldName"}),
              (std::vector<std::string>{"rID", "rID", std::string(27, 'F') + "rID"}));
}

/// Every engine call of a whole call fails once. Either it is raised and leaves nothing behind, or it is
/// shown and leaves out its step, or it does no harm.
TEST_P(RelationshipFailuresTest, AFailureAtAnyCallLeavesTheRepositoryAsItWas) {
    const auto makeNew = [this](const std::string& name) {
        path = places.New(name);
        NewRepository()
            .Definition("D", 1)
            .Object(1, "Customer", 2)
            .Object(2, "Order")
            .Value(1, "Name", 8)
            .Child(1, "o", 2);
    };
    makeNew("pristine.db");
    const std::string pristine = path;
    const std::string before = Dump();
    makeNew("whole.db");
    Relate("D");
    const std::string whole = Dump();

    int raised = 0;
    bool succeeded = false;
    // A new database on a server takes its time: there some of the calls must do.
    const std::size_t step = tests::IsServer(GetParam()) ? 13 : 1;
    for (std::size_t refused = 1; !succeeded; refused += step) {
        ASSERT_LT(refused, 1000u);
        if (tests::IsServer(GetParam())) {
            makeNew("copy.db");
        } else {
            path = folder.Path("copy.db");
            std::filesystem::copy_file(pristine, path, std::filesystem::copy_options::overwrite_existing);
        }
        journal->clear();
        seam->FailAt(refused, native::sql::ErrorKind::DiskFull);
        const std::string outcome = automation::OutcomeOf([&] { Relate("D"); });
        succeeded = !seam->HasFailed();
        seam->FailAt(0);
        EXPECT_EQ(seam->OpenStatements(), 0) << "after call " << refused;
        if (outcome != "done") {
            ++raised;
            EXPECT_EQ(outcome, "error " + std::to_string(dao::DiskIsFull));
            EXPECT_EQ(Dump(), before) << "after call " << refused;
        } else if (journal->empty()) {
            // The last call of all, or one that nothing depended on.
            EXPECT_EQ(Dump(), whole) << "after call " << refused;
        }
    }
    EXPECT_GT(raised, tests::IsServer(GetParam()) ? 3 : 10);
}

TEST_P(RelationshipFailuresTest, AWholeCallIsOneTransaction) {
    NewRepository().Definition("D", 1).Definition("D", 2).Object(1, "A").Object(2, "B");
    seam->Record();
    Relate();
    const auto count = [&](CallKind kind) {
        return std::ranges::count(seam->Calls(), kind, &tests::TestSeam::Call::kind);
    };
    EXPECT_EQ(count(CallKind::Begin), 1);
    EXPECT_EQ(count(CallKind::Commit), 1);
}

KORVEX_FOR_EACH_DRIVER(RelationshipFailuresTest);

}  // namespace
}  // namespace korvex::repository
