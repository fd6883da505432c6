#include "persistence/order_model.h"

namespace korvex::tests {
namespace {

/// What an update sends for a change of a stored tree.
class Updates : public CrudTest {
  protected:
    std::string Update(const DataRef& order) {
        EXPECT_EQ(crud->DbUpdateData(order), 1);
        EXPECT_EQ(crud->LastResult(), dbNoError);
        std::string log = database.TakeLog();
        EXPECT_EQ(crud->DbUpdateData(order), 1);
        EXPECT_EQ(crud->LastResult(), dbObjectNotModified) << "Modified must read False all over";
        EXPECT_EQ(database.TakeLog(), "select * from tOrder where OrderID=1; Close");
        return log;
    }
    static DataRef Line(const DataRef& order, std::size_t position) {
        return order->Child("Lines")->Items().at(position);
    }
};

constexpr auto Root = "select * from tOrder where OrderID=1; ";
constexpr auto Lines = "\nselect * from tLine where FK_LinesID=1; Close";

TEST_F(Updates, OnlyColumnsThatDifferAreSent) {
    const auto order = StoredOrder();
    order->Set("Note", "urgent indeed, by all means");  // more than the column takes
    order->Set("Count", 0);
    order->Set("Count", 2);  // as it was
    order->Set("Remarks", "at greater length");
    order->LongAttribute(attCounter, 5);
    EXPECT_EQ(Update(order), std::string(Root) +
                                 "Note = 'urgent ind'; Remarks chunk of 9; Remarks << 'at greater length'; "
                                 "Photo chunk of 3; QORCounter = 5; Update; Close" +
                                 Lines);
}

TEST_F(Updates, AModifiedFlagAloneSendsNothing) {
    const auto order = LoadedOrder((StoredOrder(), 1));
    order->Modified(true);
    Line(order, 0)->Modified(true);
    EXPECT_THAT(Update(order),
                testing::Not(testing::AnyOf(testing::HasSubstr(" = "), testing::HasSubstr("<<"),
                                            testing::HasSubstr("Update"))));
}

TEST_F(Updates, BlanksEqualWhatBlanksAreStoredAs) {
    const auto order = std::make_shared<DataObject>(OrderDefinition());
    crud->DbSaveData(order);
    database.TakeLog();
    order->Modified(true);
    EXPECT_THAT(Update(order), testing::StartsWith(std::string(Root) + "Close"));
    order->Set("Note", "x");
    Update(order);
    order->Set("Note", Variant::Null());
    EXPECT_THAT(Update(order), testing::StartsWith(std::string(Root) + "Note = ''; Update; Close"));
}

TEST_F(Updates, ChildrenAndElementsAreUpdatedSavedAndDeleted) {
    const auto order = StoredOrder();
    order->Child("Customer")->Set("Name", "Bob");
    order->Child("Lines")->Remove(0);
    Line(order, 0)->Child("Product")->Set("Title", "Bolts");
    AddLine(*order, "C3", "Cog");
    EXPECT_EQ(
        Update(order),
        std::string(Root) +
            "Close\n"
            "select * from tCustomer where CustomerID=1; Name = 'Bob'; Update; Close\n"
            "select * from tLines where LinesID=1; Close"  // it lost and gained elements
            + Lines +
            "\n"
            "select * from tLine where LineID=1; Close\n"
            "select * from tProduct where FK_LineID=1; Close\n"
            "delete from tProduct where FK_LineID=1\n"
            "delete from tLine where LineID=1\n"
            "select * from tProduct where ProductID=2; Title = 'Bolts'; Update; Close\n"
            "select * from tLine; AddNew; FK_LinesID = 1; Sku = 'C3'; QORSelectState = 0; QORCounter = 0; "
            "Update; Close\n"
            "select * from tProduct; AddNew; FK_LineID = 3; Title = 'Cog'; QORSelectState = 0; "
            "QORCounter = 0; Update; Close");
    EXPECT_EQ(Rows("tLine"), "2 1 'B2' 0 0\n3 1 'C3' 0 0\n");
    EXPECT_EQ(Rows("tProduct"), "2 2 'Bolts' 0 0\n3 3 'Cog' 0 0\n");
}

TEST_F(Updates, AnObjectBuiltAnewTakesOverTheStoredTree) {
    StoredOrder();
    const auto order = NewOrder();  // carries no keys at all
    order->Child("Customer")->Set("Name", "Eve");
    EXPECT_EQ(crud->DbUpdateData(order, 1), 1);
    EXPECT_EQ(Rows("tCustomer"), "1 1 'Eve' 0 0\n");
    EXPECT_EQ(Rows("tLines"), "1 1 0 0\n");
    EXPECT_EQ(Rows("tLine"), "3 1 'A1' 0 0\n4 1 'B2' 0 0\n");
    EXPECT_EQ(Rows("tProduct"), "3 3 'Anchor' 0 0\n4 4 'Bolt' 0 0\n");
    EXPECT_EQ(order->Get("OrderID"), Variant(1));
    EXPECT_EQ(Line(order, 1)->Get("FK_LinesID"), Variant(1));
}

TEST_F(Updates, RecordsOutsideTheStoredTreeAreNeverTouched) {
    const auto first = StoredOrder();
    const auto second = StoredOrder();
    const std::string before = Rows("tCustomer") + Rows("tLine").substr(0, Rows("tLine").find("3 2"));
    first->Child("Customer")->Set("Name", "Twin");
    EXPECT_EQ(crud->DbUpdateData(first, 2), 2);  // the tree of order 1 over that of order 2
    EXPECT_EQ(Rows("tCustomer"), "1 1 'Ann' 0 0\n2 2 'Twin' 0 0\n");
    EXPECT_EQ(Rows("tLine"), "1 1 'A1' 0 0\n2 1 'B2' 0 0\n5 2 'A1' 0 0\n6 2 'B2' 0 0\n");
    EXPECT_EQ(first->Get("OrderID"), Variant(2));
}

TEST_F(Updates, ARootKeepsItsParentUnlessItNamesAnother) {
    StoredOrder();
    const auto line =
        std::make_shared<DataObject>(OrderDefinition()->FindValue("Lines")->Child()->ElementDefinition());
    line->Set("Sku", "Z");
    EXPECT_EQ(crud->DbUpdateData(line, 2), 2);
    EXPECT_EQ(Rows("tLine"), "1 1 'A1' 0 0\n2 1 'Z' 0 0\n");
    line->Set("FK_LinesID", 7);
    EXPECT_EQ(crud->DbUpdateData(line, 1, "LineID"), 1);
    EXPECT_EQ(Rows("tLine"), "1 7 'Z' 0 0\n2 1 'Z' 0 0\n");
}

TEST_F(Updates, AnotherColumnMaySelectTheRecord) {
    const auto order = StoredOrder();
    order->Set("Count", 2);
    order->Set("Note", "new");
    EXPECT_EQ(crud->DbUpdateData(order, Variant::Missing(), "Count"), 1);
    EXPECT_THAT(database.TakeLog(), testing::StartsWith("select * from tOrder where Count=2; Note = 'new';"));
}

TEST_F(Updates, RetainRootReplacesWhatStandsBeneath) {
    const auto order = LoadedOrder((StoredOrder(), 1));
    order->Set("Note", "kept key");
    Line(order, 0)->Set("Sku", "A1x");
    EXPECT_EQ(crud->DbUpdateDataRetainRoot(order, 1), 1);
    EXPECT_EQ(crud->LastResult(), dbNoError);
    const std::string log = database.TakeLog();
    EXPECT_THAT(log, testing::StartsWith("select * from tOrder where OrderID=1; Note = 'kept key';"));
    EXPECT_EQ(Rows("tOrder"), "1 'kept key' 2 'at length' <3 bytes> 0 0\n");
    EXPECT_EQ(Rows("tCustomer"), "2 1 'Ann' 0 0\n");
    EXPECT_EQ(Rows("tLine"), "3 2 'A1x' 0 0\n4 2 'B2' 0 0\n");
    EXPECT_EQ(Rows("tProduct"), "3 3 'Anchor' 0 0\n4 4 'Bolt' 0 0\n");
    EXPECT_EQ(crud->DbUpdateData(order), 1);
    EXPECT_EQ(crud->LastResult(), dbObjectNotModified);
}

TEST_F(Updates, ATableThatDoesNotOpenFailsTheUpdate) {
    const auto order = StoredOrder();
    order->Child("Customer")->Set("Name", "Bob");
    database.tables.erase("tCustomer");
    EXPECT_EQ(crud->DbUpdateData(order), 0);
    EXPECT_EQ(crud->LastResult(), dbCannotOpenRecordset);
    EXPECT_EQ(crud->DbUpdateDataRetainRoot(order, 1), 0);
    EXPECT_EQ(crud->LastResult(), dbCannotOpenRecordset);
}

}  // namespace
}  // namespace korvex::tests
