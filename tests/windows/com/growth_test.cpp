// A host may create, use and release objects for as long as it likes.

#include "automation/com/bstr.h"
#include "support/late_bound.h"
#include "support/module.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <vector>

namespace korvex::tests {
namespace {

/// Blocks in use in all heaps of the process.
struct HeapUse {
    std::size_t blocks = 0;
    std::size_t bytes = 0;
};

HeapUse CurrentHeapUse() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    HeapUse use;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry = {};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
            ++use.blocks;
            use.bytes += entry.cbData;
        }
        HeapUnlock(heaps[i]);
    }
    return use;
}

/// What a host does with the three classes: late and early bound, with failures and with a collection.
void OneRound(const Module& module) {
    constexpr WORD call = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    const auto scripts = module.Create<IDispatch>(__uuidof(::clsCreateDb));
    CallByName(scripts.Get(), "FKPrefix", DISPATCH_PROPERTYPUT, {"a prefix of some length"});
    CallByName(scripts.Get(), "FKPrefix", call);
    CallByName(scripts.Get(), "ShutDown", call);
    CallByName(scripts.Get(), "DoScript", call, {"no dialect", "x", "y"});
    CallByName(scripts.Get(), "DoScript", call, {"90"});
    const auto types = CallByName(scripts.Get(), "ScriptTypes", call);
    const auto items = InvokeById(types.value.Value().pdispVal, DISPID_NEWENUM, call);
    com::ComVariant item;
    com::ComPtr<IUnknown>(items.value.Value().punkVal).As<IEnumVARIANT>()->Next(1, &item, nullptr);

    const auto crud = module.Create<::_clsCRUD>(__uuidof(::clsCRUD));
    com::ComVariant key(1);
    com::ComVariant value("a value");
    com::Bstr text("a field with a name");
    BSTR names[] = {text.Get(), text.Get(), text.Get()};
    VARIANT_BOOL found = VARIANT_FALSE;
    crud->DbGetField(&key, &names[0], &names[1], &names[2], &value, &found);
    crud->DbGetField(nullptr, nullptr, nullptr, nullptr, nullptr, &found);  // leaves error information
    SetErrorInfo(0, nullptr);

    const auto field = module.Create<::_clsField>(__uuidof(::clsField));
    field->put_FieldName(text.Get());
    com::Bstr name;
    field->get_FieldName(name.Put());
}

TEST(GrowthTest, TenThousandRoundsLeaveNothingBehind) {
    const Module module;
    for (int i = 0; i < 200; ++i)
        OneRound(module);  // fills the caches of the system
    const HeapUse before = CurrentHeapUse();
    for (int i = 0; i < 10000; ++i)
        OneRound(module);
    const HeapUse after = CurrentHeapUse();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    // One block of every hundredth round would show.
    EXPECT_LT(after.blocks, before.blocks + 100);
    EXPECT_LT(after.bytes, before.bytes + 10000);
}

}  // namespace
}  // namespace korvex::tests
