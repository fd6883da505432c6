#include "objects/json.h"
#include "servers/example_target.h"
#include "servers/oracle_schema.h"
#include "support/json_holds.h"
#include "support/recording_parts.h"

#include <gmock/gmock.h>

namespace korvex::tests {
namespace {

using objects::DataObject;
using objects::ToJson;

/// Stored objects in the tables of the Oracle scripts: sequences and triggers give the keys.
class OraclePersistence : public OracleSchema {
  protected:
    void SetUp() override {
        Apply("OraCreate.sql");
        Apply("OraFKCr.sql");
        // The address of an order has no customer, that of a customer no order: 0, which is no record's key.
        m_connection->Execute(
            "CREATE TRIGGER no_parent BEFORE INSERT ON tAddress2 FOR EACH ROW SET NEW.FK_OrderID = "
            "NULLIF(NEW.FK_OrderID, 0), NEW.FK_CustomerID = NULLIF(NEW.FK_CustomerID, 0)");
        Platform platform = native::NativePlatform();
        platform.desktop = std::make_shared<RecordingDesktop>(m_messages);
        m_crud = std::make_shared<clsCRUD>(platform);
        ASSERT_TRUE(m_crud->ConnectDB(ConnectionString()));
    }

    /// The order of that key as it is stored.
    std::shared_ptr<DataObject> Load(std::int32_t key) {
        auto order = std::make_shared<DataObject>(m_definition);
        EXPECT_EQ(m_crud->DbGetData(order, key), key);
        return order;
    }
    void ExpectStored(std::int32_t key, DataObject& order) {
        const std::string stored = ToJson(*Load(key));
        EXPECT_TRUE(Holds(stored, ToJson(order))) << stored << "\nshould hold " << ToJson(order);
    }
    /// An order with everything in it, in numbers that the columns hold.
    std::shared_ptr<DataObject> NewOrder() {
        auto order = FullOrder(m_definition);
        order->Set("ExchangeRate", 1.25);
        order->Child("Customer")->Child("BillingAddress")->Set("Latitude", 50.75);
        return order;
    }
    int Records() {
        int count = 0;
        for (const std::string& table : TablesOfTheScript())
            count += std::stoi(Value("SELECT count(*) FROM " + table));
        return count;
    }

    const std::shared_ptr<objects::Definition> m_definition = OrdersDefinition();
    Journal m_messages = std::make_shared<std::vector<std::string>>();
    std::shared_ptr<clsCRUD> m_crud;
};

TEST_F(OraclePersistence, ATreeIsSavedLoadedUpdatedAndDeletedAndTheDropsLeaveNothing) {
    ASSERT_EQ(m_crud->DbSaveData(NewOrder()), 1);
    const int records = Records();
    EXPECT_GT(records, 15);
    const auto saved = NewOrder();
    ASSERT_EQ(m_crud->DbSaveData(saved), 2);
    EXPECT_EQ(m_crud->LastResult(), dbNoError);
    EXPECT_EQ(Records(), 2 * records);

    ExpectStored(2, *saved);
    const auto order = Load(2);
    EXPECT_EQ(order->Child("Lines")->Items()[2]->Get("OrderLineID"), automation::Variant(6));

    const auto lines = order->Child("Lines");
    lines->Items()[0]->Set("TaxCode", "X");
    lines->Items()[1]->Child("Product")->Set("Title", "new");
    lines->Remove(2);
    lines->Add()->Set("LineNumber", 4);
    order->Set("Notes", "shorter");
    EXPECT_EQ(m_crud->DbUpdateData(order), 2);
    EXPECT_EQ(lines->Items()[2]->Get("OrderLineID"), automation::Variant(7));
    ExpectStored(2, *order);
    order->Set("OrderNumber", "B-2");
    EXPECT_EQ(m_crud->DbUpdateDataRetainRoot(order, 2), 2);
    ExpectStored(2, *order);

    EXPECT_EQ(m_crud->DbDeleteData(order, 2), 2);
    EXPECT_FALSE(m_crud->DbDataExists(order, 2));
    EXPECT_EQ(Records(), records);
    EXPECT_EQ(m_crud->DbDeleteData(order, 1), 1);
    EXPECT_EQ(Records(), 0);
    EXPECT_THAT(*m_messages, testing::IsEmpty());

    m_crud->DisconnectDB();
    Apply("OraFKDel.sql");
    Apply("OraDel.sql");
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace korvex::tests
