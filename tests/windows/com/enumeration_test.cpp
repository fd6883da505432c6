// For Each over a collection of the DLL.

#include "support/late_bound.h"
#include "support/module.h"
#include "support/outcome_text.h"
#include "support/print_variant.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <string>
#include <string_view>

namespace korvex::tests {
namespace {

using automation::Variant;

class EnumerationTest : public testing::Test {
  protected:
    EnumerationTest() {
        const auto scripts = m_module.Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
        EXPECT_EQ(scripts->get_ScriptTypes(nullptr, m_collection.Put()), S_OK);
    }
    ~EnumerationTest() override {
        m_collection = {};
        EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
    }

    com::ComPtr<IEnumVARIANT> NewEnum() {
        const CallOutcome outcome =
            InvokeById(m_collection.Get(), DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.Value().vt, VT_UNKNOWN);
        return com::ComPtr<IUnknown>(outcome.value.Value().punkVal).As<IEnumVARIANT>();
    }

    const Module m_module;
    com::ComPtr<IDispatch> m_collection;
};

/// "S_OK 2: 90 92"
std::string Taken(IEnumVARIANT& items, ULONG count) {
    VARIANT raw[4] = {};
    ULONG fetched = 77;
    const HRESULT result = items.Next(count, raw, &fetched);
    std::string text = ResultName(result) + " " + std::to_string(fetched) + ":";
    for (ULONG i = 0; i < fetched; ++i) {
        text += " " + automation::Describe(com::FromVariant(raw[i]));
        VariantClear(&raw[i]);
    }
    return text;
}

TEST_F(EnumerationTest, GivesTheItemsInOrder) {
    const auto items = NewEnum();
    EXPECT_EQ(Taken(*items.Get(), 2), "S_OK 2: String <90> String <92>");
    EXPECT_EQ(Taken(*items.Get(), 2), "S_FALSE 1: String <94>");
    EXPECT_EQ(Taken(*items.Get(), 1), "S_FALSE 0:");
    EXPECT_EQ(Taken(*items.Get(), 0), "S_OK 0:");
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Skip(1), S_OK);
    com::ComPtr<IEnumVARIANT> copy;
    EXPECT_EQ(items->Clone(copy.Put()), S_OK);
    EXPECT_EQ(Taken(*items.Get(), 3), "S_FALSE 2: String <92> String <94>");
    EXPECT_EQ(Taken(*copy.Get(), 1), "S_OK 1: String <92>") << "a copy stands where it was made";
    EXPECT_EQ(copy->Skip(5), S_FALSE);

    VARIANT one;
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Next(1, &one, nullptr), S_OK) << "one item needs no count";
    VariantClear(&one);
    EXPECT_EQ(items->Next(2, &one, nullptr), E_POINTER);
    EXPECT_EQ(items->Next(1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(items->Clone(nullptr), E_POINTER);
}

TEST_F(EnumerationTest, IsAMemberOfCollectionsOnly) {
    EXPECT_EQ(IdOf(m_collection.Get(), "_newenum"), DISPID_NEWENUM);
    EXPECT_EQ(OutcomeText(InvokeById(m_collection.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYPUT)),
              "DISP_E_MEMBERNOTFOUND");
    const com::ComVariant one(1);
    EXPECT_EQ(OutcomeText(InvokeById(m_collection.Get(), DISPID_NEWENUM, DISPATCH_METHOD, {one.Value()})),
              "DISP_E_BADPARAMCOUNT");
    const auto field = m_module.Create<IDispatch>(__uuidof(::clsField));
    EXPECT_EQ(IdOf(field.Get(), "_NewEnum"), DISPID_UNKNOWN);
}

std::string BytesOf(BSTR text) { return {reinterpret_cast<const char*>(text), SysStringByteLen(text)}; }

TEST_F(EnumerationTest, ItemsComeBackAsTheyWentIn) {
    const auto collection = m_collection.As<::Collection>();
    const com::ComVariant missing(Variant::Missing());
    const VARIANT& none = missing.Value();
    const auto field = m_module.Create<IDispatch>(__uuidof(::clsField));
    const com::ComVariant object(com::FromDispatch(field.Get()));
    const com::ComVariant key("k");
    EXPECT_EQ(collection->Add(object.Value(), key.Value(), none, none), S_OK);
    com::ComVariant back;
    EXPECT_EQ(collection->get_Item(key.Value(), &back), S_OK);
    EXPECT_EQ(back.Value().pdispVal, field.Get()) << "the same object, not another one of the same state";
    for (const std::wstring_view text :
         {L"\xD83D", L"a\xDE00z", L"\xDE00\xD83D\xDE00\xD83D", L"\xD7FF\x0000\xE000"}) {
        for (const UINT odd : {0u, 1u}) {
            const auto size = static_cast<UINT>(text.size() * sizeof(wchar_t));
            com::ComVariant item;
            item.Value().vt = VT_BSTR;
            item.Value().bstrVal =
                SysAllocStringByteLen(reinterpret_cast<const char*>(text.data()), size - odd);
            EXPECT_EQ(collection->Add(item.Value(), none, none, none), S_OK);
            LONG count = 0;
            EXPECT_EQ(collection->get_Count(&count), S_OK);
            com::ComVariant last;
            EXPECT_EQ(collection->get_Item(com::ComVariant(std::int32_t{count}).Value(), &last), S_OK);
            EXPECT_EQ(BytesOf(last.Value().bstrVal), BytesOf(item.Value().bstrVal));
        }
    }
    com::ComPtr<IUnknown> items;
    EXPECT_EQ(collection->get__NewEnum(items.Put()), S_OK);
    EXPECT_EQ(Taken(*items.As<IEnumVARIANT>().Get(), 3), "S_OK 3: String <90> String <92> String <94>");
    EXPECT_EQ(collection->Remove(key.Value()), S_OK);
}

}  // namespace
}  // namespace korvex::tests
