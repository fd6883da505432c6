// Objects of the host inside the library: what it calls on them, and that their errors reach the caller
// unchanged.

#include "automation/com/host_object.h"

#include "automation/collection.h"
#include "automation/com/enum_variant.h"
#include "support/host_doubles.h"
#include "support/late_bound.h"
#include "support/module.h"
#include "support/outcome_text.h"
#include "support/print_variant.h"

#include <gtest/gtest.h>

#include <string>

namespace korvex::tests {
namespace {

constexpr WORD call = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

class HostObjectTest : public testing::Test {
  protected:
    ~HostObjectTest() override {
        EXPECT_EQ(LivingHostObjects(), 0) << "the library lets go of what it was given";
        EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
    }

    const Module m_module;
};

com::ComVariant Object(IDispatch* object) { return com::ComVariant(com::FromDispatch(object)); }

TEST_F(HostObjectTest, ALanguageServiceNamesTheDialects) {
    std::string asked;
    const com::ComPtr<IDispatch> service(
        new OneMemberDouble("GetString", [&asked](DISPPARAMS& parameters, VARIANT* result, EXCEPINFO&) {
            for (UINT i = parameters.cArgs; i > 0; --i) {
                const VARIANT& argument = parameters.rgvarg[i - 1];
                asked += automation::Describe(com::FromVariant(argument));
                asked += (argument.vt & VT_BYREF) != 0 ? " by reference; " : ", ";
            }
            const std::string name = "name " + std::to_string(*parameters.rgvarg[0].plVal);
            *result = com::ComVariant(name).Detach();
            return S_OK;
        }));
    const auto scripts = m_module.Create<IDispatch>(__uuidof(::clsCreateDb));
    const com::ComVariant argument = Object(service.Get());
    auto types = InvokeByName(scripts.Get(), "ScriptTypes", call, {argument.Value()});
    ASSERT_EQ(types.result, S_OK);
    EXPECT_EQ(asked,
              "Integer 410, Integer 13, Long 90 by reference; Integer 410, Integer 13, Long 92 by reference; "
              "Integer 410, Integer 13, Long 94 by reference; ");
    EXPECT_EQ(OutcomeText(CallByName(types.value.Value().pdispVal, "Item", call, {3})), "String <name 94>");
}

/// How a failing member of a host's object tells about it.
struct HostError {
    const char* what;
    HRESULT answer;
    WORD code;
    SCODE scode;
    bool isDeferred;
    const char* outcome;  // at the caller of the library
};

void Describe(EXCEPINFO& exception) {
    exception.bstrSource = com::ToBstr("Host.Service");
    exception.bstrDescription = com::ToBstr("The service went wrong");
}

HRESULT STDMETHODCALLTYPE FillIn(EXCEPINFO* exception) {
    Describe(*exception);
    return S_OK;
}

TEST_F(HostObjectTest, ErrorsOfALateBoundObjectReachTheCallerUnchanged) {
    const HostError errors[] = {
        {"a runtime number", DISP_E_EXCEPTION, 1001, 0, false,
         "0x800A03E9 <Host.Service> <The service went wrong>"},
        {"a runtime result", DISP_E_EXCEPTION, 0, static_cast<SCODE>(0x800A000B), false,
         "0x800A000B <Host.Service> <The service went wrong>"},
        {"a result of its own", DISP_E_EXCEPTION, 0, static_cast<SCODE>(0x80040E14), false,
         "0x80040E14 <Host.Service> <The service went wrong>"},
        {"filled in later", DISP_E_EXCEPTION, 0, static_cast<SCODE>(0x80040E14), true,
         "0x80040E14 <Host.Service> <The service went wrong>"},
        {"access", E_ACCESSDENIED, 0, 0, false, "E_ACCESSDENIED"},
        {"a count", DISP_E_BADPARAMCOUNT, 0, 0, false, "0x800A01C2"},
        {"a type", DISP_E_TYPEMISMATCH, 0, 0, false, "0x800A000D"},
    };
    for (const HostError& error : errors) {
        const com::ComPtr<IDispatch> service(
            new OneMemberDouble("GetString", [&error](DISPPARAMS&, VARIANT*, EXCEPINFO& exception) {
                exception.wCode = error.code;
                exception.scode = error.scode;
                if (error.isDeferred) exception.pfnDeferredFillIn = FillIn;
                if (error.answer == DISP_E_EXCEPTION && !error.isDeferred) Describe(exception);
                return error.answer;
            }));
        com::ComVariant argument = Object(service.Get());
        const std::string expected = error.outcome;

        const auto late = m_module.Create<IDispatch>(__uuidof(::clsCreateDb));
        const auto outcome = InvokeByName(late.Get(), "ScriptTypes", call, {argument.Value()});
        EXPECT_EQ(outcome.result, DISP_E_EXCEPTION) << error.what;
        EXPECT_EQ(OutcomeText(outcome).substr(0, expected.size()), expected) << error.what;

        const auto early = late.As<::_clsCreateDb>();
        com::ComPtr<IDispatch> types;
        const HRESULT result = early->get_ScriptTypes(&argument, types.Put());
        EXPECT_EQ(SlotText(result, early.Get(), __uuidof(::_clsCreateDb)).substr(0, expected.size()),
                  expected)
            << error.what;
    }
}

TEST_F(HostObjectTest, AnObjectWithoutTheMemberIsNoLanguageService) {
    const com::ComPtr<IDispatch> other(
        new OneMemberDouble("Other", [](DISPPARAMS&, VARIANT*, EXCEPINFO&) { return S_OK; }));
    const auto scripts = m_module.Create<IDispatch>(__uuidof(::clsCreateDb));
    const com::ComVariant argument = Object(other.Get());
    EXPECT_EQ(OutcomeText(InvokeByName(scripts.Get(), "ScriptTypes", call, {argument.Value()})),
              "0x800A01B6 <Korvex> <Object doesn't support this property or method: GetString>");
}

HRESULT LeaveError(HRESULT result) {
    com::ComPtr<ICreateErrorInfo> info;
    CreateErrorInfo(info.Put());
    info->SetSource(com::Bstr("Host.Data").Get());
    info->SetDescription(com::Bstr("No definition today").Get());
    SetErrorInfo(0, info.As<IErrorInfo>().Get());
    return result;
}

TEST_F(HostObjectTest, ErrorsOfADataObjectReachTheCallerUnchanged) {
    const struct {
        std::function<HRESULT(BSTR*)> tableName;
        const char* outcome;
    } cases[] = {
        {[](BSTR*) { return LeaveError(static_cast<HRESULT>(0x80041234)); },
         "0x80041234 <Host.Data> <No definition today>"},
        {[](BSTR*) { return LeaveError(static_cast<HRESULT>(0x800A0039)); },
         "0x800A0039 <Host.Data> <No definition today>"},
        {[](BSTR*) { return E_FAIL; }, "E_FAIL <Korvex> <"},
    };
    for (const auto& test : cases) {
        const com::ComPtr<::QORObject> definition(new DefinitionDouble(test.tableName));
        const auto crud = m_module.Create<::_clsCRUD>(__uuidof(::clsCRUD));
        const std::string expected = test.outcome;

        const com::ComVariant argument = Object(definition.Get());
        const auto outcome = InvokeByName(crud.Get(), "GetTableName", call, {argument.Value()});
        EXPECT_EQ(OutcomeText(outcome).substr(0, expected.size()), expected);

        ::QORObject* variable = definition.Get();
        com::Bstr name;
        const HRESULT result = crud->GetTableName(&variable, name.Put());
        EXPECT_EQ(SlotText(result, crud.Get(), __uuidof(::_clsCRUD)).substr(0, expected.size()), expected);
        EXPECT_EQ(name.Get(), nullptr);
    }
}

TEST_F(HostObjectTest, ADataObjectIsReadThroughItsSlots) {
    const com::ComPtr<::QORObject> definition(new DefinitionDouble([](BSTR* result) {
        *result = com::ToBstr("tOrder");
        return S_OK;
    }));
    const auto crud = m_module.Create<::_clsCRUD>(__uuidof(::clsCRUD));
    ::QORObject* variable = definition.Get();
    com::Bstr name;
    EXPECT_EQ(crud->GetTableName(&variable, name.Put()), S_OK);
    EXPECT_EQ(name.Text(), "tOrder");
    EXPECT_EQ(variable, definition.Get()) << "a by-reference object that is only read stays";
}

/// A collection as a host makes it whose slots dispatch through the type library, which knows no enumerator:
/// it is reached by the object's other interfaces, or not at all.
class CollectionDouble final : public DefinitionDouble {
  public:
    CollectionDouble(REFIID offered, com::ComPtr<IUnknown> other)
        : DefinitionDouble(nullptr), m_offered(offered), m_other(std::move(other)) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (id == m_offered) return m_other->QueryInterface(id, object);
        return DefinitionDouble::QueryInterface(id, object);
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

  private:
    const IID m_offered;
    com::ComPtr<IUnknown> m_other;
};

/// The items of a For Each over a host's object, or the error.
std::string ItemsOf(::QORObject* object) {
    std::string text;
    try {
        const auto items = com::EnumerateHost(object);
        while (const auto item = items->Next())
            text += automation::Describe(*item) + " ";
    } catch (const automation::Error& error) {
        return error.Description();
    }
    return text;
}

TEST_F(HostObjectTest, ForEachAsksTheDispatchInterfaceThenTheObjectItself) {
    const auto newItems = [] {
        auto items = std::make_shared<automation::Collection>();
        items->Add("one");
        items->Add("two");
        return com::EnumerateForHost(items);
    };
    const com::ComPtr<IDispatch> dispatch(
        new OneMemberDouble("_NewEnum", [&](DISPPARAMS&, VARIANT* result, EXCEPINFO&) {
            result->vt = VT_UNKNOWN;
            result->punkVal = newItems().Detach();
            return S_OK;
        }));
    const struct {
        const IID& offered;
        com::ComPtr<IUnknown> other;
        const char* items;
    } cases[] = {
        {IID_IDispatch, dispatch.As<IUnknown>(), "String <one> String <two> "},
        {IID_IEnumVARIANT, newItems().As<IUnknown>(), "String <one> String <two> "},
        {IID_NULL, {}, "Not implemented: _NewEnum"},
    };
    for (const auto& test : cases) {
        const com::ComPtr<::QORObject> object(new CollectionDouble(test.offered, test.other));
        EXPECT_EQ(ItemsOf(object.Get()), test.items);
        EXPECT_EQ(ItemsOf(object.Get()), test.items) << "each For Each starts anew";
    }
}

TEST_F(HostObjectTest, TheConnectionOfAHostComesBackAsItIs) {
    const com::ComPtr<IDispatch> connection(
        new OneMemberDouble("Close", [](DISPPARAMS&, VARIANT*, EXCEPINFO&) { return E_FAIL; }));
    const auto crud = m_module.Create<::_clsCRUD>(__uuidof(::clsCRUD));
    const com::ComVariant argument = Object(connection.Get());
    com::ComPtr<IDispatch> held;
    for (const WORD assignment : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        EXPECT_EQ(OutcomeText(InvokeByName(crud.Get(), "DbConn", assignment, {argument.Value()})), "Empty");
        EXPECT_EQ(crud->get_DbConn(held.Put()), S_OK);
        EXPECT_EQ(held.Get(), connection.Get());
        IDispatch* nothing = nullptr;
        EXPECT_EQ(crud->put_DbConn(&nothing), S_OK);
        EXPECT_EQ(crud->get_DbConn(held.Put()), S_OK);
        EXPECT_EQ(held.Get(), nullptr);
    }
}

}  // namespace
}  // namespace korvex::tests
