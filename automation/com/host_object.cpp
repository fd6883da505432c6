#include "automation/com/host_object.h"

#include "automation/com/bstr.h"
#include "automation/com/com_error.h"
#include "automation/com/com_variant.h"
#include "automation/convert.h"

#include <algorithm>

namespace korvex::com {

namespace {

using automation::InvokeKind;
using automation::Variant;

/// The argument list of one call: from the last to the first, as IDispatch::Invoke takes them.
class CallArguments {
  public:
    CallArguments(std::span<const Variant> arguments, HostObject::ByReference byReference,
                  bool isAssignment) {
        const std::size_t count = arguments.size();
        m_values.reserve(count);
        for (std::size_t i = count; i > 0; --i) {
            VARIANT& value = m_values.emplace_back(arguments[i - 1]).Value();
            const bool isReference = i <= 32 && (byReference >> (i - 1) & 1) != 0;
            m_list.push_back(isReference ? Reference(value) : value);
        }
        m_parameters.rgvarg = m_list.data();
        m_parameters.cArgs = static_cast<UINT>(count);
        if (isAssignment) {
            m_parameters.rgdispidNamedArgs = &m_assigned;
            m_parameters.cNamedArgs = 1;
        }
    }

    DISPPARAMS* Parameters() noexcept { return &m_parameters; }
    /// What argument `i` of the caller holds after the call.
    Variant After(std::size_t i) const { return FromVariant(m_values[m_values.size() - 1 - i].Value()); }

  private:
    /// A reference with the value's own type; to the whole variant where it is yet to get one.
    static VARIANT Reference(VARIANT& value) noexcept {
        VARIANT reference = {};
        const bool isOpen = value.vt == VT_EMPTY;
        reference.vt = static_cast<VARTYPE>(VT_BYREF | (isOpen ? VARTYPE{VT_VARIANT} : value.vt));
        reference.byref = isOpen ? static_cast<void*>(&value) : &value.byref;
        return reference;
    }

    std::vector<ComVariant> m_values;
    std::vector<VARIANT> m_list;  ///< borrows what m_values owns
    DISPID m_assigned = DISPID_PROPERTYPUT;
    DISPPARAMS m_parameters = {};
};

Variant InvokeHost(IDispatch* object, DISPID id, WORD flags, CallArguments& arguments,
                   std::string_view name) {
    ComVariant result;
    EXCEPINFO exception = {};
    const bool isAssignment = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const HRESULT called = object->Invoke(id, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, arguments.Parameters(),
                                          isAssignment ? nullptr : &result, &exception, nullptr);
    if (FAILED(called)) RaiseInvokeError(called, exception, name);
    return FromVariant(result.Value());
}

class HostEnumerator final : public automation::Enumerator {
  public:
    explicit HostEnumerator(ComPtr<IEnumVARIANT> items) : m_items(std::move(items)) {}

    std::optional<Variant> Next() override {
        ComVariant item;
        ULONG fetched = 0;
        const HRESULT next = m_items->Next(1, &item, &fetched);
        Check(next, m_items.Get(), IID_IEnumVARIANT);
        if (next != S_OK || fetched == 0) return std::nullopt;
        return FromVariant(item.Value());
    }

  private:
    ComPtr<IEnumVARIANT> m_items;
};

/// The enumerator that an object is itself; one of its own for each For Each, from the first item on.
ComPtr<IEnumVARIANT> EnumeratorOfItsOwn(const ComPtr<IUnknown>& object) {
    auto items = object.As<IEnumVARIANT>();
    ComPtr<IEnumVARIANT> copy;
    if (items && SUCCEEDED(items->Clone(copy.Put())) && copy) items = std::move(copy);
    if (items) items->Reset();
    return items;
}

}  // namespace

DISPID HostObject::MemberId(std::string_view name) {
    const auto known = std::ranges::find(m_members, name, &std::pair<std::string, DISPID>::first);
    if (known != m_members.end()) return known->second;
    std::wstring wide = ToWide(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = m_object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_SYSTEM_DEFAULT, &id);
    EXCEPINFO none = {};
    if (FAILED(found)) RaiseInvokeError(found, none, name);
    m_members.emplace_back(name, id);
    return id;
}

Variant HostObject::Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments,
                           ByReference byReference) {
    const DISPID id = name.empty() ? DISPID_VALUE : MemberId(name);
    const bool isAssignment = kind == InvokeKind::PropertyLet || kind == InvokeKind::PropertySet;
    auto flags = static_cast<WORD>(kind);
    // Late-bound callers cannot tell a call from a get.
    if (kind == InvokeKind::Method) flags |= DISPATCH_PROPERTYGET;
    while (!isAssignment && !arguments.empty() && arguments.back().IsMissing()) {
        arguments = arguments.first(arguments.size() - 1);
    }
    CallArguments list(arguments, byReference, isAssignment);
    Variant result = InvokeHost(m_object.Get(), id, flags, list, name);
    for (std::size_t i = 0; i < arguments.size() && i < 32; ++i) {
        if ((byReference >> i & 1) != 0) arguments[i] = list.After(i);
    }
    return result;
}

std::shared_ptr<HostObject> AsHost(const Variant& value) {
    auto host = std::dynamic_pointer_cast<HostObject>(automation::ToObject(value));
    if (!host) throw automation::Error(automation::ObjectRequired);
    return host;
}

std::unique_ptr<automation::Enumerator> HostObject::NewEnum() { return EnumerateHost(m_object.Get()); }

std::unique_ptr<automation::Enumerator> EnumerateHost(IDispatch* object) {
    const ComPtr<IUnknown> given(object);
    auto dispatch = given.As<IDispatch>();
    if (!dispatch) dispatch = ComPtr<IDispatch>(object);
    ComVariant result;
    EXCEPINFO exception = {};
    DISPPARAMS none = {};
    const HRESULT called =
        dispatch->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_SYSTEM_DEFAULT,
                         DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &result, &exception, nullptr);
    const VARTYPE type = result.Value().vt;
    const bool isObject = (type == VT_UNKNOWN || type == VT_DISPATCH) && result.Value().punkVal != nullptr;
    auto items = ComPtr<IUnknown>(isObject ? result.Value().punkVal : nullptr).As<IEnumVARIANT>();
    if (!items && called != DISP_E_EXCEPTION) items = EnumeratorOfItsOwn(given);
    if (items) return std::make_unique<HostEnumerator>(std::move(items));
    if (FAILED(called)) RaiseInvokeError(called, exception, "_NewEnum");
    throw automation::Error(automation::MemberNotFound, "The object gives no enumerator for For Each");
}

std::shared_ptr<HostObject> CreateHostObject(std::string_view progId, HRESULT& failure) {
    CLSID classId;
    failure = CLSIDFromProgID(ToWide(progId).c_str(), &classId);
    if (FAILED(failure)) return nullptr;
    ComPtr<IDispatch> object;
    failure = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                               reinterpret_cast<void**>(object.Put()));
    return FAILED(failure) ? nullptr : std::make_shared<HostObject>(std::move(object));
}

}  // namespace korvex::com
