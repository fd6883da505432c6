#include "automation/outcome.h"
#include "persistence/order_model.h"
#include "surface/create_object.h"

namespace korvex::tests {
namespace {

/// Connection, LastResult, names, late binding.
class Frame : public CrudTest {
  protected:
    std::shared_ptr<clsCRUD> NewCrud() { return std::make_shared<clsCRUD>(platform); }
};

TEST_F(Frame, ConnectingLeavesTheResultOfTheDisconnectBefore) {
    const auto fresh = NewCrud();
    EXPECT_EQ(fresh->LastResult(), dbNoError);
    EXPECT_EQ(fresh->FKPrefix(), "");
    EXPECT_EQ(fresh->DbConn(), nullptr);

    EXPECT_TRUE(fresh->ConnectDB("first"));
    EXPECT_EQ(fresh->LastResult(), dbNotConnected);
    EXPECT_EQ(fresh->FKPrefix(), "FK_");
    EXPECT_TRUE(fresh->ConnectDB("second", ""));
    EXPECT_EQ(fresh->LastResult(), dbNoError);
    EXPECT_EQ(fresh->FKPrefix(), "");
    EXPECT_FALSE(fresh->ConnectDB("a bad one", 5));
    EXPECT_EQ(fresh->LastResult(), dbConnectError);
    EXPECT_EQ(fresh->FKPrefix(), "5");
    EXPECT_EQ(fresh->DbConn(), nullptr);
    EXPECT_FALSE(fresh->ConnectDB(Variant::Null()));
    EXPECT_EQ(fresh->LastResult(), dbConnectError);
    EXPECT_EQ(database.TakeLog(), "open first\nclose\nopen second\nclose\nopen a bad one");
    EXPECT_THAT(*messages, testing::ElementsAre("message 0 <> <no such database>", testing::_));
}

TEST_F(Frame, AConnectionFromOutsideIsUsedOnlyWhileConnected) {
    const auto other = NewCrud();
    other->DbConn(crud->DbConn());
    EXPECT_EQ(other->OpenRecordset("select * from tOrder")->State(), ado::adStateClosed);
    EXPECT_EQ(other->LastResult(), dbNotConnected);
    other->DisconnectDB();  // lets it go without closing it
    EXPECT_EQ(other->LastResult(), dbNoError);
    other->DisconnectDB();
    EXPECT_EQ(other->LastResult(), dbNotConnected);
    EXPECT_NE(crud->OpenRecordset("select * from tOrder"), nullptr);
    EXPECT_EQ(crud->OpenRecordset("select * from tGhost"), nullptr);
    EXPECT_EQ(crud->LastResult(), dbCannotOpenRecordset);

    crud.reset();
    EXPECT_EQ(database.openConnections, 0);
}

TEST_F(Frame, ACloseThatFailsStillDisconnects) {
    crud->DbConn()->Close();
    EXPECT_EQ(ErrorOf([&] { crud->DisconnectDB(); }), ado::adErrObjectClosed);
    EXPECT_TRUE(crud->ConnectDB("again"));
}

TEST_F(Frame, NamesComeFromTheDefinition) {
    const auto definition = std::make_shared<Definition>("Pair", "");
    definition->AddValue({"a", "A"});
    definition->AddChild("B", KeyedDefinition("Child", ""));
    definition->AddValue({"b", "B"});
    for (const char* key : {"A", "B", "b", "C"})
        definition->AddPrimaryKey(key);
    definition->AddForeignKey("FK_1");
    definition->AddForeignKey("FK_2");
    EXPECT_EQ(crud->GetPrimaryKeyFieldName(definition), "B");  // the last entry that names a column
    definition->AddPrimaryKey("A");
    EXPECT_EQ(crud->GetPrimaryKeyFieldName(definition), "A");  // each call looks anew
    EXPECT_EQ(crud->GetForeignKeyFieldName(definition), "FK_1");
    EXPECT_EQ(crud->GetTableName(definition), "");
    EXPECT_EQ(crud->LastResult(), dbNoError);
    EXPECT_EQ(crud->GetTableName(std::make_shared<Definition>("Hidden", "tHidden", false)), "");
    EXPECT_EQ(crud->LastResult(), dbTableNotIncluded);
    EXPECT_EQ(ErrorOf([&] { crud->GetTableName(nullptr); }), automation::ObjectVariableNotSet);
    EXPECT_EQ(ErrorOf([&] { crud->DbGetData(nullptr, 1); }), automation::ObjectVariableNotSet);
    EXPECT_EQ(ErrorOf([&] { crud->DbGetData(std::make_shared<DataObject>(), 1); }),
              automation::ObjectVariableNotSet);
}

TEST_F(Frame, AKeyColumnThatIsNoValueGivesNoKey) {
    StoredOrder();
    const auto definition = std::make_shared<Definition>("Order", "tOrder");
    definition->AddValue({"Note", "Note"});
    definition->AddValue({"nowhere", ""});
    EXPECT_EQ(crud->DbGetData(std::make_shared<DataObject>(definition), 1, "OrderID"), 0);
    EXPECT_EQ(crud->LastResult(), dbNoError);
}

TEST_F(Frame, ADefinitionThatChangedIsReadAnewByTheNextCall) {
    const auto order = StoredOrder();
    const auto definition = KeyedDefinition("Order", "");
    const auto loaded = [&] {
        auto object = std::make_shared<DataObject>(definition);
        EXPECT_EQ(crud->DbGetData(object, 1), 1);
        return object;
    };
    loaded();
    definition->AddValue({"Note", "Note"});
    EXPECT_EQ(loaded()->Get("Note"), order->Get("Note"));
}

TEST_F(Frame, AMissingChildRecordShowsInLastResult) {
    const auto order = StoredOrder();
    database.tables.at("tLines").rows.clear();
    EXPECT_EQ(crud->DbGetData(order, 1), 1);
    EXPECT_EQ(crud->LastResult(), dbNoMatchingRecord);
}

TEST_F(Frame, InnerCallsReachADerivedClass) {
    struct Counting final : clsCRUD {
        using clsCRUD::clsCRUD;
        std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sSQL) override {
            ++opened;
            return clsCRUD::OpenRecordset(sSQL);
        }
        std::int32_t DbGetData(const QORObject::Ref& coData, const Variant& lKey,
                               const std::string& sKeyFieldName) override {
            ++loaded;
            return clsCRUD::DbGetData(coData, lKey, sKeyFieldName);
        }
        int opened = 0, loaded = 0;
    };
    StoredOrder();
    Counting derived(platform);
    derived.ConnectDB("memory");
    derived.DbGetData(std::make_shared<DataObject>(OrderDefinition()), 1, {});
    EXPECT_EQ(derived.loaded, 7);
    EXPECT_EQ(derived.opened, 8);
}

TEST_F(Frame, LateBoundCallsDoTheSame) {
    using automation::Call;
    using automation::Get;
    const auto order = NewOrder();
    EXPECT_EQ(Call(*crud, "dbsavedata", order), Variant(1));
    EXPECT_EQ(Call(*crud, "DbDataExists", order), Variant(true));
    EXPECT_EQ(Call(*crud, "DbGetData", order, "1"), Variant(1));
    EXPECT_EQ(Call(*crud, "DbUpdateData", order), Variant(1));
    EXPECT_EQ(Call(*crud, "DbUpdateDataRetainRoot", order, 1), Variant(1));
    EXPECT_EQ(Get(*crud, "LastResult"), Variant(0));
    EXPECT_EQ(Call(*crud, "GetTableName", order->DataDef()), Variant("tOrder"));

    Variant arguments[] = {1, "OrderID", "tOrder", "Note", {}};
    EXPECT_EQ(crud->Invoke("DbGetField", automation::InvokeKind::Method, arguments), Variant(true));
    EXPECT_EQ(arguments[4], Variant("urgent"));
    EXPECT_EQ(Call(*crud, "DbSaveField", 1, "OrderID", "tOrder", "Note", "now"), Variant(true));

    automation::Let(*crud, "FKPrefix", "F_");
    EXPECT_EQ(Get(*crud, "FKPrefix"), Variant("F_"));
    automation::Let(*crud, "FKPrefix", "FK_");
    automation::Let(*crud, "DbConn", crud->DbConn());
    EXPECT_TRUE(Get(*crud, "DbConn").IsObject());
    EXPECT_EQ(ErrorOf([&] { automation::Let(*crud, "LastResult", 1); }), automation::PropertyIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { automation::Let(*crud, "DbConn", crud); }), automation::TypeMismatch);
    EXPECT_EQ(ErrorOf([&] { Call(*crud, "DbGetData", crud, 1); }), automation::TypeMismatch);
    EXPECT_EQ(Call(*crud, "DbDeleteData", order, 1), Variant(1));
    EXPECT_EQ(Get(*CreateObject("korvex.clscrud"), "LastResult"), Variant(0));
}

/// Objects bound late work through the same table as their own members.
TEST_F(Frame, DataObjectsAnswerByName) {
    using automation::Call;
    const auto order = NewOrder();
    EXPECT_EQ(Call(*order, "NamedValue", "Note"), Variant("urgent"));
    EXPECT_EQ(Call(*order, "ValueIndex", "Note"), Variant(2));
    EXPECT_EQ(Call(*order, "Value", 2), Variant("urgent"));
    Variant assignment[] = {2, "by name"};
    order->Invoke("Value", automation::InvokeKind::PropertyLet, assignment);
    EXPECT_EQ(order->Get("Note"), Variant("by name"));
    EXPECT_EQ(automation::Get(*order, "Modified"), Variant(true));
    EXPECT_EQ(Call(*order->DataDef(), "StringAttribute", attTableName), Variant("tOrder"));
    EXPECT_EQ(Call(*order->DataDef(), "HasAttribute", attElementDef), Variant(false));
    EXPECT_TRUE(Call(*order->Child("Lines"), "AddItem").IsObject());
    EXPECT_EQ(order->Child("Lines")->Items().size(), 3U);
}

}  // namespace
}  // namespace korvex::tests
