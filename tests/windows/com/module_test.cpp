#include "support/module.h"

#include "automation/com/bstr.h"
#include "support/late_bound.h"

#include <gtest/gtest.h>

#include <korvex_com.h>

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

}  // namespace
}  // namespace korvex::tests
