#include "persistence/order_model.h"
#include "support/instrumented.h"
#include "support/small_stack.h"

namespace korvex::tests {
namespace {

/// An object of one table, whose definition or connection lacks something.
DataRef Lacking(std::string_view what) {
    const std::string table = what == "table name" ? "" : what == "table" ? "tGhost" : "tOrder";
    const auto definition = std::make_shared<Definition>("Order", table, what != "inclusion");
    definition->AddValue({"OrderID", "OrderID", 3, true, true});
    definition->AddValue({"ParentID", "ParentID", 3});
    if (what != "key column") definition->AddPrimaryKey("OrderID");
    if (what == "prefix") definition->AddForeignKey("ParentID");
    return std::make_shared<DataObject>(definition);
}

/// A member, what is missing, and what comes of it.
struct Failure {
    const char* member;
    const char* lacking;
    Variant key;
    int result;
    dbResults code;
    const char* log;  ///< what reaches the database
};

int CallMember(clsCRUD& crud, std::string_view member, const DataRef& object, const Variant& key) {
    if (member == "DbDataExists") return crud.DbDataExists(object, key);
    if (member == "DbGetData") return crud.DbGetData(object, key);
    if (member == "DbDeleteData") return crud.DbDeleteData(object, key);
    if (member == "DbUpdateData") return crud.DbUpdateData(object, key);
    if (member == "DbUpdateDataRetainRoot") return crud.DbUpdateDataRetainRoot(object, key);
    return crud.DbSaveData(object);
}

void Expect(const Failure& failure) {
    SCOPED_TRACE(std::string(failure.member) + " without " + failure.lacking + ", key " + Show(failure.key));
    OrderWorld world;
    if (failure.lacking == std::string_view("connection")) world.crud->DisconnectDB();
    world.database.TakeLog();
    EXPECT_EQ(CallMember(*world.crud, failure.member, Lacking(failure.lacking), failure.key), failure.result);
    EXPECT_EQ(world.crud->LastResult(), failure.code);
    EXPECT_EQ(world.database.TakeLog(), failure.log);
    EXPECT_EQ(world.database.openRecordsets, 0);
}

TEST(Failures, OfMembersThatFindOneRecord) {
    for (const char* member :
         {"DbDataExists", "DbGetData", "DbDeleteData", "DbUpdateData", "DbUpdateDataRetainRoot"}) {
        Expect({member, "connection", 1, 0, dbNotConnected, ""});
        Expect({member, "key column", 1, 0, dbPrimaryKeyFieldNameMissing, ""});
        Expect({member, "", {}, 0, dbPrimaryKeyMissing, ""});
        Expect({member, "", Variant::Null(), 0, dbPrimaryKeyMissing, ""});
        Expect({member, "table name", 1, 0, dbTableNameMissing, ""});
        Expect({member, "inclusion", 1, 0, dbTableNameMissing, ""});
        Expect({member, "table", 1, 0, dbCannotOpenRecordset, "select * from tGhost where OrderID=1"});
    }
    const char* const looked = "select * from tOrder where OrderID=9; Close";
    Expect({"DbDataExists", "", 9, 0, dbNoError, looked});
    Expect({"DbDataExists", "", Variant::Missing(), 0, dbPrimaryKeyMissing, ""});
    Expect({"DbGetData", "", 9, 0, dbNoMatchingRecord, looked});
    Expect({"DbDeleteData", "", 9, 9, dbNoMatchingRecord, looked});
    Expect({"DbUpdateData", "", 9, 0, dbNoMatchingRecord, looked});
    Expect({"DbUpdateData", "", Variant::Missing(), 0, dbPrimaryKeyMissing, ""});
    Expect({"DbUpdateDataRetainRoot", "", 9, 0, dbNoMatchingRecord, looked});
}

TEST(Failures, OfRecordsWithoutAKeyAboveZero) {
    for (const char* member : {"DbDeleteData", "DbUpdateData", "DbUpdateDataRetainRoot"}) {
        for (const int key : {-1, 0, 1}) {
            SCOPED_TRACE(std::string(member) + ", key " + std::to_string(key));
            OrderWorld world;
            const auto order = world.StoredOrder();
            world.database.tables.at("tOrder").rows[0][0] = key;
            const std::string before = world.Rows("tOrder") + world.LineTexts();
            order->Set("Note", "new");
            EXPECT_EQ(CallMember(*world.crud, member, order, key), key == 1 ? 1 : 0);
            EXPECT_EQ(world.crud->LastResult(), key == 1 ? dbNoError : dbPrimaryKeyMissing);
            EXPECT_EQ(world.Rows("tOrder") + world.LineTexts() == before, key != 1);
            EXPECT_EQ(world.database.openRecordsets, 0);
        }
    }
}

TEST(Failures, OfSaving) {
    Expect({"DbSaveData", "connection", {}, 0, dbNotConnected, ""});
    Expect({"DbSaveData", "key column", {}, 0, dbNoError, ""});
    Expect({"DbSaveData", "table name", {}, 0, dbNoError, ""});
    Expect({"DbSaveData", "inclusion", {}, 0, dbTableNotIncluded, ""});
    Expect({"DbSaveData", "table", {}, 0, dbCannotOpenRecordset, "select * from tGhost"});
    Expect({"DbSaveData", "prefix", {}, 0, dbParentNotInDatabase, ""});

    OrderWorld world;
    EXPECT_EQ(world.crud->DbSaveData(NewOrder()->Child("Customer")), 0);  // its parent has no key yet
    EXPECT_EQ(world.crud->LastResult(), dbPrimaryKeyMissing);
}

TEST(Failures, OfSingleFields) {
    struct Row {
        const char *keyField, *table, *field;
        Variant key;
        dbResults code;
        const char* log;
    };
    const Row rows[] = {
        {"", "tOrder", "Note", 1, dbBadParameter, ""},
        {"OrderID", "", "Note", 1, dbBadParameter, ""},
        {"OrderID", "tOrder", "", 1, dbBadParameter, ""},
        {"OrderID", "tGhost", "Note", 1, dbCannotOpenRecordset, "select * from tGhost where OrderID = 1"},
        {"OrderID", "O'Hara", "Note", 1, dbCannotOpenRecordset, "select * from O'Hara where OrderID = 1"},
        {"OrderID", "tOrder", "Note", 9, dbNoMatchingRecord, "select * from tOrder where OrderID = 9; Close"},
    };
    OrderWorld world;
    Variant value;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.log);
        EXPECT_FALSE(world.crud->DbGetField(row.key, row.keyField, row.table, row.field, value));
        EXPECT_EQ(world.crud->LastResult(), row.code);
        EXPECT_EQ(world.database.TakeLog(), row.log);
        EXPECT_FALSE(world.crud->DbSaveField(row.key, row.keyField, row.table, row.field, "x"));
        EXPECT_EQ(world.crud->LastResult(), row.code);
        EXPECT_EQ(world.database.TakeLog(), row.log);
    }
    world.crud->DisconnectDB();
    EXPECT_FALSE(world.crud->DbGetField(1, "OrderID", "tOrder", "Note", value));
    EXPECT_EQ(world.crud->LastResult(), dbNotConnected);
    EXPECT_FALSE(world.crud->DbSaveField(1, "OrderID", "tOrder", "Note", value));
    EXPECT_EQ(world.crud->LastResult(), dbNotConnected);
}

TEST(Failures, KeysThatAreNoNumberNeverReachTheDatabase) {
    OrderWorld world;
    const auto order = NewOrder();
    Variant value;
    for (const Variant& key :
         {Variant("1 or 1=1"), Variant("1; drop table tOrder"), Variant("1/**/or 1"), Variant("1)or(1"),
          Variant(""), Variant("(1"), Variant("nan"), Variant("--1"), Variant("1--"), Variant("1 2"),
          Variant("1e999"), Variant("0x1"), Variant(true), Variant(automation::Date{3}), Variant(order)}) {
        SCOPED_TRACE(key.IsObject() ? "an object" : Show(key));
        for (const char* member :
             {"DbDataExists", "DbGetData", "DbDeleteData", "DbUpdateData", "DbUpdateDataRetainRoot"})
            EXPECT_EQ(ErrorOf([&] { CallMember(*world.crud, member, order, key); }), automation::TypeMismatch)
                << member;
        EXPECT_EQ(ErrorOf([&] { world.crud->DbGetField(key, "OrderID", "tOrder", "Note", value); }),
                  automation::TypeMismatch);
        EXPECT_EQ(ErrorOf([&] { world.crud->DbSaveField(key, "OrderID", "tOrder", "Note", value); }),
                  automation::TypeMismatch);
    }
    EXPECT_EQ(world.database.TakeLog(), "");
}

TEST(Failures, KeysStandInStatementsAsTheNumbersThatTheyAre) {
    const struct {
        Variant key;
        std::string text;
    } cases[] = {
        {7.5, "7.5"},
        {std::int64_t{7}, "7"},
        {automation::Currency{70'000}, "7"},
        {" 7 ", " 7 "},
        {"-7", "-7"},
        {"+7.0e0", "+7.0e0"},
        // What only the conversions read as a number is converted.
        {"1,2", "12"},
        {"1,234.5", "1234.5"},
        {"(12)", "-12"},
        {"$5", "5"},
        {" ($1,200) ", "-1200"},
        {"7-", "-7"},
        {"1d2", "100"},
        {"&H1F", "31"},
        {"\t7\n", "7"},
    };
    OrderWorld world;
    const auto order = NewOrder();
    Variant value;
    for (const auto& [key, text] : cases) {
        SCOPED_TRACE(Show(key));
        EXPECT_FALSE(world.crud->DbDataExists(order, key));
        EXPECT_EQ(world.database.TakeLog(), "select * from tOrder where OrderID=" + text + "; Close");
        EXPECT_FALSE(world.crud->DbGetField(key, "OrderID", "tOrder", "Note", value));
        EXPECT_EQ(world.database.TakeLog(), "select * from tOrder where OrderID = " + text + "; Close");
    }
}

/// Fails the first, second, third ... call that reaches the database, until the operation gets through.
TEST(Failures, OfAnyDatabaseCallLeaveNothingOpenAndTheInstanceWorking) {
    for (const char* member :
         {"DbSaveData", "DbGetData", "DbUpdateData", "DbUpdateDataRetainRoot", "DbDeleteData"}) {
        bool reached = true;
        for (int n = 1; reached; ++n) {
            SCOPED_TRACE(std::string(member) + ", call " + std::to_string(n));
            OrderWorld world;
            const auto order = world.StoredOrder();
            order->Set("Note", "changed");
            order->Child("Lines")->Remove(0);
            AddLine(*order, "C3", "Cog");
            const auto object = member == std::string_view("DbGetData")
                                    ? std::make_shared<DataObject>(OrderDefinition())
                                    : order;
            int result = 0;
            world.database.FailAt(n);
            const auto error = ErrorOf([&] { result = CallMember(*world.crud, member, object, 1); });
            reached = world.database.calls >= n;
            const std::string log = world.database.TakeLog();
            world.database.FailAt(0);
            EXPECT_EQ(world.database.openRecordsets, 0) << log;
            if (!reached) {
                EXPECT_EQ(error, 0);
                EXPECT_GT(result, 0);
            } else if (error != 0) {
                EXPECT_EQ(error, ado::DbEFail);
            } else if (std::string_view(member).starts_with("DbUpdate")) {
                EXPECT_EQ(result, 0) << log;
                EXPECT_EQ(world.crud->LastResult(), dbCannotOpenRecordset) << log;
            } else if (world.crud->LastResult() != dbCannotOpenRecordset) {
                // Only a statement beneath the root can fail and be followed by others that succeed.
                EXPECT_THAT(log, testing::HasSubstr("\nselect"));
            }
            EXPECT_GT(CallMember(*world.crud, member, object, 1), 0);
            EXPECT_EQ(world.database.openRecordsets, 0);
        }
    }
}

/// A tree of objects that its host builds endlessly downwards.
class Endless final : public persistence::PlainObject {
  public:
    explicit Endless(Ref definition) : m_definition(std::move(definition)) {}
    using PlainObject::DataDef;
    Ref DataDef() override { return m_definition; }
    Variant NamedValue(std::string_view) override { return std::make_shared<Endless>(m_definition); }
    Variant Value(std::int32_t) override { return {}; }
    void Value(std::int32_t, const Variant&) override {}
    std::int32_t ValueIndex(std::string_view) override { return 1; }

  private:
    Ref m_definition;
};

constexpr int DeepLevels = IsInstrumented ? 300 : 3000;

TEST(Failures, ATreeWithoutEndIsAnErrorAndDeepOnesWork) {
    OrderWorld world;
    auto& table = world.database.tables["tNode"];
    table.columns = {{.name = "NodeID", .isAutoNumber = true},
                     {.name = "FK_NodeID"},
                     {.name = "QORSelectState"},
                     {.name = "QORCounter"}};
    const auto leaf = KeyedDefinition("Node", "Node");
    auto definition = leaf;
    constexpr int levels = DeepLevels;
    for (int i = 1; i < levels; ++i) {
        auto above = KeyedDefinition("Node", i + 1 < levels ? "Node" : "");
        above->AddChild("Next", std::move(definition));
        definition = std::move(above);
    }
    const auto root = std::make_shared<DataObject>(definition);
    EXPECT_EQ(world.crud->DbSaveData(root), 1);
    EXPECT_EQ(table.rows.size(), levels);
    EXPECT_EQ(world.crud->DbGetData(std::make_shared<DataObject>(definition), 1), 1);
    auto deepest = root;
    while (deepest->Type().FindValue("Next") != nullptr)
        deepest = deepest->Child("Next");
    deepest->LongAttribute(attCounter, 4);
    EXPECT_EQ(world.crud->DbUpdateData(root), 1);
    EXPECT_EQ(table.rows.back().back(), Variant(4));
    EXPECT_EQ(world.crud->DbDeleteData(root, 1), 1);
    EXPECT_TRUE(table.rows.empty());

    const auto self = KeyedDefinition("Node", "");
    self->AddChild("Next", leaf);
    const auto saveEndless = [&] {
        EXPECT_EQ(ErrorOf([&] { world.crud->DbSaveData(std::make_shared<Endless>(self)); }),
                  automation::OutOfStackSpace);
        EXPECT_EQ(world.database.openRecordsets, 0);
        EXPECT_GT(table.rows.size(), 5U);
        table.rows.clear();
    };
    RunOnSmallStacks(saveEndless);
}

}  // namespace
}  // namespace korvex::tests
