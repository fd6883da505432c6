// Null pointers and failures at the slots of the dual interfaces.

#include "automation/com/bstr.h"
#include "support/module.h"
#include "support/outcome_text.h"

#include <gtest/gtest.h>

#include <functional>
#include <korvex_com.h>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

template <class Interface>
struct SlotCase {
    const char* what;
    std::function<HRESULT(Interface&)> call;
    const char* outcome;
};

template <class Interface>
void ExpectAll(Interface* object, const std::vector<SlotCase<Interface>>& cases) {
    for (const auto& test : cases) {
        // What an earlier failure left on the thread is not this slot's answer.
        EXPECT_EQ(SlotText(test.call(*object), object, __uuidof(Interface)), test.outcome) << test.what;
    }
}

TEST(SlotMisuseTest, NullPointersAtTheScriptGenerator) {
    const Module module;
    const auto object = module.Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
    com::Bstr text("text");
    BSTR given = text.Get();
    using T = ::_clsCreateDb;
    ExpectAll<T>(
        object.Get(),
        {
            {"get_FKPrefix", [](T& o) { return o.get_FKPrefix(nullptr); },
             "E_POINTER <Korvex> <Null pointer for the result>"},
            {"DoScript", [&](T& o) { return o.DoScript(nullptr, &given, nullptr, nullptr, nullptr); },
             "E_POINTER <Korvex> <Null pointer for the argument sID>"},
            {"ShutDown", [](T& o) { return o.ShutDown(); },
             "0x800A005B <Korvex> <Object variable or With block variable not set>"},
        });
    EXPECT_EQ(text.Text(), "text");
}

TEST(SlotMisuseTest, NullPointersAtThePersistenceClass) {
    const Module module;
    const auto object = module.Create<::_clsCRUD>(__uuidof(::clsCRUD));
    BSTR text = nullptr;
    com::ComVariant key(1);
    com::ComVariant noKey(automation::Variant::Missing());
    ::QORObject* nothing = nullptr;
    VARIANT_BOOL flag = VARIANT_TRUE;
    LONG number = 7;
    com::Bstr name;
    using T = ::_clsCRUD;
    ExpectAll<T>(
        object.Get(),
        {
            {"put_DbConn", [](T& o) { return o.put_DbConn(nullptr); },
             "E_POINTER <Korvex> <Null pointer for the argument newValue>"},
            {"ConnectDB", [&](T& o) { return o.ConnectDB(nullptr, nullptr, &flag); },
             "E_POINTER <Korvex> <Null pointer for the argument sConnection>"},
            {"DbGetField", [&](T& o) { return o.DbGetField(&key, &text, &text, &text, nullptr, &flag); },
             "E_POINTER <Korvex> <Null pointer for the argument vntFieldValue>"},
            {"DbGetData, a missing key", [&](T& o) { return o.DbGetData(nullptr, &noKey, nullptr, &number); },
             "0x800A01C1 <Korvex> <DbGetData: lKey>"},
            // A null BSTR is the empty text, a null object is Nothing.
            {"DbGetData, Nothing", [&](T& o) { return o.DbGetData(nullptr, &key, nullptr, &number); },
             "S_OK"},
            {"GetTableName, Nothing", [&](T& o) { return o.GetTableName(&nothing, name.Put()); },
             "0x800A005B <Korvex> <There is no data definition.>"},
        });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(flag, VARIANT_FALSE) << "results are cleared before a slot fails";
}

}  // namespace
}  // namespace korvex::tests
