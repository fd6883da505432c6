#include "surface/com/registration.h"

#include "automation/com/bstr.h"
#include "automation/com/class_registration.h"
#include "automation/com/com_ptr.h"
#include "automation/com/module.h"
#include "surface/com/class_table.h"

#include <korvex_com.h>

namespace korvex::com {

namespace {

constexpr LCID libraryLocale = 0x409;
constexpr SYSKIND thisSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

HRESULT RegisterClasses() {
    for (const CreatableClass& creatable : CreatableClasses()) {
        const HRESULT written = WriteClass(creatable.progId, creatable.id, &LIBID_Korvex);
        if (FAILED(written)) return written;
    }
    return S_OK;
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
    const HRESULT result = UnRegisterTypeLib(LIBID_Korvex, 1, 0, libraryLocale, thisSystem);
    Bstr path;
    const bool isGone = FAILED(QueryPathOfRegTypeLib(LIBID_Korvex, 1, 0, libraryLocale, path.Put()));
    return isGone ? S_OK : result;
}

}  // namespace

HRESULT RegisterModule() {
    HRESULT result = RegisterClasses();
    if (SUCCEEDED(result)) result = RegisterTypeLibrary();
    if (FAILED(result)) UnregisterModule();
    return result;
}

HRESULT UnregisterModule() {
    const HRESULT library = UnregisterTypeLibrary();
    const HRESULT classes = UnregisterClasses();
    return FAILED(classes) ? classes : library;
}

}  // namespace korvex::com
