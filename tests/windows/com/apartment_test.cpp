// Objects that are used from another apartment than the one that they live in. Two programs hold these tests:
// one names the component in its manifest, the other one finds it by its registration.

#include "automation/com/bstr.h"
#include "support/host_doubles.h"
#include "support/late_bound.h"
#include "support/outcome_text.h"
#include "support/print_variant.h"

#include <gtest/gtest.h>

#include <objbase.h>
#include <string>
#include <thread>

namespace korvex::tests {
namespace {

using com::ComPtr;
using com::ComVariant;

constexpr WORD call = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

template <class Interface>
ComPtr<Interface> Create(REFCLSID classId) {
    ComPtr<Interface> object;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                               reinterpret_cast<void**>(object.Put())),
              S_OK);
    return object;
}

/// What a host gets from objects of another apartment: a line for each way to use them.
std::string Uses(::_clsCRUD* crud, ::_clsCreateDb* scripts) {
    if (crud == nullptr || scripts == nullptr) return "not created";
    std::string text;
    const auto add = [&text](const char* use, HRESULT answer) {
        text += std::string("\n") + use + " " + ResultName(answer);
    };
    const com::Bstr prefix("F_");
    BSTR given = prefix.Get();
    com::Bstr result;
    add("put", crud->put_FKPrefix(&given));
    add("get", crud->get_FKPrefix(result.Put()));
    text += " " + result.Text();

    ComVariant key(1);
    ComVariant value("value");
    VARIANT_BOOL found = VARIANT_TRUE;
    ::dbResults last = ::dbNoError;
    add("call", crud->DbGetField(&key, &given, &given, &given, &value, &found));
    crud->get_LastResult(&last);
    text += " " + std::to_string(found) + ", " + std::to_string(last);

    const ComPtr<::QORObject> definition(new DefinitionDouble([](BSTR* name) {
        *name = com::ToBstr("tOrder");
        return S_OK;
    }));
    ::QORObject* variable = definition.Get();
    add("a data object", crud->GetTableName(&variable, result.Put()));
    text += " " + result.Text();
    variable = nullptr;
    add("an error", crud->GetTableName(&variable, result.Put()));
    text += "\nlate bound " + OutcomeText(CallByName(scripts, "ShutDown", call));

    ComVariant missing(automation::Variant::Missing());
    ComPtr<IDispatch> types;
    add("enumerate", scripts->get_ScriptTypes(&missing, types.Put()));
    if (!types) return text;
    const CallOutcome items = InvokeById(types.Get(), DISPID_NEWENUM, call);
    auto each = ComPtr<IUnknown>(items.value.Value().punkVal).As<IEnumVARIANT>();
    ComVariant item;
    while (each && each->Next(1, &item, nullptr) == S_OK)
        text += " " + automation::Describe(com::FromVariant(item.Value()));
    return text;
}

constexpr const char* allUses = R"(
put S_OK
get S_OK F_
call S_OK 0, -32766
a data object S_OK tOrder
an error 0x800A005B
late bound 0x800A005B <Korvex> <Object variable or With block variable not set>
enumerate S_OK String <90> String <92> String <94>)";

/// Runs `work` on a thread of its own in an apartment of that kind, while this one answers calls.
template <class Work>
void InAnotherApartment(DWORD kind, Work work) {
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread thread([&] {
        EXPECT_EQ(CoInitializeEx(nullptr, kind), S_OK);
        work();
        CoUninitialize();
        SetEvent(done);
    });
    DWORD index = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &done, &index);
    thread.join();
    CloseHandle(done);
}

class ApartmentTest : public testing::Test {
  protected:
    ApartmentTest() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~ApartmentTest() override {
        CoUninitialize();
        EXPECT_EQ(LivingHostObjects(), 0);
    }
};

TEST_F(ApartmentTest, AFreeThreadedHostUsesObjects) {
    InAnotherApartment(COINIT_MULTITHREADED, [] {
        const auto crud = Create<::_clsCRUD>(__uuidof(::clsCRUD));
        const auto scripts = Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
        EXPECT_EQ(Uses(crud.Get(), scripts.Get()), allUses);
    });
}

TEST_F(ApartmentTest, ASecondApartmentUsesTheObjectsOfTheFirst) {
    const auto crud = Create<::_clsCRUD>(__uuidof(::clsCRUD));
    const auto scripts = Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
    ComPtr<IStream> streams[2];
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(::_clsCRUD), crud.Get(), streams[0].Put()),
              S_OK);
    ASSERT_EQ(
        CoMarshalInterThreadInterfaceInStream(__uuidof(::_clsCreateDb), scripts.Get(), streams[1].Put()),
        S_OK);
    InAnotherApartment(COINIT_APARTMENTTHREADED, [&] {
        ComPtr<::_clsCRUD> crudThere;
        ComPtr<::_clsCreateDb> scriptsThere;
        CoGetInterfaceAndReleaseStream(streams[0].Detach(), __uuidof(::_clsCRUD),
                                       reinterpret_cast<void**>(crudThere.Put()));
        CoGetInterfaceAndReleaseStream(streams[1].Detach(), __uuidof(::_clsCreateDb),
                                       reinterpret_cast<void**>(scriptsThere.Put()));
        EXPECT_EQ(Uses(crudThere.Get(), scriptsThere.Get()), allUses);
    });
    EXPECT_EQ(Uses(crud.Get(), scripts.Get()), allUses) << "and at home";
}

}  // namespace
}  // namespace korvex::tests
