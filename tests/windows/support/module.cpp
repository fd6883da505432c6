#include "support/module.h"

#include <oleauto.h>
#include <stdexcept>
#include <string>

namespace korvex::tests {

namespace {

void Require(HRESULT result, const char* what) {
    if (FAILED(result)) throw std::runtime_error(std::string(what) + " answers " + std::to_string(result));
}

template <class Function>
Function As(FARPROC address) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

Module::Module() : m_module(LoadLibraryW(L"korvex.dll")) {
    if (m_module == nullptr) {
        throw std::runtime_error("korvex.dll does not load: error " + std::to_string(GetLastError()));
    }
}

Module::~Module() { FreeLibrary(m_module); }

FARPROC Module::Export(const char* name) const {
    const FARPROC address = GetProcAddress(m_module, name);
    if (address == nullptr) throw std::runtime_error(std::string("korvex.dll does not export ") + name);
    return address;
}

HRESULT Module::GetClassObject(REFCLSID classId, REFIID interfaceId, void** object) const {
    return As<LPFNGETCLASSOBJECT>(Export("DllGetClassObject"))(classId, interfaceId, object);
}

HRESULT Module::CanUnloadNow() const { return As<LPFNCANUNLOADNOW>(Export("DllCanUnloadNow"))(); }
HRESULT Module::Register() const { return As<LPFNCANUNLOADNOW>(Export("DllRegisterServer"))(); }
HRESULT Module::Unregister() const { return As<LPFNCANUNLOADNOW>(Export("DllUnregisterServer"))(); }

std::wstring Module::Path() const {
    wchar_t path[MAX_PATH];
    return {path, GetModuleFileNameW(m_module, path, MAX_PATH)};
}

com::ComPtr<ITypeLib> Module::TypeLibrary() const {
    com::ComPtr<ITypeLib> library;
    Require(LoadTypeLibEx(Path().c_str(), REGKIND_NONE, library.Put()), "LoadTypeLibEx");
    return library;
}

com::ComPtr<ITypeInfo> Module::Type(REFGUID id) const {
    com::ComPtr<ITypeInfo> type;
    Require(TypeLibrary()->GetTypeInfoOfGuid(id, type.Put()), "GetTypeInfoOfGuid");
    return type;
}

void Module::CreateInstance(REFCLSID classId, REFIID interfaceId, void** object) const {
    com::ComPtr<IClassFactory> factory;
    Require(GetClassObject(classId, IID_IClassFactory, reinterpret_cast<void**>(factory.Put())),
            "DllGetClassObject");
    Require(factory->CreateInstance(nullptr, interfaceId, object), "CreateInstance");
}

}  // namespace korvex::tests
