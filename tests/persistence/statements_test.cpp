#include "persistence/order_model.h"

namespace korvex::tests {
namespace {

/// The exact statements, and what is done with their records, in order.
class Statements : public CrudTest {};

TEST_F(Statements, SaveWritesTheParentBeforeWhatStandsBeneathIt) {
    const auto order = NewOrder();
    EXPECT_EQ(crud->DbSaveData(order), 1);
    EXPECT_EQ(
        database.TakeLog(),
        "select * from tOrder; AddNew; Note = 'urgent'; Count = 2; Remarks << 'at length'; Photo << <3 "
        "bytes>; "
        "QORSelectState = 0; QORCounter = 0; Update; Close\n"
        "select * from tCustomer; AddNew; FK_OrderID = 1; Name = 'Ann'; QORSelectState = 0; QORCounter = 0; "
        "Update; Close\n"
        "select * from tLines; AddNew; FK_OrderID = 1; QORSelectedItem = 0; QORCounterHolder = 0; Update; "
        "Close\n"
        "select * from tLine; AddNew; FK_LinesID = 1; Sku = 'A1'; QORSelectState = 0; QORCounter = 0; "
        "Update; "
        "Close\n"
        "select * from tProduct; AddNew; FK_LineID = 1; Title = 'Anchor'; QORSelectState = 0; QORCounter = "
        "0; "
        "Update; Close\n"
        "select * from tLine; AddNew; FK_LinesID = 1; Sku = 'B2'; QORSelectState = 0; QORCounter = 0; "
        "Update; "
        "Close\n"
        "select * from tProduct; AddNew; FK_LineID = 2; Title = 'Bolt'; QORSelectState = 0; QORCounter = 0; "
        "Update; Close");
    EXPECT_EQ(crud->LastResult(), dbNoError);

    const auto line = order->Child("Lines")->Items().at(1);
    EXPECT_EQ(order->Get("OrderID"), Variant(1));
    EXPECT_EQ(line->Get("LineID"), Variant(2));
    EXPECT_EQ(line->Get("FK_LinesID"), Variant(1));
    EXPECT_EQ(line->Child("Product")->Get("FK_LineID"), Variant(2));
    for (const auto& saved : {order, order->Child("Customer"), order->Child("Lines"), line})
        EXPECT_FALSE(saved->Modified()) << saved->Type().Name();
}

TEST_F(Statements, LoadReadsTheTreeThroughForeignKeysAndElementsByTheirOwn) {
    StoredOrder();
    const auto order = std::make_shared<DataObject>(OrderDefinition());
    EXPECT_EQ(crud->DbGetData(order, 1), 1);
    EXPECT_EQ(database.TakeLog(),
              "select * from tOrder where OrderID=1; Remarks chunk of 9; Photo chunk of 3; Close\n"
              "select * from tCustomer where FK_OrderID=1; Close\n"
              "select * from tLines where FK_OrderID=1; Close\n"
              "select * from tLine where FK_LinesID=1; Close\n"
              "select * from tLine where LineID=1; Close\n"
              "select * from tProduct where FK_LineID=1; Close\n"
              "select * from tLine where LineID=2; Close\n"
              "select * from tProduct where FK_LineID=2; Close");
    EXPECT_EQ(crud->LastResult(), dbNoError);
    EXPECT_EQ(order->Child("Customer")->Get("Name"), Variant("Ann"));
    EXPECT_EQ(order->Child("Lines")->Items().at(1)->Child("Product")->Get("Title"), Variant("Bolt"));
    EXPECT_FALSE(order->Modified());
}

TEST_F(Statements, DeleteGoesDepthFirst) {
    StoredOrder();
    EXPECT_EQ(crud->DbDeleteData(std::make_shared<DataObject>(OrderDefinition()), 1), 1);
    EXPECT_EQ(database.TakeLog(),
              "select * from tOrder where OrderID=1; Close\n"
              "select * from tCustomer where FK_OrderID=1; Close\n"
              "delete from tCustomer where FK_OrderID=1\n"
              "select * from tLines where FK_OrderID=1; Close\n"
              "select * from tLine where FK_LinesID=1; Close\n"
              "select * from tLine where LineID=1; Close\n"
              "select * from tProduct where FK_LineID=1; Close\n"
              "delete from tProduct where FK_LineID=1\n"
              "delete from tLine where LineID=1\n"
              "select * from tLine where LineID=2; Close\n"
              "select * from tProduct where FK_LineID=2; Close\n"
              "delete from tProduct where FK_LineID=2\n"
              "delete from tLine where LineID=2\n"
              "delete from tLines where FK_OrderID=1\n"
              "delete from tOrder where OrderID=1");
    EXPECT_EQ(crud->LastResult(), dbNoError);
    for (const auto& [name, table] : database.tables)
        EXPECT_TRUE(table.rows.empty()) << name;
}

TEST_F(Statements, KeyClauseIsTightForObjectsAndSpacedForFields) {
    auto order = StoredOrder();
    Variant value;
    EXPECT_TRUE(crud->DbDataExists(order));
    EXPECT_FALSE(crud->DbDataExists(order, "7"));
    EXPECT_EQ(crud->LastResult(), dbNoError);
    EXPECT_TRUE(crud->DbGetField(1, "OrderID", "tOrder", "Note", value));
    EXPECT_EQ(value, Variant("urgent"));
    EXPECT_TRUE(crud->DbSaveField(1.0, "OrderID", "tOrder", "Note", "later"));
    EXPECT_EQ(database.TakeLog(),
              "select * from tOrder where OrderID=1; Close\n"
              "select * from tOrder where OrderID=7; Close\n"
              "select * from tOrder where OrderID = 1; Close\n"
              "select * from tOrder where OrderID = 1; Note = 'later'; Update; Close");
}

TEST_F(Statements, FieldsPassOverWhatTheyTrap) {
    StoredOrder();
    Variant value = "untouched";
    for (const char* unknown : {"Nowhere", "No'where"}) {
        EXPECT_FALSE(crud->DbGetField(1, "OrderID", "tOrder", unknown, value));
        EXPECT_EQ(value, Variant("untouched"));
        EXPECT_FALSE(crud->DbSaveField(1, "OrderID", "tOrder", unknown, 1));
    }
    EXPECT_FALSE(crud->DbSaveField(1, "OrderID", "tOrder", "Count", ""));  // refused: no update follows
    EXPECT_EQ(crud->LastResult(), dbNoError);
    database.FailAt(3);  // statement, value, update
    EXPECT_TRUE(crud->DbSaveField(1, "OrderID", "tOrder", "Count", 5));
    EXPECT_EQ(crud->LastResult(), dbNoError);
    database.FailAt(2);  // statement, close
    EXPECT_FALSE(crud->DbSaveField(9, "OrderID", "tOrder", "Count", 5));
    EXPECT_EQ(crud->LastResult(), dbNoMatchingRecord);
}

TEST_F(Statements, BlankLongAndOverlongValues) {
    auto order = std::make_shared<DataObject>(OrderDefinition());
    order->Set("Note", "\xF0\x9F\x98\x80 and nine more");  // a character of two UTF-16 units first
    order->Set("Count", Variant::Null());
    order->Set("Remarks", "");
    order->LongAttribute(attCounter, 7);
    order->IntegerAttribute(attSelectState, -3);
    crud->DbSaveData(order);
    const std::string log = database.TakeLog();
    EXPECT_EQ(log.substr(0, log.find('\n')),
              "select * from tOrder; AddNew; Note = '\xF0\x9F\x98\x80 and nin'; Count refuses ''; Count = 0; "
              "Remarks = ''; Photo = ''; QORSelectState = -3; QORCounter = 7; Update; Close");

    // A long value that is empty is no chunk; state that is Null leaves the object's alone.
    database.tables.at("tOrder").rows.at(0).back() = Variant::Null();
    database.TakeLog();
    const auto loaded = std::make_shared<DataObject>(OrderDefinition());
    loaded->LongAttribute(attCounter, 9);
    EXPECT_EQ(crud->DbGetData(loaded, 1), 1);
    EXPECT_THAT(database.TakeLog(), testing::StartsWith("select * from tOrder where OrderID=1; Close"));
    EXPECT_EQ(loaded->LongAttribute(attCounter), 9);
    EXPECT_EQ(loaded->IntegerAttribute(attSelectState), -3);
    EXPECT_EQ(loaded->Get("Count"), Variant(0));

    database.tables.at("tOrder").rows.at(0)[5] = 40'000;
    EXPECT_THROW(crud->DbGetData(loaded, 1), automation::Error);  // more than 16 bits hold
}

TEST_F(Statements, AChildIsSavedUnderItsOwnOrItsParentsKey) {
    const auto order = StoredOrder();
    const auto saveLine = [&](const Variant& foreignKey) {
        const auto line = order->Child("Lines")->Add();
        line->Set("FK_LinesID", foreignKey);
        crud->DbSaveData(line);
        return Show(database.tables.at("tLine").rows.back()[1]);
    };
    EXPECT_EQ(saveLine(5), "5");
    EXPECT_EQ(saveLine({}), "1");
    EXPECT_EQ(saveLine(Variant::Null()), "1");
    EXPECT_EQ(saveLine(0), "1");

    // A prefix found elsewhere still cuts that many characters from the left; none leaves the name whole.
    const auto customer = order->Child("Customer");
    const auto saveCustomer = [&](const char* prefix) {
        crud->FKPrefix(prefix);
        customer->Set("FK_OrderID", {});
        crud->DbSaveData(customer);
    };
    saveCustomer("Ord");
    EXPECT_EQ(customer->Get("FK_OrderID"), Variant(1));
    EXPECT_EQ(ErrorOf([&] { saveCustomer(""); }).description,
              "The object Order has no value that is stored in column \"FK_OrderID\".");
}

}  // namespace
}  // namespace korvex::tests
