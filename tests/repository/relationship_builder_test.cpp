#include "repository/relationship_builder.h"

#include "repository_files.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <functional>
#include <future>
#include <string>
#include <vector>

namespace korvex::repository {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// All rows after the relationships of NewOrders were built. The address is reached by way of the order
/// first, and named by the second way.
constexpr const char* OrdersRelated = R"(tDataDefs Orders|1
tObjects 1|Customer|0|tCustomer|-1|{1}
tObjects 2|Orders|3|tOrders|-1|{2}
tObjects 3|Order|0|tOrder|-1|{3}
tObjects 4|Address|0|tAddress2|-1|{4}
tInterfaces 1|ICustomer
tInterfaces 2|IOrders
tInterfaces 3|IOrder
tInterfaces 4|IAddress
tInterfaces 5|CustomerDBKeys
tInterfaces 6|OrdersDBKeys
tInterfaces 7|OrderDBKeys
tInterfaces 8|AddressDBKeys
tObjectInterfaces 1|1
tObjectInterfaces 1|5
tObjectInterfaces 2|2
tObjectInterfaces 2|6
tObjectInterfaces 3|3
tObjectInterfaces 3|7
tObjectInterfaces 4|4
tObjectInterfaces 4|8
tValues 1|1|0|Name|Name|8|40|0|-|-1|0|-|-|-|-|-|1|-|-|-
tValues 2|1|2|Orders|-|9|-|0|-|0|0|-|-|-|-|-|2|-|-|-
tValues 3|1|4|Address|-|9|-|0|-|0|0|-|-|-|-|-|3|-|-|-
tValues 4|3|0|Amount|Amount|6|0|0|-|-1|0|-|-|-|-|-|4|-|-|-
tValues 5|3|4|Delivery|-|9|-|0|-|0|0|-|-|-|-|-|5|-|-|-
tValues 6|4|0|Street|Street|8|60|0|-|-1|0|-|-|-|-|-|6|-|-|-
tValues 7|5|0|CustomerID|CustomerID|3|0|-1|-|-1|-1|Primary key of Customer, assigned by the database.|Customer ID|Customer ID|2147483647|1|10001|-|-|-
tValues 8|6|0|OrdersID|OrdersID|3|0|-1|-|-1|-1|Primary key of Orders, assigned by the database.|Orders ID|Orders ID|2147483647|1|10001|-|-|-
tValues 9|6|0|FK_CustomerID|FK_CustomerID|3|0|0|-|-1|-1|Foreign key of Orders to its parent Customer.|Customer ID|Customer ID|2147483647|1|10002|-|-|-
tValues 10|7|0|OrderID|OrderID|3|0|-1|-|-1|-1|Primary key of Order, assigned by the database.|Order ID|Order ID|2147483647|1|10001|-|-|-
tValues 11|7|0|FK_OrdersID|FK_OrdersID|3|0|0|-|-1|-1|Foreign key of Order to its parent Orders.|Orders ID|Orders ID|2147483647|1|10002|-|-|-
tValues 12|8|0|AddressID|AddressID|3|0|-1|-|-1|-1|Primary key of Address, assigned by the database.|Address ID|Address ID|2147483647|1|10001|-|-|-
tValues 13|8|0|FK_OrderID|FK_OrderID|3|0|0|-|-1|-1|Foreign key of Address to its parent Order.|Order ID|Order ID|2147483647|1|10002|-|-|-
tValues 14|8|0|FK_CustomerID|FK_CustomerID|3|0|0|-|-1|-1|Foreign key of Address to its parent Customer.|Customer ID|Customer ID|2147483647|1|10003|-|-|-
tPrimaryKeys 1|7|1
tPrimaryKeys 2|8|1
tPrimaryKeys 3|10|1
tPrimaryKeys 4|12|1
tForeignKeys 2|9|1|7|{1}
tForeignKeys 3|11|2|8|{2}
tForeignKeys 4|13|3|10|{3}
tForeignKeys 4|14|1|7|{1}
)";

class RelationshipBuilderTest : public RepositoryFileTest {
  protected:
    /// A customer with orders (a collection of order objects) and an address that the orders have as well.
    void NewOrders() {
        NewRepository()
            .Definition("Orders", 1)
            .Object(1, "Customer")
            .Object(2, "Orders", 3)
            .Object(3, "Order")
            .Object(4, "Address")
            .Value(1, "Name", 8, "40")
            .Child(1, "Orders", 2)
            .Child(1, "Address", 4)
            .Value(3, "Amount", 6)
            .Child(3, "Delivery", 4)
            .Value(4, "Street", 8, "60");
    }

    std::vector<std::string> Tables() const {
        return Rows("select ObjectID, TableName from tObjects where IsIncluded <> 0 order by ObjectID",
                    {"ObjectID", "TableName"});
    }
    /// "object: column -> referenced object.column"
    std::vector<std::string> References() const {
        std::vector<std::string> references = Rows(
            "select f.ObjectID, v.FieldName as OwnColumn, f.FKObjectID, k.FieldName as KeyColumn "
            "from tForeignKeys f join tValues v on v.ValueID = f.ValueID join tValues k on k.ValueID = "
            "f.FKValueID "
            "order by f.ObjectID, f.FKObjectID",
            {"ObjectID", "OwnColumn", "FKObjectID", "KeyColumn"});
        for (std::string& reference : references) {
            for (const char* separator : {": ", " -> ", "."}) {
                reference.replace(reference.find('|'), 1, separator);
            }
        }
        return references;
    }
    /// The columns of such values: "interface: column".
    std::vector<std::string> Columns(const std::string& condition) const {
        std::vector<std::string> columns = Rows(
            "select i.Name, v.FieldName from tValues v join tInterfaces i on i.InterfaceID = v.InterfaceID "
            "join tObjectInterfaces o on o.InterfaceID = v.InterfaceID "
            "where v.FieldName is not null and " +
                condition + " order by v.ValueID",
            {"Name", "FieldName"});
        for (std::string& column : columns)
            column.replace(column.find('|'), 1, ": ");
        return columns;
    }
    std::vector<std::string> KeyColumns() const { return Columns("v.VID > 10000"); }
};

TEST_P(RelationshipBuilderTest, WritesTablesColumnsAndKeysOnceHoweverOftenItRuns) {
    NewOrders();
    Relate("Orders");
    const std::string once = Dump();
    EXPECT_EQ(once, OrdersRelated);
    Relate("Orders");
    EXPECT_EQ(Dump(), once);
    EXPECT_THAT(*journal, IsEmpty());
}

TEST_P(RelationshipBuilderTest, ABackslashIsALetterOfAName) {
    NewRepository().Definition("\\new\\", 1).Object(1, "\\new\\", 2).Object(2, "a\\").Value(1, "\\n", 8);
    Relate("\\new\\");
    const std::string once = Dump();
    EXPECT_EQ(Rows("select Name from tInterfaces where InterfaceID > 2 order by InterfaceID", {"Name"}),
              (std::vector<std::string>{"\\new\\DBKeys", "a\\DBKeys"}));
    Relate("\\new\\", "F\\");
    Relate("\\new\\");
    EXPECT_EQ(Dump(), once);
    EXPECT_THAT(*journal, IsEmpty());
}

TEST_P(RelationshipBuilderTest, RunsAtOnceWaitForEachOther) {
    NewOrders();
    Relate();
    const std::string once = Dump();
    Execute("delete from tPrimaryKeys");
    Execute("delete from tForeignKeys");
    std::vector<std::future<void>> runs;
    for (int i = 0; i < 4; ++i)
        runs.push_back(std::async(std::launch::async, [this] { Relate(); }));
    for (std::future<void>& run : runs)
        EXPECT_NO_THROW(run.get());
    EXPECT_EQ(Dump(), once);
    EXPECT_THAT(*journal, IsEmpty());
}

TEST_P(RelationshipBuilderTest, MarksPlainValuesOnly) {
    NewRepository()
        .Definition("D", 1)
        .Object(1, "A")
        .Value(1, "Text", 8)
        .Value(1, "None", 13)
        .Value(1, "Nothing", 1)
        .Child(1, "Child", 99)
        .Value(1, "ANameThatIsLongerThanThirtyLetters", 3);
    Execute("update tValues set FieldName = 'Old'");
    const std::vector<std::string> columns = {"FieldName", "IsIncluded"};
    Relate();
    EXPECT_THAT(Rows("select * from tValues where InterfaceID = 1 order by ValueID", columns),
                ElementsAre("Text|-1", "Old|0", "Old|0", "Old|0", "eThatIsLongerThanThirtyLetters|-1"));
    Execute("update tValues set Name = 'Renamed' where Name = 'Text'");
    Relate();
    EXPECT_THAT(Rows("select * from tValues where ValueID = 1", columns), ElementsAre("Renamed|-1"));
}

TEST_P(RelationshipBuilderTest, NamesAreUniqueAndFitTheLimit) {
    const std::string forty = "AnObjectWhoseNameIsFortyCharactersLong40";
    NewRepository()
        .Definition("First", 1)
        .Definition("Second", 5)
        .Object(1, "Part")
        .Object(2, "Part")
        .Object(3, forty)
        .Object(4, forty)
        .Object(5, "Part")
        .Child(1, "a", 2)
        .Child(1, "b", 3)
        .Child(3, "c", 4);
    Relate();
    EXPECT_THAT(Tables(), ElementsAre("1|tPart", "2|tPart2", "3|tseNameIsFortyCharactersLong40",
                                      "4|teNameIsFortyCharactersLong402", "5|tPart3"));
    EXPECT_THAT(References(),
                ElementsAre("2: FK_PartID -> 1.PartID", "3: FK_PartID -> 1.PartID",
                            "4: FK_meIsFortyCharactersLong40ID -> 3.meIsFortyCharactersLong40ID"));
    // Each call starts from no names.
    Relate("Second");
    EXPECT_THAT(Rows("select * from tObjects where ObjectID = 5", {"TableName"}), ElementsAre("tPart"));
}

TEST_P(RelationshipBuilderTest, PreparesTheNamedDefinitionOnly) {
    NewRepository().Definition("First", 1).Definition("Second", 2).Object(1, "A").Object(2, "B");
    Relate("Second");
    EXPECT_THAT(Tables(), ElementsAre("2|tB"));
    Relate("Third");
    EXPECT_THAT(Tables(), ElementsAre("2|tB"));
    Relate();
    EXPECT_THAT(Tables(), ElementsAre("1|tA", "2|tB"));
}

TEST_P(RelationshipBuilderTest, AnObjectReachedTwiceIsNamedByItsLastWay) {
    NewRepository()
        .Definition("D", 1)
        .Object(1, "Order")
        .Object(2, "Address")
        .Child(1, "Billing", 2)
        .Child(1, "Delivery", 2);
    Relate();
    EXPECT_THAT(Tables(), ElementsAre("1|tOrder", "2|tAddress2"));
    EXPECT_THAT(References(), ElementsAre("2: FK_OrderID -> 1.OrderID"));
}

TEST_P(RelationshipBuilderTest, AnotherPrefixRenamesTheColumns) {
    const std::string longName = "CustomerOfTheWholesaleDepartment";
    NewRepository().Definition("D", 1).Object(1, longName).Object(2, "Order").Child(1, "Orders", 2);
    Relate();
    const std::size_t rows = Rows("select * from tValues", {"ValueID"}).size();
    EXPECT_THAT(References(),
                ElementsAre("2: FK_rOfTheWholesaleDepartmentID -> 1.rOfTheWholesaleDepartmentID"));
    Relate("", "Parent_");
    EXPECT_THAT(References(), ElementsAre("2: Parent_heWholesaleDepartmentID -> 1.heWholesaleDepartmentID"));
    Relate("", "");
    EXPECT_THAT(References(),
                ElementsAre("2: omerOfTheWholesaleDepartmentID -> 1.omerOfTheWholesaleDepartmentID"));
    EXPECT_EQ(Rows("select * from tValues", {"ValueID"}).size(), rows);
    EXPECT_EQ(Rows("select * from tForeignKeys", {"ValueID"}).size(), 1u);
}

TEST_P(RelationshipBuilderTest, KeysFollowARenamedObject) {
    NewRepository().Definition("D", 1).Object(1, "Customer").Object(2, "Order").Child(1, "Orders", 2);
    Relate();
    Execute("update tObjects set Name = 'Client' where ObjectID = 1");
    Relate();
    EXPECT_THAT(References(), ElementsAre("2: FK_ClientID -> 1.ClientID"));
    EXPECT_THAT(KeyColumns(),
                ElementsAre("ClientDBKeys: ClientID", "OrderDBKeys: OrderID", "OrderDBKeys: FK_ClientID"));
    Execute("update tObjects set Name = 'CLIENT' where ObjectID = 1");
    Relate();
    EXPECT_THAT(References(), ElementsAre("2: FK_CLIENTID -> 1.CLIENTID"));
    EXPECT_EQ(KeyColumns().size(), 3u);
}

TEST_P(RelationshipBuilderTest, GoesOnWhereKeysShareTheNameOfAColumn) {
    struct Case {
        const char* what;
        std::function<void(tests::DefinitionRepository&)> fill;
        const char* prefix;
        std::vector<std::string> columns;  ///< of the last object
        std::vector<std::string> references;
    };
    const Case cases[] = {
        {"value named as the own key",
         [](auto& r) { r.Object(1, "A").Value(1, "AID", 8); },
         "FK_",
         {"IA: AID", "ADBKeys: AID"},
         {}},
        {"value named as the foreign key, in another case",
         [](auto& r) { r.Object(1, "A").Object(2, "B").Child(1, "b", 2).Value(2, "fk_aid", 3); },
         "FK_",
         {"IB: fk_aid", "BDBKeys: BID", "BDBKeys: FK_AID"},
         {"2: FK_AID -> 1.AID"}},
        {"value of a root without a name",
         [](auto& r) { r.Object(1, "A").Value(1, "", 3); },
         "FK_",
         {"IA: ", "ADBKeys: AID"},
         {}},
        {"no prefix between namesakes",
         [](auto& r) { r.Object(1, "A").Object(2, "A").Child(1, "sub", 2); },
         "",
         {"ADBKeys: AID"},
         {"2: AID -> 1.AID"}},
        {"two parents of one name",
         [](auto& r) {
             r.Object(1, "R").Object(2, "A").Object(3, "A").Object(4, "B");
             r.Child(1, "a", 3).Child(1, "b", 2).Child(2, "n", 4).Child(3, "n", 4);
         },
         "FK_",
         {"BDBKeys: BID", "BDBKeys: FK_AID"},
         {"2: FK_RID -> 1.RID", "3: FK_RID -> 1.RID", "4: FK_AID -> 2.AID", "4: FK_AID -> 3.AID"}},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        path = places.New(std::string(test.what) + ".db");
        {
            auto repository = NewRepository();
            repository.Definition("D", 1);
            test.fill(repository);
        }
        Relate("", test.prefix);
        const std::string once = Dump();
        EXPECT_EQ(Columns("o.ObjectID = (select max(ObjectID) from tObjects)"), test.columns);
        EXPECT_EQ(References(), test.references);
        Relate("", test.prefix);
        EXPECT_EQ(Dump(), once);
    }
}

/// An order that objects of two definitions hold, with a reference of its own that has the number of a key.
TEST_P(RelationshipBuilderTest, KeysOfFormerParentsGo) {
    NewRepository()
        .Definition("D", 1)
        .Definition("E", 3)
        .Object(1, "Root")
        .Object(2, "Customer")
        .Object(3, "Other")
        .Object(4, "Order")
        .Value(4, "Own", 3)
        .Child(1, "Customer", 2)
        .Child(2, "c", 4)
        .Child(3, "o", 4);
    Execute("update tValues set VID = 10500 where Name = 'Own'");
    Relate();
    Execute(
        "insert into tForeignKeys (ObjectID, ValueID, FKObjectID, FKValueID) "
        "select 4, v.ValueID, 1, k.ValueID from tValues v, tValues k "
        "where v.Name = 'Own' and k.Name = 'RootID'");
    const struct {
        const char* change;
        const char* related;
        std::vector<std::string> references;  ///< of the order
        std::size_t columns;
    } steps[] = {
        {"update tObjects set Name = 'Other' where ObjectID = 2",
         "D",
         {"FK_OtherID -> 2.OtherID", "FK_OtherID -> 3.OtherID"},
         1},
        {"update tObjects set Name = 'Client' where ObjectID = 2",
         "D",
         {"FK_ClientID -> 2.ClientID", "FK_OtherID -> 3.OtherID"},
         2},
        {"update tValues set InterfaceID = 1 where Name = 'c'",
         "D",
         {"FK_RootID -> 1.RootID", "FK_OtherID -> 3.OtherID"},
         2},
        {"delete from tValues where Name = 'o'",
         "E",
         {"FK_RootID -> 1.RootID", "FK_OtherID -> 3.OtherID"},
         2},
        {"update tObjects set Guid = '{5}' where ObjectID = 1", "D", {"FK_RootID -> 1.RootID"}, 1},
        {"update tValues set ChildObjectID = 0, DataType = 13 where Name = 'c'",
         "D",
         {"FK_RootID -> 1.RootID"},
         1},
        {"update tDataDefs set RootObjectID = 4 where Storage = 'E'", "E", {}, 0},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.change);
        Execute(step.change);
        Relate(step.related);
        std::vector<std::string> expected = {"4: Own -> 1.RootID"};
        for (const std::string& reference : step.references)
            expected.push_back("4: " + reference);
        std::vector<std::string> references = References();
        std::erase_if(references, [](const std::string& text) { return !text.starts_with("4: "); });
        EXPECT_THAT(references, testing::UnorderedElementsAreArray(expected));
        EXPECT_EQ(Columns("o.ObjectID = 4 and v.FieldName like 'FK%'").size(), step.columns);
        const std::string once = Dump();
        Relate(step.related);
        EXPECT_EQ(Dump(), once);
    }
}

TEST_P(RelationshipBuilderTest, KeysTakeFreeNumbersWhereTheirRangeIsUsedUp) {
    NewRepository().Definition("D", 1).Object(1, "A").Object(2, "B").Value(1, "Last", 3).Child(1, "b", 2);
    Execute("update tValues set VID = 19999 where Name = 'Last'");
    Relate();
    Execute(
        "insert into tValues (InterfaceID, ChildObjectID, Name, DataType, VID) "
        "with recursive n (i) as (select 10003 union all select i + 1 from n where i < 19999) "
        "select InterfaceID, 0, 'Filler', 13, i from n, tInterfaces where Name = 'BDBKeys'");
    Execute("update tObjects set Name = 'Renamed' where ObjectID = 1");
    Execute("delete from tForeignKeys");
    Relate();
    const std::string once = Dump();
    EXPECT_THAT(Rows("select FieldName, VID from tValues where FieldName like '%ID' order by ValueID",
                     {"FieldName", "VID"}),
                ElementsAre("RenamedID|10001", "BID|10001", "FK_AID|10002", "FK_RenamedID|20000"));
    Relate();
    EXPECT_EQ(Dump(), once);
}

TEST_P(RelationshipBuilderTest, ReferencesAndKeysThatUsersModelledStay) {
    NewRepository()
        .Definition("D", 1)
        .Object(1, "Customer")
        .Object(2, "Order")
        .Value(1, "Number", 3)
        .Value(2, "CustomerNumber", 3)
        .Child(1, "Orders", 2);
    Execute("update tValues set VID = 10500, IsAutoNumber = -1 where Name = 'Number'");
    Execute("insert into tPrimaryKeys (ObjectID, ValueID, Seq) values (1, 1, 1)");
    Execute("insert into tForeignKeys (ObjectID, ValueID, FKObjectID, FKValueID) values (2, 2, 1, 1)");
    Relate();
    EXPECT_THAT(References(), testing::UnorderedElementsAre("2: CustomerNumber -> 1.Number",
                                                            "2: FK_CustomerID -> 1.CustomerID"));
    EXPECT_THAT(
        Rows("select v.FieldName, v.IsAutoNumber from tValues v where InterfaceID < 3 order by ValueID",
             {"FieldName", "IsAutoNumber"}),
        ElementsAre("Number|-1", "CustomerNumber|0", "-|0"));
    EXPECT_THAT(
        Rows("select v.FieldName from tPrimaryKeys p join tValues v on v.ValueID = p.ValueID order by "
             "p.ObjectID",
             {"FieldName"}),
        ElementsAre("CustomerID", "OrderID"));
}

TEST_P(RelationshipBuilderTest, AFailedQueryIsShownAndLeavesItsStepOut) {
    NewOrders();
    Execute("drop table tForeignKeys");
    Relate();
    EXPECT_THAT(*journal, testing::Each(testing::HasSubstr("tForeignKeys")));
    EXPECT_FALSE(journal->empty());
    EXPECT_THAT(Tables(), ElementsAre("1|tCustomer", "2|tOrders", "3|tOrder", "4|tAddress2"));
    EXPECT_EQ(Rows("select * from tPrimaryKeys", {"Seq"}).size(), 4u);
}

KORVEX_FOR_EACH_DRIVER(RelationshipBuilderTest);

}  // namespace
}  // namespace korvex::repository
