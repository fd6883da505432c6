// A C++ host of the dual interfaces: it knows the classes by their registration, and the header that was
// generated with the type library. What the engines then do is found by the scripts.

#include "automation/com/bstr.h"
#include "automation/com/com_variant.h"
#include "support/late_bound.h"
#include "support/text_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <korvex_com.h>
#include <objbase.h>

namespace korvex::tests {
namespace {

using automation::Variant;
using com::ComPtr;
using com::ComVariant;
using Data = ComPtr<::QORObject>;

/// A text of the host's own, passed by reference as most members take it.
class Text {
  public:
    explicit Text(std::string_view text) : m_text(text), m_variable(m_text.Get()) {}
    BSTR* operator&() noexcept { return &m_variable; }

  private:
    com::Bstr m_text;
    BSTR m_variable;
};

/// Every test works in a folder of its own, on copies of the databases that the earlier jobs have made.
class Host : public testing::Test {
  protected:
    Host() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        const std::filesystem::path jobs = KORVEX_JOBS;
        const auto folder = jobs / "host" / testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder / "out");
        for (const char* database : {"orders.db", "target.db"})
            std::filesystem::copy_file(jobs / database, folder / database);
        std::filesystem::current_path(folder);
    }
    ~Host() override { CoUninitialize(); }

    /// A new object of a registered class.
    template <class Interface>
    static ComPtr<Interface> Create(REFCLSID classId) {
        ComPtr<Interface> object;
        EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                                   reinterpret_cast<void**>(object.Put())),
                  S_OK);
        return object;
    }

    /// An object of the example definition.
    static Data NewOrder() {
        CLSID classId;
        EXPECT_EQ(CLSIDFromProgID(L"KorvexTest.DataObjects", &classId), S_OK);
        const auto made =
            CallByName(Create<IDispatch>(classId).Get(), "Create", DISPATCH_METHOD, {"orders.db", "Orders"});
        EXPECT_EQ(made.result, S_OK) << made.description;
        return ComPtr<IDispatch>(made.value.Value().pdispVal).As<::QORObject>();
    }

    /// Windows programs see the host system's files below a drive; the ODBC driver does not.
    static Variant ConnectionString() {
        const auto database = std::filesystem::current_path() / "target.db";
        return "DRIVER=SQLite3;FKSupport=1;Database=" +
               database.relative_path().generic_string().insert(0, "/");
    }
};

TEST_F(Host, WritesTheScriptsOfTheExample) {
    const auto scripts = Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
    Text folder("out");
    Text repository("orders.db");
    Text storage("Orders");
    ASSERT_EQ(scripts->put_ScriptFilePath(&folder), S_OK);
    ASSERT_EQ(scripts->DoMSsqlDb(&repository, &storage, nullptr), S_OK);
    com::Bstr text;
    EXPECT_EQ(scripts->get_DbSQL(text.Put()), S_OK);
    const std::string golden = ReadFile(KORVEX_EXAMPLES "/scripts/MSCreate.sql");
    ExpectSameText("DbSQL", text.Text() + "\r\n", golden);
    ExpectSameText("MSCreate.sql", ReadFile("out/MSCreate.sql"), golden);
}

TEST_F(Host, SavesAnObjectAndReadsIt) {
    const auto crud = Create<::_clsCRUD>(__uuidof(::clsCRUD));
    ComVariant connection(ConnectionString());
    VARIANT_BOOL succeeds = VARIANT_FALSE;
    ASSERT_EQ(crud->ConnectDB(&connection, nullptr, &succeeds), S_OK);
    EXPECT_EQ(succeeds, VARIANT_TRUE);

    const Data order = NewOrder();
    const com::Bstr column("OrderNumber");
    LONG index = -1;
    EXPECT_EQ(order->get_ValueIndex(column.Get(), &index), S_OK);
    EXPECT_EQ(order->put_Value(index, ComVariant("A-1").Value()), S_OK);
    LONG saved = 0;
    EXPECT_EQ(crud->DbSaveData(order.Get(), &saved), S_OK);
    EXPECT_EQ(saved, 1);

    const Data loaded = NewOrder();
    ComVariant key(Variant(std::int32_t{saved}));
    LONG records = 0;
    EXPECT_EQ(crud->DbGetData(loaded.Get(), &key, nullptr, &records), S_OK);
    EXPECT_EQ(records, 1);
    ComVariant value;
    EXPECT_EQ(loaded->get_Value(index, &value), S_OK);
    EXPECT_EQ(com::FromVariant(value.Value()), Variant("A-1"));

    Text keyColumn("OrderID");
    Text table("tOrder");
    Text number("OrderNumber");
    ComVariant field;
    EXPECT_EQ(crud->DbGetField(&key, &keyColumn, &table, &number, &field, &succeeds), S_OK);
    EXPECT_EQ(com::FromVariant(field.Value()), Variant("A-1"));

    key = ComVariant(99);
    EXPECT_EQ(crud->DbDeleteData(loaded.Get(), &key, nullptr, &records), S_OK);
    ::dbResults result = ::dbNoError;
    EXPECT_EQ(crud->get_LastResult(&result), S_OK);
    EXPECT_EQ(result, ::dbNoMatchingRecord);
}

}  // namespace
}  // namespace korvex::tests
