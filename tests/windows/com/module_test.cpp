#include "support/module.h"

#include "automation/com/bstr.h"
#include "support/late_bound.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <thread>

namespace korvex::tests {
namespace {

TEST(ModuleTest, ALateBoundHostCreatesAnObjectAndCallsIt) {
    const Module module;
    {
        const auto object = module.Create<IDispatch>(__uuidof(::clsCreateDb));
        const auto put = InvokeByName(object.Get(), "FKPrefix", DISPATCH_PROPERTYPUT,
                                      {com::ComVariant(automation::Variant("F_")).Value()});
        EXPECT_EQ(put.result, S_OK);
        const auto got = InvokeByName(object.Get(), "fkprefix", DISPATCH_PROPERTYGET | DISPATCH_METHOD);
        EXPECT_EQ(got.result, S_OK);
        EXPECT_EQ(com::FromVariant(got.value.Value()), automation::Variant("F_"));
        EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

void CreateEveryClass() {
    const Module module;
    for (const CLSID& classId : {__uuidof(::clsCreateDb), __uuidof(::clsField), __uuidof(::clsCRUD)})
        EXPECT_TRUE(module.Create<IDispatch>(classId));
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

bool IsLoaded() { return GetModuleHandleW(L"korvex.dll") != nullptr; }

TEST(ModuleTest, LeavesTheProcessWhenItsHostLetsGoOfIt) {
    ASSERT_FALSE(IsLoaded());
    CreateEveryClass();
    EXPECT_FALSE(IsLoaded());
    // On a thread that ends, too.
    std::thread([] {
        CreateEveryClass();
        EXPECT_FALSE(IsLoaded());
    }).join();
    EXPECT_FALSE(IsLoaded());
    CreateEveryClass();
}

}  // namespace
}  // namespace korvex::tests
