#include "surface/com/registration.h"

#include "automation/com/bstr.h"
#include "automation/com/com_ptr.h"
#include "automation/com/module.h"
#include "surface/com/class_table.h"

#include <korvex_com.h>
#include <string>

namespace korvex::com {

namespace {

constexpr LCID libraryLocale = 0x409;
constexpr SYSKIND thisSystem = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

/// Paths of one class below HKEY_CLASSES_ROOT.
struct ClassKeys {
    explicit ClassKeys(const CreatableClass& creatable)
        : progId(ToWide(creatable.progId)), id(GuidText(creatable.id)), classKey(L"CLSID\\" + id) {}

    static std::wstring GuidText(REFGUID guid) {
        wchar_t text[39];
        StringFromGUID2(guid, text, ARRAYSIZE(text));
        return text;
    }

    std::wstring progId;
    std::wstring id;
    std::wstring classKey;
};

/// Writes text values below HKEY_CLASSES_ROOT; the first failure is kept and stops the rest.
class ClassesRootWriter {
  public:
    void Set(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
        if (FAILED(m_result)) return;
        const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
        m_result = HRESULT_FROM_WIN32(
            RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(), size));
    }
    HRESULT Result() const noexcept { return m_result; }

  private:
    HRESULT m_result = S_OK;
};

HRESULT RegisterClasses(const std::wstring& modulePath) {
    ClassesRootWriter root;
    for (const CreatableClass& creatable : CreatableClasses()) {
        const ClassKeys keys(creatable);
        root.Set(keys.progId, keys.progId);
        root.Set(keys.progId + L"\\CLSID", keys.id);
        root.Set(keys.classKey, keys.progId);
        root.Set(keys.classKey + L"\\InprocServer32", modulePath);
        root.Set(keys.classKey + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
        root.Set(keys.classKey + L"\\ProgID", keys.progId);
        root.Set(keys.classKey + L"\\TypeLib", ClassKeys::GuidText(LIBID_Korvex));
        root.Set(keys.classKey + L"\\Programmable", {});
    }
    return root.Result();
}

HRESULT UnregisterClasses() {
    HRESULT result = S_OK;
    for (const CreatableClass& creatable : CreatableClasses()) {
        const ClassKeys keys(creatable);
        for (const std::wstring& key : {keys.progId, keys.classKey}) {
            const LSTATUS deleted = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
            if (deleted != ERROR_SUCCESS && deleted != ERROR_FILE_NOT_FOUND)
                result = HRESULT_FROM_WIN32(deleted);
        }
    }
    return result;
}

HRESULT RegisterTypeLibrary(const std::wstring& modulePath) {
    ComPtr<ITypeLib> library;
    return LoadTypeLibEx(modulePath.c_str(), REGKIND_REGISTER, library.Put());
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
    const std::wstring path = ModulePath();
    HRESULT result = RegisterClasses(path);
    if (SUCCEEDED(result)) result = RegisterTypeLibrary(path);
    if (FAILED(result)) UnregisterModule();
    return result;
}

HRESULT UnregisterModule() {
    const HRESULT library = UnregisterTypeLibrary();
    const HRESULT classes = UnregisterClasses();
    return FAILED(classes) ? classes : library;
}

}  // namespace korvex::com
