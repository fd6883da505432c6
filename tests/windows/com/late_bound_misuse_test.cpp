// What late-bound callers get wrong, and the exact answer to each.

#include "automation/com/bstr.h"
#include "support/late_bound.h"
#include "support/module.h"
#include "support/outcome_text.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using automation::Variant;

constexpr WORD method = DISPATCH_METHOD;
constexpr WORD get = DISPATCH_PROPERTYGET;
constexpr WORD call = DISPATCH_METHOD | DISPATCH_PROPERTYGET;  // what script hosts send
constexpr WORD put = DISPATCH_PROPERTYPUT;
constexpr WORD set = DISPATCH_PROPERTYPUTREF;

struct Misuse {
    const char* member;
    WORD flags;
    std::vector<Variant> arguments;
    const char* outcome;
};

class LateBoundMisuseTest : public testing::Test {
  protected:
    void Expect(REFCLSID classId, const std::vector<Misuse>& cases) {
        const auto object = m_module.Create<IDispatch>(classId);
        for (const Misuse& test : cases) {
            const CallOutcome outcome = CallByName(object.Get(), test.member, test.flags, test.arguments);
            EXPECT_EQ(OutcomeText(outcome), test.outcome)
                << test.member << ", flags " << test.flags << ", " << test.arguments.size() << " arguments";
        }
    }

    const Module m_module;
};

// Script hosts show DISP_E_MEMBERNOTFOUND as 438, counts as 450, DISP_E_PARAMNOTOPTIONAL as 449, types as 13,
// DISP_E_OVERFLOW as 6.
TEST_F(LateBoundMisuseTest, OfTheScriptGenerator) {
    const Variant missing = Variant::Missing();
    const Variant anObject = com::FromDispatch(m_module.Create<IDispatch>(__uuidof(::clsField)).Get());
    Expect(
        __uuidof(::clsCreateDb),
        {
            {"DbSQL", put, {"x"}, "DISP_E_MEMBERNOTFOUND"},
            {"ScriptTypes", set, {anObject}, "DISP_E_MEMBERNOTFOUND"},
            {"DoScript", put, {"x"}, "DISP_E_MEMBERNOTFOUND"},
            {"DoScript", get, {"90", "x"}, "DISP_E_MEMBERNOTFOUND"},
            {"DoScript", call, {}, "DISP_E_BADPARAMCOUNT"},
            {"DoScript", call, {"90"}, "DISP_E_BADPARAMCOUNT"},
            {"DoScript", call, {"90", "x", "", "", missing, 1}, "DISP_E_BADPARAMCOUNT"},
            {"DoScript", call, {missing, "x"}, "DISP_E_PARAMNOTOPTIONAL at 1"},
            {"DoScript", call, {"90", missing, "Orders"}, "DISP_E_PARAMNOTOPTIONAL at 1"},
            {"DoScript", call, {Variant::Null(), "x"}, "DISP_E_TYPEMISMATCH at 1"},
            {"DoScript", call, {"90", anObject}, "DISP_E_TYPEMISMATCH at 0"},
            {"DoMSsqlDb", call, {automation::Bytes{1, 2}}, "DISP_E_TYPEMISMATCH at 0"},
            {"ShutDown", method, {1}, "DISP_E_BADPARAMCOUNT"},
            {"DbSQL", get, {1}, "DISP_E_BADPARAMCOUNT"},
            {"FKPrefix", put, {}, "DISP_E_BADPARAMCOUNT"},
            {"FKPrefix", put, {"a", "b"}, "DISP_E_BADPARAMCOUNT"},
            {"FKPrefix", put, {Variant::Null()}, "DISP_E_TYPEMISMATCH at 0"},
            {"FKPrefix", put, {missing}, "DISP_E_PARAMNOTOPTIONAL at 0"},
            {"ShutDown", method, {}, "0x800A005B <Korvex> <Object variable or With block variable not set>"},
            {"ScriptTypes", get, {"no object"}, "0x800A01A8 <Korvex> <Object required>"},
            // Nothing of that reaches a member: another identifier does nothing.
            {"DoScript", call, {"no dialect", "x"}, "Empty"},
            {"FKPrefix", put, {12}, "Empty"},
            {"FKPrefix", method, {}, "String <12>"},
        });
}

TEST_F(LateBoundMisuseTest, OfAField) {
    Expect(__uuidof(::clsField), {
                                     {"DataType", put, {"3x"}, "DISP_E_TYPEMISMATCH at 0"},
                                     {"DataType", put, {3e9}, "DISP_E_OVERFLOW at 0"},
                                     {"DataType", put, {Variant::Null()}, "DISP_E_TYPEMISMATCH at 0"},
                                     {"nPrimaryKeySeq", put, {40000}, "DISP_E_OVERFLOW at 0"},
                                     {"IsLongFld", put, {"maybe"}, "DISP_E_TYPEMISMATCH at 0"},
                                     {"FieldName", call, {"x"}, "DISP_E_BADPARAMCOUNT"},
                                     {"DataType", put, {"&H10"}, "Empty"},
                                     {"DataType", get, {}, "Long 16"},
                                     {"nPrimaryKeySeq", put, {2.5}, "Empty"},
                                     {"nPrimaryKeySeq", get, {}, "Integer 2"},
                                     {"IsLongFld", put, {Variant()}, "Empty"},
                                     {"IsLongFld", get, {}, "Boolean False"},
                                 });
}

TEST_F(LateBoundMisuseTest, OfThePersistenceClass) {
    const Variant missing = Variant::Missing();
    const Variant nothing = automation::ObjectRef();
    const Variant noDataObject = com::FromDispatch(m_module.Create<IDispatch>(__uuidof(::clsField)).Get());
    Expect(__uuidof(::clsCRUD),
           {
               {"LastResult", put, {0}, "DISP_E_MEMBERNOTFOUND"},
               {"LastResult", get, {}, "Long 0"},
               {"DbConn", put, {"x"}, "DISP_E_TYPEMISMATCH at 0"},
               {"DbConn", set, {1}, "DISP_E_TYPEMISMATCH at 0"},
               {"DbDataExists", call, {missing, 1}, "DISP_E_PARAMNOTOPTIONAL at 1"},
               {"DbDataExists", call, {5, 1}, "DISP_E_TYPEMISMATCH at 1"},
               {"DbDataExists", call, {noDataObject, 1}, "DISP_E_TYPEMISMATCH at 1"},
               {"DbGetField", call, {1, noDataObject, "T", "F", ""}, "DISP_E_TYPEMISMATCH at 3"},
               {"DbGetData", call, {nothing, 1, Variant::Null()}, "DISP_E_TYPEMISMATCH at 0"},
               {"DbSaveData", call, {"no object"}, "DISP_E_TYPEMISMATCH at 0"},
               // Right calls on an object that is not connected have a result of their own.
               {"DbGetData", call, {nothing, 1}, "Long 0"},
               {"LastResult", get, {}, "Long -32766"},
               {"DbGetField", call, {1, "K", "T", "F", ""}, "Boolean False"},
               {"DisconnectDB", call, {}, "Empty"},
           });
}

TEST_F(LateBoundMisuseTest, OfNamesAndIdentifiers) {
    const auto object = m_module.Create<IDispatch>(__uuidof(::clsCreateDb));
    const struct {
        std::vector<std::wstring> names;
        HRESULT result;
        std::vector<DISPID> ids;
    } cases[] = {
        {{L"DoScript"}, S_OK, {2}},
        {{L"dOsCRIPT"}, S_OK, {2}},
        {{L"DoScript", L"sFilename", L"OLANGUAGESVR"}, S_OK, {2, 1, 4}},
        {{L"DoScript", L"nothing"}, DISP_E_UNKNOWNNAME, {2, DISPID_UNKNOWN}},
        {{L"FKPrefix", L"newValue"}, S_OK, {3, 0}},
        {{L"Class_Initialize"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
        {{L"OpenRepository"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
        {{L""}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
        {{L"nothing", L"sFilename"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN, DISPID_UNKNOWN}},
        {{L"_NewEnum"}, DISP_E_UNKNOWNNAME, {DISPID_UNKNOWN}},
    };
    for (const auto& test : cases) {
        std::vector<LPOLESTR> names;
        for (const std::wstring& name : test.names)
            names.push_back(const_cast<LPOLESTR>(name.c_str()));
        std::vector<DISPID> ids(names.size(), 77);
        const auto count = static_cast<UINT>(names.size());
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names.data(), count, 0, ids.data()), test.result)
            << com::FromWide(test.names.front());
        EXPECT_EQ(ids, test.ids) << com::FromWide(test.names.front());
    }

    // 4 and 6 are the slots of lets, which share the identifier of their get.
    for (const DISPID id :
         std::vector<DISPID>{DISPID_VALUE, DISPID_NEWENUM, DISPID_UNKNOWN, 4, 6, 19, -400}) {
        EXPECT_EQ(OutcomeText(InvokeById(object.Get(), id, call)), "DISP_E_MEMBERNOTFOUND") << id;
    }
}

TEST_F(LateBoundMisuseTest, OfTheDispatchInterfaceItself) {
    const auto object = m_module.Create<IDispatch>(__uuidof(::clsCreateDb));
    LPOLESTR noName = nullptr;
    DISPID id = 0;
    EXPECT_EQ(object->GetIDsOfNames(IID_IDispatch, &noName, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &noName, 1, 0, &id), E_INVALIDARG);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &noName, 0, 0, &id), E_INVALIDARG);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &noName, 1, 0, nullptr), E_INVALIDARG);

    DISPPARAMS none = {};
    DISPPARAMS broken = {};
    broken.cArgs = 1;
    const DISPID shutDown = IdOf(object.Get(), "ShutDown");
    EXPECT_EQ(object->Invoke(shutDown, IID_IDispatch, 0, method, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->Invoke(shutDown, IID_NULL, 0, method, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(object->Invoke(shutDown, IID_NULL, 0, method, &broken, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    VARIANT one = {};
    DISPPARAMS unnamed = {&one, nullptr, 1, 1};
    EXPECT_EQ(object->Invoke(shutDown, IID_NULL, 0, method, &unnamed, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    // A caller that wants no details gets none.
    EXPECT_EQ(object->Invoke(shutDown, IID_NULL, 0, method, &none, nullptr, nullptr, nullptr),
              DISP_E_EXCEPTION);

    UINT count = 0;
    com::ComPtr<ITypeInfo> info;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(object->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(object->GetTypeInfo(1, 0, info.Put()), DISP_E_BADINDEX);
    EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(object->GetTypeInfo(0, 0, info.Put()), S_OK);
}

TEST_F(LateBoundMisuseTest, OfNamedArguments) {
    const auto object = m_module.Create<IDispatch>(__uuidof(::clsCreateDb));
    const com::ComVariant text("no dialect");
    const struct {
        std::vector<DISPID> names;  // of the first arguments; the rest is positional
        UINT count;
        HRESULT result;
        UINT badArgument;
    } cases[] = {
        {{1, 0}, 2, S_OK, UINT_MAX},
        {{1}, 2, S_OK, UINT_MAX},
        {{0}, 2, DISP_E_PARAMNOTFOUND, 0},     // the positional one is sID already
        {{1, 1}, 2, DISP_E_PARAMNOTFOUND, 1},  // twice
        {{1, 5}, 2, DISP_E_PARAMNOTFOUND, 1},  // no such parameter
        {{-7, 0}, 2, DISP_E_PARAMNOTFOUND, 0},
        {{1}, 1, DISP_E_BADPARAMCOUNT, UINT_MAX},  // sID is left out
        {{0, 1, 2}, 2, DISP_E_BADPARAMCOUNT, UINT_MAX},
    };
    for (const auto& test : cases) {
        std::vector<VARIANT> values(test.count, text.Value());
        std::vector<DISPID> names = test.names;
        DISPPARAMS parameters = {values.data(), names.data(), test.count, static_cast<UINT>(names.size())};
        UINT badArgument = UINT_MAX;
        EXPECT_EQ(object->Invoke(2, IID_NULL, 0, method, &parameters, nullptr, nullptr, &badArgument),
                  test.result);
        EXPECT_EQ(badArgument, test.badArgument);
    }
}

}  // namespace
}  // namespace korvex::tests
