#pragma once

#include "automation/com/bstr.h"
#include "automation/com/com_object.h"

#include <oaidl.h>
#include <windows.h>

#include <functional>
#include <korvex_com.h>
#include <string>
#include <string_view>

/// Objects that a host hands to the library, with the answers that a test wants.
namespace korvex::tests {

/// Counts the objects of its kind that are alive.
template <class Interface>
class HostDouble : public com::ComObject<Interface, ISupportErrorInfo> {
  public:
    HostDouble() { ++living; }

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
    ~HostDouble() override { --living; }
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
class DefinitionDouble : public HostDouble<::QORObject> {
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
