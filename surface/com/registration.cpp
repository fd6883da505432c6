#include "surface/com/registration.h"

#include "automation/com/bstr.h"
#include "automation/com/class_registration.h"
#include "automation/com/com_ptr.h"
#include "automation/com/module.h"
#include "surface/com/class_table.h"

#include <korvex_com.h>
#include <string>

namespace korvex::com {

namespace {

constexpr LCID LibraryLocale = 0x409;
constexpr SYSKIND ThisSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

/// Marshalling between apartments looks the library up under the neutral language, whatever its own is.
std::wstring NeutralKey() { return L"TypeLib\\" + GuidText(LIBID_Korvex) + L"\\1.0\\0"; }
const wchar_t* const neutralSystem = sizeof(void*) == 8 ? L"\\win64" : L"\\win32";

bool IsTypeLibraryRegistered() {
    Bstr path;
    return SUCCEEDED(QueryPathOfRegTypeLib(LIBID_Korvex, 1, 0, LibraryLocale, path.Put()));
}

HRESULT UnregisterClasses() {
    HRESULT result = S_OK;
    for (const CreatableClass& creatable : CreatableClasses()) {
        const HRESULT deleted = DeleteClass(creatable.progId, creatable.id);
        if (FAILED(deleted)) result = deleted;
    }
    return result;
}

HRESULT RegisterTypeLibrary() {
    ComPtr<ITypeLib> library;
    return LoadTypeLibEx(ModulePath().c_str(), REGKIND_REGISTER, library.Put());
}

/// What the system answers where there is nothing to take away differs; only what stays behind is a failure.
HRESULT UnregisterTypeLibrary() {
    RegDeleteKeyW(HKEY_CLASSES_ROOT, (NeutralKey() + neutralSystem).c_str());
    // The key above stays while the other width has its own.
    RegDeleteKeyW(HKEY_CLASSES_ROOT, NeutralKey().c_str());
    const HRESULT result = UnRegisterTypeLib(LIBID_Korvex, 1, 0, LibraryLocale, ThisSystem);
    return IsTypeLibraryRegistered() ? result : S_OK;
}

}  // namespace

HRESULT RegisterModule() {
    const bool hadTypeLibrary = IsTypeLibraryRegistered();
    Registration registration;
    for (const CreatableClass& creatable : CreatableClasses())
        registration.AddClass(creatable.progId, creatable.id, &LIBID_Korvex);
    if (FAILED(registration.Result())) return registration.Result();
    const HRESULT result = RegisterTypeLibrary();
    if (SUCCEEDED(result)) {
        registration.Set(NeutralKey(), {});
        registration.Set(NeutralKey() + neutralSystem, ModulePath());
    }
    if (SUCCEEDED(result) && SUCCEEDED(registration.Result())) {
        registration.Keep();
        return S_OK;
    }
    if (!hadTypeLibrary) UnregisterTypeLibrary();
    return FAILED(result) ? result : registration.Result();
}

HRESULT UnregisterModule() {
    const HRESULT library = UnregisterTypeLibrary();
    const HRESULT classes = UnregisterClasses();
    return FAILED(classes) ? classes : library;
}

}  // namespace korvex::com
