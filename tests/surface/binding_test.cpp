#include "automation/convert.h"
#include "automation/error.h"
#include "automation/outcome.h"
#include "noting_create_db.h"
#include "persistence/plain_object.h"
#include "support/member_text.h"
#include "support/text_files.h"
#include "surface/cls_crud.h"
#include "surface/cls_field.h"
#include "surface/create_object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace korvex::surface {
namespace {

using automation::InvokeKind;
using automation::OutcomeOf;
using automation::Variant;

TEST(MemberTableTest, HoldsThePublishedMembersInSlotOrder) {
    std::string text;
    for (const automation::ClassInfo* info : {&clsCreateDb().Class(), &clsField().Class(), &clsCRUD().Class(),
                                              &persistence::PlainObject().Class()}) {
        text.append(text.empty() ? "" : "\n").append(info->name) += "\n";
        if (!info->description.empty()) text.append("    \"").append(info->description) += "\"\n";
        text += tests::MembersText(*info);
    }
    tests::ExpectSameText("members.expected", text, tests::ReadFile(KORVEX_EXPECTED_MEMBERS));
}

/// Late-bound calls reach the class's own virtual members, so a derived class sees what an early-bound host
/// would have called.
TEST(LateBindingTest, EveryMemberOfCreateDbIsReached) {
    struct Case {
        const char* name;
        InvokeKind kind;
        std::vector<Variant> arguments;
        std::string call;
        std::string result;
    };
    const auto method = InvokeKind::Method;
    const auto get = InvokeKind::PropertyGet;
    const auto let = InvokeKind::PropertyLet;
    const Variant missing = Variant::Missing();
    const Case cases[] = {
        {"ScriptTypes", get, {}, "ScriptTypes(Missing)", "Object"},
        {"scripttypes", method, {7}, "ScriptTypes(Long 7)", "Object"},
        {"DoScript",
         method,
         {"90", "f.db"},
         "DoScript(String <90>, String <f.db>, String <>, Missing, Missing)",
         "Empty"},
        {"DOSCRIPT",
         method,
         {90, "f.db", missing, "", missing},
         "DoScript(String <90>, String <f.db>, String <>, String <>, Missing)",
         "Empty"},
        {"FKPrefix", get, {}, "FKPrefix()", "String <the FKPrefix>"},
        {"FKPrefix", let, {"F_"}, "FKPrefix(String <F_>)", "Empty"},
        {"ScriptFilePath", get, {}, "ScriptFilePath()", "String <the ScriptFilePath>"},
        {"ScriptFilePath", let, {5}, "ScriptFilePath(String <5>)", "Empty"},
        {"DoMSsqlDb", method, {"f"}, "DoMSsqlDb(String <f>, String <>, Missing)", "Empty"},
        {"DoOracleDb", method, {"f", "S"}, "DoOracleDb(String <f>, String <S>, Missing)", "Empty"},
        {"DoSybaseDb", method, {"f", "S", 1}, "DoSybaseDb(String <f>, String <S>, Long 1)", "Empty"},
        {"CreateRelationship", method, {}, "CreateRelationship(String <>, Missing)", "Empty"},
        {"CreateRelationship", method, {"S", "F_"}, "CreateRelationship(String <S>, String <F_>)", "Empty"},
        {"ShutDown", method, {}, "ShutDown()", "Empty"},
        {"DbSQL", get, {}, "DbSQL()", "String <the DbSQL>"},
        {"DropSQL", get, {}, "DropSQL()", "String <the DropSQL>"},
        {"StoredProcSQL", get, {}, "StoredProcSQL()", "String <the StoredProcSQL>"},
        {"FkConstraintSQL", get, {}, "FkConstraintSQL()", "String <the FkConstraintSQL>"},
        {"DropFkConstraintSQL", get, {}, "DropFkConstraintSQL()", "String <the DropFkConstraintSQL>"},
        {"ShowLog", method, {}, "ShowLog()", "Empty"},
        {"ConnectDB", method, {"c"}, "ConnectDB(String <c>)", "String <connected>"},
        // What callers get wrong reaches no member.
        {"DbSQL", let, {"x"}, "", "error 383"},
        {"DropSQL", let, {"x"}, "", "error 383"},
        {"StoredProcSQL", let, {"x"}, "", "error 383"},
        {"FkConstraintSQL", let, {"x"}, "", "error 383"},
        {"DropFkConstraintSQL", let, {"x"}, "", "error 383"},
        {"Nothing", method, {}, "", "error 438"},
        {"DoScript", method, {"90"}, "", "error 449"},
        {"ShutDown", method, {1}, "", "error 450"},
        {"DoMSsqlDb", method, {Variant::Null()}, "", "error 94"},
    };
    for (const Case& test : cases) {
        auto object = std::make_shared<NotingCreateDb>();
        std::vector<Variant> arguments = test.arguments;
        EXPECT_EQ(OutcomeOf([&] { return object->Invoke(test.name, test.kind, arguments); }), test.result)
            << test.name;
        EXPECT_EQ(object->last, test.call) << test.name;
        EXPECT_EQ(arguments, test.arguments) << test.name << " changed the caller's variables";
    }
}

TEST(LateBindingTest, FieldKeepsWhatIsPutIntoIt) {
    const auto field = std::make_shared<clsField>();
    const std::pair<const char*, Variant> given[] = {
        {"FieldName", "CustomerID"},
        {"DataType", "3"},
        {"IsPrimaryKey", -1},
        {"IsAutoNumber", true},
        {"IsForeignKey", "True"},
        {"FKObjectID", 7.0},
        {"MaxLength", 40},
        {"ValueID", 70000},
        {"FKValueID", -1},
        {"TypeSize", "int"},
        {"nPrimaryKeySeq", 2},
        {"DefaultVal", "0"},
        {"IsLongFld", 1},
    };
    for (const auto& [name, value] : given) {
        automation::Let(*field, name, value);
    }
    std::string kept;
    for (const auto& [name, value] : given) {
        kept += automation::Describe(automation::Get(*field, name)) + "\n";
    }
    EXPECT_EQ(kept,
              "String <CustomerID>\nLong 3\nBoolean True\nBoolean True\nBoolean True\nLong 7\nString <40>\n"
              "Long 70000\nLong -1\nString <int>\nInteger 2\nString <0>\nBoolean True\n");
    EXPECT_EQ(field->nPrimaryKeySeq(), 2);
    EXPECT_EQ(OutcomeOf([&] { automation::Let(*field, "nPrimaryKeySeq", 40000); }), "error 6");
}

TEST(CreateObjectTest, MakesTheClassThatItsIdentifierNames) {
    const auto scripts = CreateObject("KORVEX.clscreatedb");
    EXPECT_NE(std::dynamic_pointer_cast<clsCreateDb>(scripts), nullptr);
    EXPECT_NE(CreateObject("Korvex.clsCreateDb"), scripts);
    EXPECT_NE(std::dynamic_pointer_cast<clsField>(CreateObject("Korvex.clsField")), nullptr);
    for (const char* unknown : {"", "clsField", "Korvex.dbResults", "Korvex.clsField "}) {
        EXPECT_EQ(OutcomeOf([&] { return CreateObject(unknown); }), "error 429") << unknown;
    }
}

}  // namespace
}  // namespace korvex::surface
