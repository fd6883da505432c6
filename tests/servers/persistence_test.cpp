#include "hosts/objects/json.h"
#include "servers/example_target.h"
#include "support/json_holds.h"
#include "support/recording_parts.h"

#include <gmock/gmock.h>

namespace korvex::tests {
namespace {

using objects::DataObject;
using objects::ToJson;

/// The example's orders, in a database of a server.
class ServerPersistence : public testing::TestWithParam<Driver> {
  protected:
    void SetUp() override {
        database = std::make_unique<ServerDatabase>(GetParam());
        connection = database->Connect();
        CreateExampleTables(*connection, GetParam());
        platform.desktop = std::make_shared<RecordingDesktop>(messages);
        crud = std::make_shared<clsCRUD>(platform);
        ASSERT_TRUE(crud->ConnectDB(database->ConnectionString()));
    }

    /// The order of that key as it is stored.
    DataObject::Shared Load(std::int32_t key) {
        DataObject::Shared order = std::make_shared<DataObject>(definition);
        EXPECT_EQ(crud->DbGetData(order, key), key);
        return order;
    }
    std::string Stored(std::int32_t key) { return ToJson(*Load(key)); }

    const std::shared_ptr<objects::Definition> definition = OrdersDefinition();
    std::unique_ptr<ServerDatabase> database;
    std::shared_ptr<ado::Connection> connection;
    Journal messages = std::make_shared<std::vector<std::string>>();
    Platform platform = native::NativePlatform();
    std::shared_ptr<clsCRUD> crud;
};

TEST_P(ServerPersistence, ATreeIsSavedLoadedUpdatedAndDeleted) {
    const auto saved = FullOrder(definition);
    ASSERT_EQ(crud->DbSaveData(saved), 1);
    EXPECT_EQ(crud->LastResult(), dbNoError);
    const auto order = Load(1);
    // Keys included; values that were not set have come back as those of the columns.
    EXPECT_TRUE(Holds(ToJson(*order), ToJson(*saved)))
        << ToJson(*order) << "\nshould hold " << ToJson(*saved);
    const int records = CountRecords(*connection, GetParam());
    EXPECT_GT(records, 15);

    // Elements keep their places, whichever of them was stored last.
    const auto lines = order->Child("Lines");
    lines->Items()[0]->Set("TaxCode", "X");
    lines->Items()[1]->Child("Product")->Set("Title", "new");
    order->Set("Notes", "shorter");
    EXPECT_EQ(crud->DbUpdateData(order), 1);
    EXPECT_EQ(Stored(1), ToJson(*order));
    EXPECT_EQ(CountRecords(*connection, GetParam()), records);

    lines->Remove(1);
    EXPECT_EQ(crud->DbUpdateDataRetainRoot(order, 1), 1);
    EXPECT_EQ(Stored(1), ToJson(*order));

    EXPECT_EQ(crud->DbSaveData(FullOrder(definition)), 2);
    const std::string second = Stored(2);
    EXPECT_TRUE(crud->DbDataExists(order, 2));
    EXPECT_EQ(crud->DbDeleteData(order, 1), 1);
    EXPECT_FALSE(crud->DbDataExists(order, 1));
    EXPECT_EQ(Stored(2), second);
    EXPECT_EQ(CountRecords(*connection, GetParam()), records);

    automation::Variant city;
    EXPECT_TRUE(crud->DbGetField(2, "OrderID", "tOrder", "Notes", city));
    EXPECT_EQ(city, automation::Variant("It's \\ grün 😀"));
    EXPECT_TRUE(crud->DbSaveField(2, "OrderID", "tOrder", "Notes", "changed"));
    EXPECT_EQ(ValueOf(*connection, "select Notes from tOrder"), "changed");
    EXPECT_THAT(*messages, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Drivers, ServerPersistence, ServerDrivers(), DriverName);

}  // namespace
}  // namespace korvex::tests
