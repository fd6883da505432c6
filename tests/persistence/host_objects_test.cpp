#include "persistence/host_objects.h"

#include "persistence/order_model.h"

namespace korvex::tests {
namespace {

/// Objects of a host whose value definitions say nothing of the child objects.
class HostObjects : public CrudTest {
  protected:
    static QORObject::Ref Hosted(const DataRef& object) { return std::make_shared<HostObject>(object); }
    std::string Left() {
        std::string left;
        for (const auto& [name, table] : database.tables)
            if (!table.rows.empty()) left += name + " ";
        return left;
    }
};

TEST_F(HostObjects, WhatStandsBeneathElementsIsDeletedOrNothingIs) {
    automation::ObjectRef none;
    auto made = std::make_shared<HostObject>();
    const struct {
        const char* name;
        std::function<automation::ObjectRef()> factory;
        QORObject::Ref carrier;
        std::int32_t error;
        std::string left;
    } cases[] = {
        {"its own working object", [&] { return made; }, Hosted(NewOrder()), 0, ""},
        {"none", {}, Hosted(NewOrder()), automation::InvalidProcedureCall, "tLine tLines tOrder tProduct "},
        {"a factory that makes nothing", [&] { return none; }, Hosted(NewOrder()),
         automation::InvalidProcedureCall, "tLine tLines tOrder tProduct "},
        {"one that takes no definition", [&] { return std::make_shared<HostDefinition>(made); },
         Hosted(NewOrder()), automation::InvalidProcedureCall, "tLine tLines tOrder tProduct "},
        {"a child that is not included",
         {},
         Hosted(std::make_shared<DataObject>(OrderDefinition(false))),
         0,
         "tProduct "},
        {"one that refuses the definition", [&] { return made; }, NewOrder(), 0, ""},
        {"value definitions that answer for the child", {}, NewOrder(), 0, ""},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        OrderWorld world;
        world.StoredOrder();
        std::swap(world.database.tables, database.tables);
        platform.newDataObject = test.factory;
        crud = std::make_shared<clsCRUD>(platform);
        crud->ConnectDB("memory");
        const auto raised = ErrorOf([&] { EXPECT_EQ(crud->DbDeleteData(test.carrier, 1), 1); });
        EXPECT_EQ(raised, test.error);
        if (test.error != 0) {
            EXPECT_THAT(raised.description, testing::HasSubstr("\"Product\""));
        }
        EXPECT_EQ(Left(), test.left);
        EXPECT_EQ(made->DataDef(), nullptr);
    }
}

TEST_F(HostObjects, AnUpdateThatCannotDeleteEndsWithTheSameError) {
    const auto order = StoredOrder();
    order->Child("Lines")->Remove(0);
    EXPECT_EQ(ErrorOf([&] { crud->DbUpdateData(Hosted(order)); }), automation::InvalidProcedureCall);
    EXPECT_EQ(Rows("tLine") + Rows("tProduct"),
              "1 1 'A1' 0 0\n2 1 'B2' 0 0\n1 1 'Anchor' 0 0\n2 2 'Bolt' 0 0\n");
}

}  // namespace
}  // namespace korvex::tests
