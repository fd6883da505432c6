// A client compiled from the generated header: each slot stands where it is published and reaches its member
// with what the caller passed.

#include "automation/com/bstr.h"
#include "automation/com/shell.h"
#include "automation/convert.h"
#include "support/noting_crud.h"
#include "support/outcome_text.h"
#include "surface/cls_field.h"
#include "surface/noting_create_db.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <memory>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using automation::Variant;

/// Arguments and results of the calls below.
struct Client {
    Client()
        : one("one"), two("two"), three("three"), first(one.Get()), second(two.Get()), third(three.Get()) {}

    std::string Text() { return "String <" + text.Text() + ">"; }
    std::string Any() { return automation::Describe(com::FromVariant(any.Value())); }
    std::string Object() { return object ? "Object" : "Nothing"; }
    std::string Number() { return "Long " + std::to_string(number); }
    std::string Flag() { return flag == VARIANT_TRUE ? "Boolean True" : "Boolean False"; }

    com::Bstr one, two, three;
    BSTR first, second, third;  // the caller's variables
    com::ComVariant key{7};
    com::ComVariant value{"old"};
    com::ComVariant missing{Variant::Missing()};
    com::Bstr text;
    com::ComVariant any;
    com::ComPtr<IDispatch> object;
    LONG number = 0;
    VARIANT_BOOL flag = VARIANT_FALSE;
};

/// One slot called with what a client passes; `result` reads what came back.
template <class Interface>
struct Row {
    HRESULT (*call)(Interface&, Client&);
    const char* reached;
    std::string (*answer)(Client&) = nullptr;
    const char* answered = "";
};

template <class Interface, class Noting>
void ExpectRows(const std::shared_ptr<Noting>& noting, const std::vector<Row<Interface>>& rows) {
    const auto shell = com::WrapObject(noting).template As<Interface>();
    ASSERT_TRUE(shell);
    for (const Row<Interface>& row : rows) {
        Client client;
        EXPECT_EQ(SlotText(row.call(*shell.Get(), client), shell.Get(), __uuidof(Interface)), "S_OK")
            << row.reached;
        EXPECT_EQ(noting->last, row.reached);
        if (row.answer != nullptr) {
            EXPECT_EQ(row.answer(client), row.answered) << row.reached;
        }
    }
}

TEST(SlotTest, ReachTheScriptGenerator) {
    using I = ::_clsCreateDb;
    using C = Client;
    std::string (*const text)(C&) = [](C& c) { return c.Text(); };
    ExpectRows<I>(
        std::make_shared<surface::NotingCreateDb>(),
        {
            {[](I& o, C& c) { return o.get_ScriptTypes(nullptr, c.object.Put()); }, "ScriptTypes(Missing)",
             [](C& c) { return c.Object(); }, "Object"},
            {[](I& o, C& c) { return o.get_ScriptTypes(&c.key, c.object.Put()); }, "ScriptTypes(Long 7)"},
            {[](I& o, C& c) { return o.DoScript(&c.first, &c.second, &c.third, &c.value, &c.missing); },
             "DoScript(String <one>, String <two>, String <three>, String <old>, Missing)"},
            {[](I& o, C& c) { return o.DoScript(&c.first, &c.second, nullptr, nullptr, nullptr); },
             "DoScript(String <one>, String <two>, String <>, Missing, Missing)"},
            {[](I& o, C& c) { return o.get_FKPrefix(c.text.Put()); }, "FKPrefix()", text,
             "String <the FKPrefix>"},
            {[](I& o, C& c) { return o.put_FKPrefix(&c.first); }, "FKPrefix(String <one>)"},
            {[](I& o, C& c) { return o.get_ScriptFilePath(c.text.Put()); }, "ScriptFilePath()", text,
             "String <the ScriptFilePath>"},
            {[](I& o, C& c) { return o.put_ScriptFilePath(&c.second); }, "ScriptFilePath(String <two>)"},
            {[](I& o, C& c) { return o.DoMSsqlDb(&c.first, &c.second, &c.key); },
             "DoMSsqlDb(String <one>, String <two>, Long 7)"},
            {[](I& o, C& c) { return o.DoOracleDb(&c.first, nullptr, &c.value); },
             "DoOracleDb(String <one>, String <>, String <old>)"},
            {[](I& o, C& c) { return o.DoSybaseDb(&c.first, &c.second, nullptr); },
             "DoSybaseDb(String <one>, String <two>, Missing)"},
            {[](I& o, C& c) { return o.CreateRelationship(&c.third, &c.value); },
             "CreateRelationship(String <three>, String <old>)"},
            {[](I& o, C&) { return o.ShutDown(); }, "ShutDown()"},
            {[](I& o, C& c) { return o.get_DbSQL(c.text.Put()); }, "DbSQL()", text, "String <the DbSQL>"},
            {[](I& o, C& c) { return o.get_DropSQL(c.text.Put()); }, "DropSQL()", text,
             "String <the DropSQL>"},
            {[](I& o, C& c) { return o.get_StoredProcSQL(c.text.Put()); }, "StoredProcSQL()", text,
             "String <the StoredProcSQL>"},
            {[](I& o, C& c) { return o.get_FkConstraintSQL(c.text.Put()); }, "FkConstraintSQL()", text,
             "String <the FkConstraintSQL>"},
            {[](I& o, C& c) { return o.get_DropFkConstraintSQL(c.text.Put()); }, "DropFkConstraintSQL()",
             text, "String <the DropFkConstraintSQL>"},
            {[](I& o, C&) { return o.ShowLog(); }, "ShowLog()"},
            {[](I& o, C& c) { return o.ConnectDB(&c.first, &c.any); }, "ConnectDB(String <one>)",
             [](C& c) { return c.Any(); }, "String <connected>"},
        });
}

TEST(SlotTest, ReachThePersistenceClass) {
    using I = ::_clsCRUD;
    using C = Client;
    static const auto data = com::WrapObject(std::make_shared<persistence::PlainObject>()).As<::QORObject>();
    static ::QORObject* object = data.Get();
    std::string (*const flag)(C&) = [](C& c) { return c.Flag(); };
    std::string (*const number)(C&) = [](C& c) { return c.Number(); };
    std::string (*const text)(C&) = [](C& c) { return c.Text(); };
    ExpectRows<I>(
        std::make_shared<NotingCrud>(),
        {
            {[](I& o, C& c) {
                 ::dbResults result = ::dbNoError;
                 const HRESULT called = o.get_LastResult(&result);
                 c.number = result;
                 return called;
             },
             "LastResult()", number, "Long 10"},
            {[](I& o, C& c) { return o.get_FKPrefix(c.text.Put()); }, "FKPrefix()", text,
             "String <the FKPrefix>"},
            {[](I& o, C& c) { return o.put_FKPrefix(&c.first); }, "FKPrefix(String <one>)"},
            {[](I& o, C& c) { return o.get_DbConn(c.object.Put()); }, "DbConn()",
             [](C& c) { return c.Object(); }, "Nothing"},
            {[](I& o, C& c) {
                 IDispatch* nothing = c.object.Get();
                 return o.put_DbConn(&nothing);
             },
             "DbConn(Nothing)"},
            {[](I& o, C& c) { return o.ConnectDB(&c.value, &c.key, &c.flag); },
             "ConnectDB(String <old>, Long 7)", flag, "Boolean True"},
            {[](I& o, C& c) { return o.ConnectDB(&c.value, nullptr, &c.flag); },
             "ConnectDB(String <old>, Missing)"},
            {[](I& o, C& c) { return o.DisconnectDB(&c.any); }, "DisconnectDB()",
             [](C& c) { return c.Any(); }, "String <disconnected>"},
            {[](I& o, C& c) { return o.DbDataExists(&object, &c.key, &c.flag); },
             "DbDataExists(Object, Long 7)", flag, "Boolean True"},
            {[](I& o, C& c) { return o.DbDataExists(&object, nullptr, &c.flag); },
             "DbDataExists(Object, Missing)"},
            {[](I& o, C& c) {
                 return o.DbGetField(&c.key, &c.first, &c.second, &c.third, &c.value, &c.flag);
             },
             "DbGetField(Long 7, String <one>, String <two>, String <three>, String <old>)",
             [](C& c) { return automation::Describe(com::FromVariant(c.value.Value())); }, "String <found>"},
            {[](I& o, C& c) {
                 return o.DbSaveField(&c.key, &c.first, &c.second, &c.third, &c.value, &c.flag);
             },
             "DbSaveField(Long 7, String <one>, String <two>, String <three>, String <old>)", flag,
             "Boolean True"},
            {[](I& o, C& c) { return o.DbGetData(object, &c.key, c.first, &c.number); },
             "DbGetData(Object, Long 7, String <one>)", number, "Long 11"},
            {[](I& o, C& c) { return o.DbGetData(nullptr, &c.key, nullptr, &c.number); },
             "DbGetData(Nothing, Long 7, String <>)"},
            {[](I& o, C& c) { return o.DbSaveData(object, &c.number); }, "DbSaveData(Object)", number,
             "Long 12"},
            {[](I& o, C& c) { return o.DbUpdateData(object, &c.key, c.second, &c.number); },
             "DbUpdateData(Object, Long 7, String <two>)", number, "Long 13"},
            {[](I& o, C& c) { return o.DbUpdateData(object, &c.missing, nullptr, &c.number); },
             "DbUpdateData(Object, Missing, String <>)"},
            {[](I& o, C& c) { return o.DbUpdateDataRetainRoot(object, &c.key, &c.number); },
             "DbUpdateDataRetainRoot(Object, Long 7)", number, "Long 14"},
            {[](I& o, C& c) { return o.DbDeleteData(object, &c.key, c.third, &c.number); },
             "DbDeleteData(Object, Long 7, String <three>)", number, "Long 15"},
            {[](I& o, C& c) { return o.GetTableName(&object, c.text.Put()); }, "GetTableName(Object)", text,
             "String <the GetTableName>"},
            {[](I& o, C& c) { return o.GetPrimaryKeyFieldName(&object, c.text.Put()); },
             "GetPrimaryKeyFieldName(Object)", text, "String <the GetPrimaryKeyFieldName>"},
            {[](I& o, C& c) { return o.GetForeignKeyFieldName(&object, c.text.Put()); },
             "GetForeignKeyFieldName(Object)", text, "String <the GetForeignKeyFieldName>"},
            {[](I& o, C& c) { return o.OpenRecordset(&c.first, c.object.Put()); },
             "OpenRecordset(String <one>)"},
        });
}

/// Keeps a data object that a slot gives as an object of any kind.
HRESULT Keep(Client& client, HRESULT (STDMETHODCALLTYPE ::QORObject::*slot)(::QORObject**),
             ::QORObject& object) {
    com::ComPtr<::QORObject> result;
    const HRESULT called = (object.*slot)(result.Put());
    client.object = result.As<IDispatch>();
    return called;
}

TEST(SlotTest, ReachADataObject) {
    using I = ::QORObject;
    using C = Client;
    std::string (*const number)(C&) = [](C& c) { return c.Number(); };
    std::string (*const flag)(C&) = [](C& c) { return c.Flag(); };
    std::string (*const anObject)(C&) = [](C& c) { return c.Object(); };
    std::string (*const any)(C&) = [](C& c) { return c.Any(); };
    ExpectRows<I>(
        std::make_shared<NotingDataObject>(),
        {
            {[](I& o, C& c) { return Keep(c, &I::get_Parent, o); }, "Parent()", anObject, "Object"},
            {[](I& o, C& c) { return o.get_Modified(&c.flag); }, "Modified()", flag, "Boolean True"},
            {[](I& o, C&) { return o.put_Modified(VARIANT_TRUE); }, "Modified(Boolean True)"},
            {[](I& o, C& c) { return o.get_StringAttribute(800001, c.text.Put()); },
             "StringAttribute(Long 800001)", [](C& c) { return c.Text(); }, "String <text>"},
            {[](I& o, C& c) { return o.get_LongAttribute(300001, &c.number); }, "LongAttribute(Long 300001)",
             number, "Long 70000"},
            {[](I& o, C&) { return o.put_LongAttribute(-300003, 99); },
             "LongAttribute(Long -300003, Long 99)"},
            {[](I& o, C& c) { return o.get_BooleanAttribute(1100002, &c.flag); },
             "BooleanAttribute(Long 1100002)", flag, "Boolean True"},
            {[](I& o, C& c) {
                 short result = 0;
                 const HRESULT called = o.get_IntegerAttribute(-200001, &result);
                 c.number = result;
                 return called;
             },
             "IntegerAttribute(Long -200001)", number, "Long -5"},
            {[](I& o, C&) { return o.put_IntegerAttribute(-200001, -1); },
             "IntegerAttribute(Long -200001, Integer -1)"},
            {[](I& o, C& c) { return o.get_Value(4, &c.any); }, "Value(Long 4)", any, "Double 2.5"},
            {[](I& o, C& c) { return o.put_Value(4, c.value.Value()); }, "Value(Long 4, String <old>)"},
            {[](I& o, C& c) { return o.get_NamedValue(c.first, &c.any); }, "NamedValue(String <one>)", any,
             "String <named>"},
            {[](I& o, C& c) { return o.get_ObjectAttribute(1300001, c.object.Put()); },
             "ObjectAttribute(Long 1300001)", anObject, "Object"},
            {[](I& o, C&) { return o.putref_DataDef(&o); }, "DataDef(Object)"},
            {[](I& o, C&) { return o.putref_DataDef(nullptr); }, "DataDef(Nothing)"},
            {[](I& o, C& c) { return Keep(c, &I::get_DataDef, o); }, "DataDef()", anObject, "Object"},
            {[](I& o, C& c) {
                 com::ComPtr<I> result;
                 const VARIANT left = c.missing.Value();
                 const HRESULT called = o.AddItem(left, left, result.Put());
                 c.object = result.As<IDispatch>();
                 return called;
             },
             "AddItem(Missing, Missing)", anObject, "Object"},
            {[](I& o, C& c) { return o.get_HasAttribute(1300003, &c.flag); }, "HasAttribute(Long 1300003)",
             flag, "Boolean True"},
            {[](I& o, C& c) { return o.get_ValueIndex(c.first, &c.number); }, "ValueIndex(String <one>)",
             number, "Long 3"},
        });
}

template <class Value>
struct Property {
    HRESULT (STDMETHODCALLTYPE ::_clsField::*put)(Value);
    HRESULT (STDMETHODCALLTYPE ::_clsField::*get)(Value*);
    std::string (*own)(clsField&);  ///< what the C++ object holds
    Value value;
};

/// Puts through one slot, reads through the next, with the C++ object as the witness.
template <class Value>
void ExpectProperties(const std::vector<Property<Value>>& properties) {
    const auto field = std::make_shared<clsField>();
    const auto shell = com::WrapObject(field).As<::_clsField>();
    ::_clsField& slots = *shell.Get();
    for (const auto& property : properties)
        EXPECT_EQ((slots.*property.put)(property.value), S_OK);
    for (const auto& property : properties) {
        Value read = {};
        EXPECT_EQ((slots.*property.get)(&read), S_OK);
        EXPECT_EQ(read, property.value);
        EXPECT_EQ(property.own(*field), std::to_string(property.value));
    }
}

TEST(SlotTest, ReachAField) {
    using F = ::_clsField;
    using O = clsField;
    ExpectProperties<LONG>({
        {&F::put_DataType, &F::get_DataType, [](O& o) { return std::to_string(o.DataType()); }, 3},
        {&F::put_FKObjectID, &F::get_FKObjectID, [](O& o) { return std::to_string(o.FKObjectID()); }, 70001},
        {&F::put_ValueID, &F::get_ValueID, [](O& o) { return std::to_string(o.ValueID()); }, 70002},
        {&F::put_FKValueID, &F::get_FKValueID, [](O& o) { return std::to_string(o.FKValueID()); }, -70003},
    });
    // A 16-bit number, and flags: one of them at a time, so that no two can be mistaken for each other.
    for (std::size_t set = 0; set < 4; ++set) {
        const auto flag = [set](std::size_t i) { return set == i ? VARIANT_TRUE : VARIANT_FALSE; };
        ExpectProperties<short>({
            {&F::put_nPrimaryKeySeq, &F::get_nPrimaryKeySeq,
             [](O& o) { return std::to_string(o.nPrimaryKeySeq()); }, 2},
            {&F::put_IsPrimaryKey, &F::get_IsPrimaryKey,
             [](O& o) { return std::to_string(-o.IsPrimaryKey()); }, flag(0)},
            {&F::put_IsAutoNumber, &F::get_IsAutoNumber,
             [](O& o) { return std::to_string(-o.IsAutoNumber()); }, flag(1)},
            {&F::put_IsForeignKey, &F::get_IsForeignKey,
             [](O& o) { return std::to_string(-o.IsForeignKey()); }, flag(2)},
            {&F::put_IsLongFld, &F::get_IsLongFld, [](O& o) { return std::to_string(-o.IsLongFld()); },
             flag(3)},
        });
    }
}

TEST(SlotTest, ReachTheTextsOfAField) {
    const auto field = std::make_shared<clsField>();
    const auto shell = com::WrapObject(field).As<::_clsField>();
    const com::Bstr given[] = {com::Bstr("name"), com::Bstr("40"), com::Bstr("varchar(40)"),
                               com::Bstr("none")};
    EXPECT_EQ(shell->put_FieldName(given[0].Get()), S_OK);
    EXPECT_EQ(shell->put_MaxLength(given[1].Get()), S_OK);
    EXPECT_EQ(shell->put_TypeSize(given[2].Get()), S_OK);
    EXPECT_EQ(shell->put_DefaultVal(given[3].Get()), S_OK);
    EXPECT_EQ(
        field->FieldName() + "|" + field->MaxLength() + "|" + field->TypeSize() + "|" + field->DefaultVal(),
        "name|40|varchar(40)|none");
    com::Bstr read[4];
    EXPECT_EQ(shell->get_FieldName(read[0].Put()), S_OK);
    EXPECT_EQ(shell->get_MaxLength(read[1].Put()), S_OK);
    EXPECT_EQ(shell->get_TypeSize(read[2].Put()), S_OK);
    EXPECT_EQ(shell->get_DefaultVal(read[3].Put()), S_OK);
    EXPECT_EQ(read[0].Text() + "|" + read[1].Text() + "|" + read[2].Text() + "|" + read[3].Text(),
              "name|40|varchar(40)|none");
}

}  // namespace
}  // namespace korvex::tests
