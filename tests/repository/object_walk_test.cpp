#include "repository/object_walk.h"

#include "repository/stored_rows.h"
#include "repository_files.h"
#include "support/instrumented.h"

#include <string>
#include <vector>

namespace korvex::repository {
namespace {

/// Notes the walk as nested text: "1(2 3(4))".
class NotingVisitor : public ObjectVisitor {
  public:
    std::optional<ObjectId> Enter(ObjectId lObjectID) override {
        notes += "(" + std::to_string(Number(lObjectID));
        ++met;
        if (lObjectID == leftOut) {
            notes += "!)";
            return std::nullopt;
        }
        return lObjectID == collection ? element : NoObject;
    }
    void Leave() override { notes += ")"; }

    std::string notes;
    int met = 0;
    ObjectId leftOut{};
    ObjectId collection{};
    ObjectId element{};
};

class ObjectWalkTest : public RepositoryFileTest {
  protected:
    void Walk(NotingVisitor& visitor) {
        Repository repository(platform);
        repository.OpenRepository(Connection());
        StoredRows rows(repository);
        WalkObjects(rows, ObjectId{1}, visitor);
    }
};

TEST_P(ObjectWalkTest, MeetsTheElementObjectFirstAndSharedObjectsOncePerWay) {
    NewRepository()
        .Object(1, "Customer")
        .Object(2, "Orders")
        .Object(3, "Address")
        .Object(4, "Order")
        .Object(5, "Left out")
        .Child(1, "Address", 3)
        .Child(1, "Orders", 2)
        .Child(2, "Address", 3)
        .Child(4, "Left out", 5)
        .Child(5, "Address", 3);
    NotingVisitor visitor;
    visitor.collection = ObjectId{2};
    visitor.element = ObjectId{4};
    visitor.leftOut = ObjectId{5};
    Walk(visitor);
    EXPECT_EQ(visitor.notes, "(1(3)(2(4(5!))(3)))");
}

TEST_P(ObjectWalkTest, DepthIsNotLimited) {
    NewRepository();
    // Each level costs a server some answers; what must not end the walk is the same everywhere.
    const int depth = IsServer(GetParam()) ? 3000 : tests::IsInstrumented ? 20000 : 100000;
    const std::string levels = "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
                               std::to_string(depth) + ") ";
    Execute("insert into tObjectInterfaces (ObjectID, InterfaceID) " + levels + "select i, i from n");
    Execute("insert into tValues (InterfaceID, ChildObjectID) " + levels + "select i, i + 1 from n");
    NotingVisitor visitor;
    Walk(visitor);
    EXPECT_EQ(visitor.met, depth + 1);
}

KORVEX_FOR_EACH_DRIVER(ObjectWalkTest);

}  // namespace
}  // namespace korvex::repository
