#pragma once

#include "automation/com/com_error.h"
#include "automation/com/com_object.h"
#include "automation/com/com_variant.h"
#include "automation/com/enum_variant.h"
#include "automation/com/host_backed.h"
#include "automation/com/slot_values.h"
#include "automation/com/table_dispatch.h"

#include <ocidl.h>

namespace korvex::com {

/// A type of the module's own type library.
HRESULT LoadTypeInfo(REFGUID id, ITypeInfo** info) noexcept;

/// A COM object over an automation object: late binding, error information. `Interface` is IDispatch or a
/// dual interface, whose own slots are one line each in the derived class.
template <class Interface, class... More>
class Shell : public ComObject<Interface, ISupportErrorInfo, IAutomationObject, More...> {
  public:
    explicit Shell(std::shared_ptr<automation::TableObject> object, BindObject bind = nullptr)
        : m_table(std::move(object), bind) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = hasTypeInfo ? 1 : 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        if (info == nullptr) return E_POINTER;
        *info = nullptr;
        if (index != 0 || !hasTypeInfo) return DISP_E_BADINDEX;
        return LoadTypeInfo(__uuidof(Interface), info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return m_table.GetIDsOfNames(reserved, names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) override {
        return m_table.Invoke(id, reserved, flags, parameters, result, exception, badArgument);
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
        return id == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetAutomationObject(const void* module, automation::ObjectRef* object) noexcept override {
        if (module != ModuleTag()) return S_FALSE;
        *object = m_table.Object();
        return S_OK;
    }

  protected:
    /// Slot `slot` (from 1) without a result.
    template <class... Arguments>
    HRESULT Slot(std::size_t slot, Arguments... arguments) const noexcept {
        return Guard(__uuidof(Interface), [&] {
            Call(slot, arguments...);
            return S_OK;
        });
    }
    /// Slot `slot`, whose last parameter receives the result.
    template <class Result, class... Arguments>
    HRESULT ResultSlot(std::size_t slot, Result* result, Arguments... arguments) const noexcept {
        return Guard(__uuidof(Interface), [&] {
            if (result == nullptr) throw automation::Error(E_POINTER, "Null pointer for the result");
            *result = {};
            ComVariant value = Call(slot, arguments...);
            TakeResult(value, result);
            return S_OK;
        });
    }
    HRESULT EnumeratorSlot(IUnknown** result) const noexcept {
        return Guard(__uuidof(Interface), [&] {
            if (result == nullptr) throw automation::Error(E_POINTER, "Null pointer for the result");
            *result = EnumerateForHost(m_table.Object()).Detach();
            return S_OK;
        });
    }

  private:
    static constexpr bool hasTypeInfo = !std::is_same_v<Interface, IDispatch>;

    template <class... Arguments>
    ComVariant Call(std::size_t slot, Arguments... arguments) const {
        const automation::Parameter* parameter = m_table.Row(slot).parameters.data();
        VARIANT values[] = {SlotArgument(arguments, *parameter++)..., VARIANT()};
        return m_table.CallSlot(slot, std::span(values, sizeof...(Arguments)));
    }

    TableDispatch m_table;
};

/// The shell of a creatable class, which tells hosts its name.
template <class Interface, class Class>
class ClassShell : public Shell<Interface, IProvideClassInfo> {
  public:
    using Shell<Interface, IProvideClassInfo>::Shell;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
        if (info == nullptr) return E_POINTER;
        *info = nullptr;
        return LoadTypeInfo(__uuidof(Class), info);
    }
};

/// The COM object that hosts get for an automation object: a dual interface for a public class, IDispatch for
/// any other. Defined where the classes are known.
ComPtr<IDispatch> WrapObject(std::shared_ptr<automation::TableObject> object);

}  // namespace korvex::com
