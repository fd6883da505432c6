#pragma once

#include "automation/com/bstr.h"
#include "automation/com/com_ptr.h"

#include <oaidl.h>
#include <windows.h>

#include <atomic>
#include <functional>
#include <korvex_com.h>
#include <string>
#include <string_view>

/// Objects that a host hands to the library, with the answers that a test wants.
namespace korvex::tests {

/// Counts references, and the objects of all kinds that are alive.
template <class Interface>
class HostDouble : public Interface, public ISupportErrorInfo {
  public:
    HostDouble() { ++living; }
    HostDouble(const HostDouble&) = delete;
    HostDouble& operator=(const HostDouble&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = nullptr;
        if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(Interface)) {
            *object = static_cast<Interface*>(this);
        } else if (id == IID_ISupportErrorInfo) {
            *object = static_cast<ISupportErrorInfo*>(this);
        }
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
        return id == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    static inline int living = 0;

  protected:
    virtual ~HostDouble() { --living; }

  private:
    std::atomic<ULONG> m_references{0};
};

/// An object with one member.
class OneMemberDouble final : public HostDouble<IDispatch> {
  public:
    using Member = std::function<HRESULT(DISPPARAMS& parameters, VARIANT* result, EXCEPINFO& exception)>;

    OneMemberDouble(std::string_view name, Member member)
        : m_name(com::ToWide(name)), m_member(std::move(member)) {}

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        ids[0] = m_name == names[0] ? 1 : DISPID_UNKNOWN;
        return ids[0] == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        return m_member(*parameters, result, *exception);
    }

  private:
    std::wstring m_name;
    Member m_member;
};

/// The definition of an included object with a table; asking for the table's name answers what the test says.
class DefinitionDouble final : public HostDouble<::QORObject> {
  public:
    explicit DefinitionDouble(std::function<HRESULT(BSTR*)> tableName) : m_tableName(std::move(tableName)) {}

    STDMETHODIMP get_StringAttribute(LONG, BSTR* result) override { return m_tableName(result); }
    STDMETHODIMP get_BooleanAttribute(LONG, VARIANT_BOOL* result) override {
        *result = VARIANT_TRUE;
        return S_OK;
    }
    STDMETHODIMP get_Parent(::QORObject**) override { return E_NOTIMPL; }
    STDMETHODIMP get_Modified(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Modified(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_LongAttribute(LONG, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP put_LongAttribute(LONG, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_IntegerAttribute(LONG, short*) override { return E_NOTIMPL; }
    STDMETHODIMP put_IntegerAttribute(LONG, short) override { return E_NOTIMPL; }
    STDMETHODIMP get_Value(LONG, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Value(LONG, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP get_NamedValue(BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_ObjectAttribute(LONG, IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP putref_DataDef(::QORObject*) override { return E_NOTIMPL; }
    STDMETHODIMP get_DataDef(::QORObject**) override { return E_NOTIMPL; }
    STDMETHODIMP AddItem(VARIANT, VARIANT, ::QORObject**) override { return E_NOTIMPL; }
    STDMETHODIMP get_HasAttribute(LONG, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP get_ValueIndex(BSTR, LONG*) override { return E_NOTIMPL; }

  private:
    std::function<HRESULT(BSTR*)> m_tableName;
};

/// Host objects that are alive, of both kinds.
inline int LivingHostObjects() { return HostDouble<IDispatch>::living + HostDouble<::QORObject>::living; }

}  // namespace korvex::tests
