// The slots of the dual interfaces, called where the type library says that they stand: each reaches its
// member with what the caller passed. (The shells have them where the generated header says, which must be
// the same.)

#include "automation/com/bstr.h"
#include "automation/com/shell.h"
#include "automation/convert.h"
#include "support/late_bound.h"
#include "support/module.h"
#include "support/noting_crud.h"
#include "support/outcome_text.h"
#include "support/type_library.h"
#include "surface/cls_field.h"
#include "surface/noting_create_db.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <memory>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using automation::Member;
using automation::Parameter;
using automation::Variant;
using automation::VarType;

/// Calls an object of this library through the slots that the type library gives for its members.
class SlotClient {
  public:
    SlotClient(std::shared_ptr<automation::TableObject> object, REFIID interfaceId)
        : m_object(com::WrapObject(std::move(object))), m_slots(SlotView(Module().Type(interfaceId).Get())) {}

    /// The outcome, and what became of arguments that the member changed.
    std::string Call(const Member& member, const std::vector<Variant>& arguments) const {
        std::vector<com::ComVariant> variables;
        for (const Variant& argument : arguments)
            variables.emplace_back(argument);
        std::vector<VARIANT> passed;
        for (std::size_t i = 0; i < variables.size(); ++i)
            passed.push_back(Passed(variables[i].Value(), member.parameters[i]));
        std::string outcome =
            OutcomeText(InvokeSlot(m_slots.Get(), m_object.Get(), IdOf(m_object.Get(), member.name),
                                   static_cast<WORD>(member.kind), std::move(passed)));
        for (std::size_t i = 0; i < variables.size(); ++i) {
            const Variant after = com::FromVariant(variables[i].Value());
            if (after != arguments[i]) outcome += ", then " + automation::Describe(after);
        }
        return outcome;
    }

  private:
    static VARIANT Passed(VARIANT& variable, const Parameter& parameter) {
        if (parameter.passing == automation::Passing::ByValue) return variable;
        VARIANT reference = {};
        const bool isAny = parameter.type == VarType::Variant;
        reference.vt = static_cast<VARTYPE>(VT_BYREF | (isAny ? VARTYPE{VT_VARIANT} : variable.vt));
        reference.byref = isAny ? static_cast<void*>(&variable) : &variable.byref;
        return reference;
    }

    com::ComPtr<IDispatch> m_object;
    com::ComPtr<ITypeInfo> m_slots;
};

/// A value of the parameter's type that holds `number`, where the type can.
Variant Sample(const Parameter& parameter, std::int32_t number) {
    if (parameter.interfaceName == "QORObject") return std::make_shared<persistence::PlainObject>();
    if (parameter.type == VarType::Object) return automation::ObjectRef();
    if (parameter.type == VarType::Boolean) return true;
    return automation::ChangeType(number, parameter.type);
}

/// Every slot in turn, called with 1, 2, 3 ...: what reached the object, and what came back.
template <class Noting>
std::string CallsOf(REFIID interfaceId) {
    const auto noting = std::make_shared<Noting>();
    const SlotClient client(noting, interfaceId);
    std::string calls;
    for (const Member& member : noting->Class().members) {
        std::vector<Variant> arguments;
        for (const Parameter& parameter : member.parameters)
            arguments.push_back(Sample(parameter, static_cast<std::int32_t>(arguments.size() + 1)));
        noting->last.clear();
        const std::string outcome = client.Call(member, arguments);
        calls += noting->last + ": " + outcome + "\n";
    }
    return calls;
}

TEST(SlotTest, ReachTheScriptGenerator) {
    EXPECT_EQ(CallsOf<surface::NotingCreateDb>(__uuidof(::_clsCreateDb)),
              R"(ScriptTypes(Long 1): Object
DoScript(String <1>, String <2>, String <3>, Long 4, Long 5): Empty
FKPrefix(): String <the FKPrefix>
FKPrefix(String <1>): Empty
ScriptFilePath(): String <the ScriptFilePath>
ScriptFilePath(String <1>): Empty
DoMSsqlDb(String <1>, String <2>, Long 3): Empty
DoOracleDb(String <1>, String <2>, Long 3): Empty
DoSybaseDb(String <1>, String <2>, Long 3): Empty
CreateRelationship(String <1>, Long 2): Empty
ShutDown(): Empty
DbSQL(): String <the DbSQL>
DropSQL(): String <the DropSQL>
StoredProcSQL(): String <the StoredProcSQL>
FkConstraintSQL(): String <the FkConstraintSQL>
DropFkConstraintSQL(): String <the DropFkConstraintSQL>
ShowLog(): Empty
ConnectDB(String <1>): String <connected>
)");
}

TEST(SlotTest, ReachThePersistenceClass) {
    EXPECT_EQ(CallsOf<NotingCrud>(__uuidof(::_clsCRUD)), R"(LastResult(): Long 10
FKPrefix(): String <the FKPrefix>
FKPrefix(String <1>): Empty
DbConn(): Nothing
DbConn(Nothing): Empty
ConnectDB(Long 1, Long 2): Boolean True
DisconnectDB(): String <disconnected>
DbDataExists(Object, Long 2): Boolean True
DbGetField(Long 1, String <2>, String <3>, String <4>, Long 5): Boolean True, then String <found>
DbSaveField(Long 1, String <2>, String <3>, String <4>, Long 5): Boolean True
DbGetData(Object, Long 2, String <3>): Long 11
DbSaveData(Object): Long 12
DbUpdateData(Object, Long 2, String <3>): Long 13
DbUpdateDataRetainRoot(Object, Long 2): Long 14
DbDeleteData(Object, Long 2, String <3>): Long 15
GetTableName(Object): String <the GetTableName>
GetPrimaryKeyFieldName(Object): String <the GetPrimaryKeyFieldName>
GetForeignKeyFieldName(Object): String <the GetForeignKeyFieldName>
OpenRecordset(String <1>): Nothing
)");
}

TEST(SlotTest, ReachADataObject) {
    EXPECT_EQ(CallsOf<NotingDataObject>(__uuidof(::QORObject)), R"(Parent(): Object
Modified(): Boolean True
Modified(Boolean True): Empty
StringAttribute(Long 1): String <text>
LongAttribute(Long 1): Long 70000
LongAttribute(Long 1, Long 2): Empty
BooleanAttribute(Long 1): Boolean True
IntegerAttribute(Long 1): Integer -5
IntegerAttribute(Long 1, Integer 2): Empty
Value(Long 1): Double 2.5
Value(Long 1, Long 2): Empty
NamedValue(String <1>): String <named>
ObjectAttribute(Long 1): Object
DataDef(Object): Empty
DataDef(): Object
AddItem(Long 1, Long 2): Object
HasAttribute(Long 1): Boolean True
ValueIndex(String <1>): Long 3
)");
}

TEST(SlotTest, NullPointersOfOptionalArgumentsArriveAsLeftOut) {
    com::Bstr text("t");
    BSTR given = text.Get();
    const auto scripts = std::make_shared<surface::NotingCreateDb>();
    com::WrapObject(scripts).As<::_clsCreateDb>()->DoScript(&given, &given, nullptr, nullptr, nullptr);
    EXPECT_EQ(scripts->last, "DoScript(String <t>, String <t>, String <>, Missing, Missing)");
    const auto crud = std::make_shared<NotingCrud>();
    LONG number = 0;
    com::WrapObject(crud).As<::_clsCRUD>()->DbUpdateData(nullptr, nullptr, nullptr, &number);
    EXPECT_EQ(crud->last, "DbUpdateData(Nothing, Missing, String <>)");
}

/// "MaxLength String <9>" for each property that `read` finds to be no longer what it is in a new object.
template <class Read>
std::string ChangedProperties(Read read) {
    std::string changed;
    for (const Member& member : clsField().Class().members) {
        if (member.kind != automation::InvokeKind::PropertyGet) continue;
        const std::string value = read(member);
        clsField fresh;
        if (value != automation::Describe(automation::Get(fresh, member.name)))
            changed += std::string(member.name) + " " + value + "\n";
    }
    return changed;
}

TEST(SlotTest, ReachAField) {
    for (const Member& let : clsField().Class().members) {
        if (let.kind != automation::InvokeKind::PropertyLet) continue;
        const auto field = std::make_shared<clsField>();
        const SlotClient client(field, __uuidof(::_clsField));
        const Variant value = Sample(let.parameters[0], 9);
        EXPECT_EQ(client.Call(let, {value}), "Empty") << let.name;
        const std::string expected = std::string(let.name) + " " + automation::Describe(value) + "\n";
        EXPECT_EQ(ChangedProperties([&](const Member& get) {
                      return automation::Describe(automation::Get(*field, get.name));
                  }),
                  expected);
        EXPECT_EQ(ChangedProperties([&](const Member& get) { return client.Call(get, {}); }), expected);
    }
}

}  // namespace
}  // namespace korvex::tests
