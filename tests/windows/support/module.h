#pragma once

#include "automation/com/com_ptr.h"

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <unknwn.h>

namespace korvex::tests {

/// korvex.dll as a host loads it: from the folder of the test program, through its exports, without the
/// registry.
class Module {
  public:
    /// Raises std::runtime_error when the DLL or one of its exports is missing.
    Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module();

    HRESULT GetClassObject(REFCLSID classId, REFIID interfaceId, void** object) const;
    HRESULT CanUnloadNow() const;
    HRESULT Register() const;
    HRESULT Unregister() const;
    /// The type library in the DLL, and a type of it.
    com::ComPtr<ITypeLib> TypeLibrary() const;
    com::ComPtr<ITypeInfo> Type(REFGUID id) const;
    std::wstring Path() const;

    /// A new object of that class through its class factory.
    template <class T>
    com::ComPtr<T> Create(REFCLSID classId) const {
        com::ComPtr<T> object;
        CreateInstance(classId, __uuidof(T), reinterpret_cast<void**>(object.Put()));
        return object;
    }

  private:
    void CreateInstance(REFCLSID classId, REFIID interfaceId, void** object) const;
    FARPROC Export(const char* name) const;

    HMODULE m_module;
};

}  // namespace korvex::tests
