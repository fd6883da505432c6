#include "automation/com/com_variant.h"
#include "automation/convert.h"
#include "jobs/host.h"
#include "support/late_bound.h"

#include <utility>

namespace korvex::tests {
namespace {

using com::ComPtr;
using com::ComVariant;
using Data = ComPtr<::QORObject>;

/// Answer and LastResult of a call.
using Outcome = std::pair<LONG, ::dbResults>;

class HostOfData : public Host {
  protected:
    HostOfData() {
        ComVariant connection{automation::Variant(ConnectionString())};
        VARIANT_BOOL isConnected = VARIANT_FALSE;
        EXPECT_EQ(m_crud->ConnectDB(&connection, nullptr, &isConnected), S_OK);
        EXPECT_EQ(isConnected, VARIANT_TRUE);
    }

    /// An object of the example definition.
    Data NewOrder() const {
        const auto made = InvokeByName(m_objects.Get(), "Create", DISPATCH_METHOD,
                                       {m_repository.Value(), m_storage.Value()});
        EXPECT_EQ(made.result, S_OK) << made.description;
        return ComPtr<IDispatch>(made.value.Value().pdispVal).As<::QORObject>();
    }

    /// A member of clsCRUD that answers a number.
    template <class Member, class... Arguments>
    Outcome Call(Member member, Arguments... arguments) const {
        LONG result = -1;
        EXPECT_EQ((m_crud.Get()->*member)(arguments..., &result), S_OK);
        return {result, LastResult()};
    }
    std::pair<bool, ::dbResults> Exists(const Data& data, VARIANT* key = nullptr) const {
        ::QORObject* object = data.Get();
        VARIANT_BOOL result = VARIANT_FALSE;
        EXPECT_EQ(m_crud->DbDataExists(&object, key, &result), S_OK);
        EXPECT_EQ(object, data.Get());
        return {result != VARIANT_FALSE, LastResult()};
    }
    ::dbResults LastResult() const {
        ::dbResults result = ::dbConnectError;
        EXPECT_EQ(m_crud->get_LastResult(&result), S_OK);
        return result;
    }

    ComPtr<::_clsCRUD> m_crud = Create<::_clsCRUD>(__uuidof(::clsCRUD));

  private:
    static ComPtr<IDispatch> NewObjects() {
        CLSID classId;
        EXPECT_EQ(CLSIDFromProgID(L"KorvexTest.DataObjects", &classId), S_OK);
        return Create<IDispatch>(classId);
    }

    ComPtr<IDispatch> m_objects = NewObjects();
    ComVariant m_repository{automation::Variant("orders.db")};
    ComVariant m_storage{automation::Variant("Orders")};
};

LONG IndexOf(const Data& data, std::string_view column) {
    LONG index = -1;
    EXPECT_EQ(data->get_ValueIndex(com::Bstr(column).Get(), &index), S_OK);
    return index;
}

automation::Variant ValueOf(const Data& data, std::string_view column) {
    ComVariant value;
    EXPECT_EQ(data->get_Value(IndexOf(data, column), &value), S_OK);
    return com::FromVariant(value.Value());
}

void SetValue(const Data& data, std::string_view column, const automation::Variant& value) {
    EXPECT_EQ(data->put_Value(IndexOf(data, column), ComVariant(value).Value()), S_OK);
}

Data Child(const Data& data, std::string_view name) {
    ComVariant value;
    EXPECT_EQ(data->get_NamedValue(com::Bstr(name).Get(), &value), S_OK);
    return ComPtr<IDispatch>(value.Value().pdispVal).As<::QORObject>();
}

Data AddItem(const Data& collection) {
    Data item;
    EXPECT_EQ(collection->AddItem(MissingArgument(), MissingArgument(), item.Put()), S_OK);
    return item;
}

TEST_F(HostOfData, ATreeIsSavedLoadedUpdatedAndDeleted) {
    const Data order = NewOrder();
    SetValue(order, "OrderNumber", "A-1");
    SetValue(Child(order, "Customer"), "CompanyName", "Ann & Co");
    const Data lines = Child(order, "Lines");
    for (const std::int16_t number : {std::int16_t{1}, std::int16_t{2}})
        SetValue(AddItem(lines), "LineNumber", number);

    EXPECT_EQ(Exists(order), std::pair(false, ::dbPrimaryKeyMissing));
    EXPECT_EQ(Call(&::_clsCRUD::DbSaveData, order.Get()), Outcome(1, ::dbNoError));
    EXPECT_EQ(Exists(order), std::pair(true, ::dbNoError));

    VARIANT key = Long(1);
    const Data loaded = NewOrder();
    EXPECT_EQ(Call(&::_clsCRUD::DbGetData, loaded.Get(), &key, nullptr), Outcome(1, ::dbNoError));
    EXPECT_EQ(ValueOf(loaded, "OrderNumber"), automation::Variant("A-1"));
    EXPECT_EQ(ValueOf(Child(loaded, "Customer"), "CompanyName"), automation::Variant("Ann & Co"));

    EXPECT_EQ(Call(&::_clsCRUD::DbUpdateData, loaded.Get(), &key, nullptr),
              Outcome(1, ::dbObjectNotModified));
    SetValue(loaded, "OrderNumber", "A-2");
    EXPECT_EQ(Call(&::_clsCRUD::DbUpdateData, loaded.Get(), &key, nullptr), Outcome(1, ::dbNoError));

    ComVariant value;
    VARIANT_BOOL isRead = VARIANT_FALSE;
    Text keyColumn("OrderID");
    Text table("tOrder");
    Text column("OrderNumber");
    ASSERT_EQ(m_crud->DbGetField(&key, &keyColumn, &table, &column, &value, &isRead), S_OK);
    EXPECT_EQ(isRead, VARIANT_TRUE);
    EXPECT_EQ(com::FromVariant(value.Value()), automation::Variant("A-2"));

    EXPECT_EQ(Call(&::_clsCRUD::DbUpdateDataRetainRoot, loaded.Get(), &key), Outcome(1, ::dbNoError));
    EXPECT_EQ(Call(&::_clsCRUD::DbDeleteData, loaded.Get(), &key, nullptr), Outcome(1, ::dbNoError));
    EXPECT_EQ(Exists(loaded, &key), std::pair(false, ::dbNoError));
    EXPECT_EQ(Call(&::_clsCRUD::DbDeleteData, loaded.Get(), &key, nullptr), Outcome(1, ::dbNoMatchingRecord));
}

}  // namespace
}  // namespace korvex::tests
