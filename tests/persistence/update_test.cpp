#include "persistence/host_objects.h"
#include "persistence/order_model.h"

#include <algorithm>
#include <functional>

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

    // A list that was never touched says nothing; an empty one that was set says that there are no lines.
    const auto bare = std::make_shared<DataObject>(OrderDefinition());
    bare->Set("Note", "bare");
    EXPECT_EQ(crud->DbUpdateData(bare, 1), 1);
    EXPECT_EQ(LineTexts(), "3 A1, 4 B2");
    const auto empty = std::make_shared<DataObject>(OrderDefinition());
    empty->Child("Lines")->Replace({});
    EXPECT_EQ(crud->DbUpdateData(empty, 1), 1);
    EXPECT_EQ(LineTexts(), "");
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
    line->Set("FK_LinesID", 0);  // the key of another record's line: it says nothing of this one's parent
    EXPECT_EQ(crud->DbUpdateData(line, 2), 2);
    EXPECT_EQ(Rows("tLine"), "1 7 'Z' 0 0\n2 1 'Z' 0 0\n");
    for (const Variant& noParent : {Variant(0), Variant::Null()}) {
        line->Set("FK_LinesID", 7);
        crud->DbUpdateData(line);
        line->Set("FK_LinesID", noParent);
        EXPECT_EQ(crud->DbUpdateData(line), 2);
        EXPECT_EQ(Rows("tLine"), "1 7 'Z' 0 0\n2 Null 'Z' 0 0\n");
    }
}

/// Two clients have the same order of lines 1 and 2 loaded; B changes it before A does.
TEST_F(Updates, WhatAnotherClientDidToAListStaysUnlessTheListChanged) {
    using Change = std::function<void(DataObject&)>;
    const Change none = [](DataObject&) {};
    const Change note = [](DataObject& order) { order.Set("Note", "new"); };
    const Change removeFirst = [](DataObject& order) { order.Child("Lines")->Remove(0); };
    const Change add = [](DataObject& order) { AddLine(order, "N", "Nut"); };
    const Change changeFirst = [&](DataObject& order) {
        order.Child("Lines")->Items()[0]->Set("Sku", "x");
        note(order);
    };
    const Change changeBeneathFirst = [](DataObject& order) {
        order.Child("Lines")->Items()[0]->Child("Product")->Set("Title", "x");
    };
    const Change state = [](DataObject& order) { order.Child("Lines")->LongAttribute(attSelectedItem, 2); };
    const Change addUnnoticed = [&](DataObject& order) {
        add(order);
        note(order);
        order.Child("Lines")->Modified(false);
    };
    const struct {
        const char* name;
        Change byB, byA;
        dbResults code;
        const char* lines;
        bool isHosted = false;
    } cases[] = {
        {"added, list as it was", add, note, dbNoError, "1 A1, 2 B2, 3 N"},
        {"added, an element changed", add, changeFirst, dbNoError, "1 x, 2 B2, 3 N"},
        {"added, only state of the list", add, state, dbNoError, "1 A1, 2 B2, 3 N"},
        {"added, element taken out", add, removeFirst, dbNoError, "2 B2"},
        {"added, element added", add, add, dbNoError, "1 A1, 2 B2, 4 N"},
        {"deleted, list as it was", removeFirst, note, dbNoError, "2 B2"},
        {"deleted, nothing changed", removeFirst, none, dbObjectNotModified, "2 B2"},
        {"deleted, the same one changed", removeFirst, changeFirst, dbNoMatchingRecord, "2 B2"},
        {"deleted, changed beneath it", removeFirst, changeBeneathFirst, dbNoMatchingRecord, "2 B2"},
        {"deleted, the same one taken out", removeFirst, removeFirst, dbNoError, "2 B2"},
        {"deleted, element added", removeFirst, add, dbNoError, "2 B2, 3 A1, 4 N"},
        {"deleted, new element in a list that does not know it", removeFirst, addUnnoticed, dbNoError,
         "2 B2, 3 N"},
        {"host: added, list as it was", add, note, dbNoError, "1 A1, 2 B2, 3 N", true},
        {"host: added, collection modified", add, state, dbNoError, "1 A1, 2 B2", true},
        {"host: deleted, the same one changed", removeFirst, changeFirst, dbNoMatchingRecord, "2 B2", true},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        OrderWorld world;
        world.platform.newDataObject = [] { return std::make_shared<HostObject>(); };
        const auto clientA = std::make_shared<clsCRUD>(world.platform);
        clientA->ConnectDB("A");
        const auto stored = world.StoredOrder();
        const auto orderOfA = std::make_shared<DataObject>(OrderDefinition());
        clientA->DbGetData(orderOfA, 1);
        test.byB(*stored);
        EXPECT_EQ(world.crud->DbUpdateData(stored), 1);
        test.byA(*orderOfA);
        const QORObject::Ref given =
            test.isHosted ? QORObject::Ref(std::make_shared<HostObject>(orderOfA)) : orderOfA;
        const bool isLost = test.code == dbNoMatchingRecord;
        for (int i = 0; i < (isLost ? 2 : 1); ++i) {  // what was not written stays Modified
            EXPECT_EQ(clientA->DbUpdateData(given, 1), isLost ? 0 : 1);
            EXPECT_EQ(clientA->LastResult(), test.code);
        }
        EXPECT_EQ(world.LineTexts(), test.lines);
        EXPECT_EQ(world.database.openRecordsets, 0);
        if (orderOfA->Get("Note") == Variant("new")) {
            EXPECT_THAT(world.Rows("tOrder"), testing::HasSubstr("'new'")) << "the rest is written";
        }
    }
}

TEST_F(Updates, ElementsThatWereLoadedTwiceAreStoredOnce) {
    const struct {
        std::function<void(DataObject&)> change;
        const char* lines;
    } cases[] = {
        {[](DataObject& order) { order.Set("Note", "new"); }, "1 A1, 2 B2"},
        {[](DataObject& order) { order.Child("Lines")->Items()[0]->Set("Sku", "x"); }, "1 x, 2 B2"},
        {[](DataObject& order) { order.Child("Lines")->Items()[2]->Set("Sku", "x"); }, "1 x, 2 B2"},
        {[](DataObject& order) { AddLine(order, "N", "Nut"); }, "1 A1, 2 B2, 3 N"},
        {[](DataObject& order) { order.Child("Lines")->Remove(0); }, "1 A1, 2 B2"},
        {[](DataObject& order) {
             order.Child("Lines")->Remove(2);
             order.Child("Lines")->Remove(0);
         },
         "2 B2"},
    };
    for (const auto& test : cases) {
        OrderWorld world;
        const auto order = world.LoadedOrder((world.StoredOrder(), 1));
        world.crud->DbGetData(order, 1);
        ASSERT_EQ(order->Child("Lines")->Items().size(), 4U);
        test.change(*order);
        EXPECT_EQ(world.crud->DbUpdateData(order), 1);
        EXPECT_EQ(world.crud->LastResult(), dbNoError);
        EXPECT_EQ(world.LineTexts(), test.lines);

        world.crud->DbGetData(order, 1);
        EXPECT_EQ(world.crud->DbUpdateDataRetainRoot(order, 1), 1);
        EXPECT_EQ(std::ranges::count(world.LineTexts(), ','),
                  std::ranges::count(std::string(test.lines), ','));
    }
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
    EXPECT_EQ(Rows("tLine"), "") << "nothing is saved where the old could not be deleted";
}

}  // namespace
}  // namespace korvex::tests
