#include "surface/com/qor_object_adapter.h"

#include "automation/com/bstr.h"
#include "automation/com/com_error.h"
#include "automation/com/com_variant.h"
#include "automation/com/host_object.h"
#include "persistence/qor_object.h"

#include <korvex_com.h>
#include <memory>
#include <utility>

namespace korvex::com {

namespace {

using automation::ObjectRef;
using automation::Variant;

/// Items of a host's collection, data objects among them bound by slot.
class DataObjectEnumerator final : public automation::Enumerator {
  public:
    explicit DataObjectEnumerator(std::unique_ptr<automation::Enumerator> items)
        : m_items(std::move(items)) {}

    std::optional<Variant> Next() override;

  private:
    std::unique_ptr<automation::Enumerator> m_items;
};

class QorObjectAdapter final : public QORObject, public HostBacked {
  public:
    explicit QorObjectAdapter(ComPtr<::QORObject> object) : m_object(std::move(object)) {}

    Ref Parent() override {
        ComPtr<::QORObject> result;
        Checked(m_object->get_Parent(result.Put()));
        return AsRef(std::move(result));
    }
    bool Modified() override {
        VARIANT_BOOL result = VARIANT_FALSE;
        Checked(m_object->get_Modified(&result));
        return result != VARIANT_FALSE;
    }
    void Modified(bool value) override {
        Checked(m_object->put_Modified(value ? VARIANT_TRUE : VARIANT_FALSE));
    }
    std::string StringAttribute(std::int32_t id) override {
        Bstr result;
        Checked(m_object->get_StringAttribute(id, result.Put()));
        return result.Text();
    }
    std::int32_t LongAttribute(std::int32_t id) override {
        LONG result = 0;
        Checked(m_object->get_LongAttribute(id, &result));
        return result;
    }
    void LongAttribute(std::int32_t id, std::int32_t value) override {
        Checked(m_object->put_LongAttribute(id, value));
    }
    bool BooleanAttribute(std::int32_t id) override {
        VARIANT_BOOL result = VARIANT_FALSE;
        Checked(m_object->get_BooleanAttribute(id, &result));
        return result != VARIANT_FALSE;
    }
    std::int16_t IntegerAttribute(std::int32_t id) override {
        short result = 0;
        Checked(m_object->get_IntegerAttribute(id, &result));
        return result;
    }
    void IntegerAttribute(std::int32_t id, std::int16_t value) override {
        Checked(m_object->put_IntegerAttribute(id, value));
    }
    Variant Value(std::int32_t index) override {
        ComVariant result;
        Checked(m_object->get_Value(index, &result));
        return Received(result);
    }
    void Value(std::int32_t index, const Variant& value) override {
        Checked(m_object->put_Value(index, ComVariant(value).Value()));
    }
    Variant NamedValue(std::string_view name) override {
        ComVariant result;
        Checked(m_object->get_NamedValue(Bstr(name).Get(), &result));
        return Received(result);
    }
    Ref ObjectAttribute(std::int32_t id) override {
        ComPtr<IDispatch> result;
        Checked(m_object->get_ObjectAttribute(id, result.Put()));
        return std::static_pointer_cast<QORObject>(BindDataObject(FromDispatch(result.Get())));
    }
    void DataDef(const Ref& definition) override {
        Checked(m_object->putref_DataDef(ToDispatch(definition).As<::QORObject>().Get()));
    }
    Ref DataDef() override {
        ComPtr<::QORObject> result;
        Checked(m_object->get_DataDef(result.Put()));
        return AsRef(std::move(result));
    }
    Ref AddItem(const Variant& first, const Variant& second) override {
        ComPtr<::QORObject> result;
        Checked(m_object->AddItem(ComVariant(first).Value(), ComVariant(second).Value(), result.Put()));
        return AsRef(std::move(result));
    }
    bool HasAttribute(std::int32_t id) override {
        VARIANT_BOOL result = VARIANT_FALSE;
        Checked(m_object->get_HasAttribute(id, &result));
        return result != VARIANT_FALSE;
    }
    std::int32_t ValueIndex(std::string_view fieldName) override {
        LONG result = 0;
        Checked(m_object->get_ValueIndex(Bstr(fieldName).Get(), &result));
        return result;
    }

    std::unique_ptr<automation::Enumerator> NewEnum() override {
        return std::make_unique<DataObjectEnumerator>(EnumerateHost(m_object.Get()));
    }

    IDispatch* HostDispatch() const noexcept override { return m_object.Get(); }

    /// A value as the host gave it; a data object in it is bound by slot.
    static Variant Bound(Variant value);

  private:
    static Ref AsRef(ComPtr<::QORObject> object) {
        return object ? std::make_shared<QorObjectAdapter>(std::move(object)) : nullptr;
    }
    static Variant Received(const ComVariant& value) { return Bound(FromVariant(value.Value())); }

    void Checked(HRESULT result) const { Check(result, m_object.Get(), __uuidof(::QORObject)); }

    ComPtr<::QORObject> m_object;
};

/// The QORObject interface of a host's object, or nothing.
ComPtr<::QORObject> DataObjectOf(const ObjectRef& object) {
    const auto* host = dynamic_cast<const HostBacked*>(object.get());
    return host == nullptr ? ComPtr<::QORObject>()
                           : ComPtr<IDispatch>(host->HostDispatch()).As<::QORObject>();
}

Variant QorObjectAdapter::Bound(Variant value) {
    const auto* object = value.If<ObjectRef>();
    if (object == nullptr || *object == nullptr) return value;
    auto data = DataObjectOf(*object);
    return data ? Variant(AsRef(std::move(data))) : value;
}

std::optional<Variant> DataObjectEnumerator::Next() {
    auto item = m_items->Next();
    if (item) item = QorObjectAdapter::Bound(std::move(*item));
    return item;
}

}  // namespace

ObjectRef BindDataObject(const ObjectRef& object) {
    if (object == nullptr || dynamic_cast<QORObject*>(object.get()) != nullptr) return object;
    auto data = DataObjectOf(object);
    if (!data) throw automation::Error(automation::TypeMismatch, "The object is no QORObject");
    return std::make_shared<QorObjectAdapter>(std::move(data));
}

}  // namespace korvex::com
