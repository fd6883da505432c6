#include "automation/com/class_registration.h"

#include "automation/com/bstr.h"
#include "automation/com/module.h"

#include <objbase.h>
#include <string>

namespace korvex::com {

namespace {

std::wstring GuidText(REFGUID guid) {
    wchar_t text[39];
    StringFromGUID2(guid, text, ARRAYSIZE(text));
    return text;
}

std::wstring ClassKey(REFCLSID id) { return L"CLSID\\" + GuidText(id); }

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

}  // namespace

HRESULT WriteClass(std::string_view progId, REFCLSID id, const GUID* typeLibrary) {
    const std::wstring name = ToWide(progId);
    const std::wstring key = ClassKey(id);
    ClassesRootWriter root;
    root.Set(name, name);
    root.Set(name + L"\\CLSID", GuidText(id));
    root.Set(key, name);
    root.Set(key + L"\\InprocServer32", ModulePath());
    root.Set(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    root.Set(key + L"\\ProgID", name);
    if (typeLibrary != nullptr) root.Set(key + L"\\TypeLib", GuidText(*typeLibrary));
    root.Set(key + L"\\Programmable", {});
    return root.Result();
}

HRESULT DeleteClass(std::string_view progId, REFCLSID id) {
    HRESULT result = S_OK;
    for (const std::wstring& key : {ToWide(progId), ClassKey(id)}) {
        const LSTATUS deleted = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
        if (deleted != ERROR_SUCCESS && deleted != ERROR_FILE_NOT_FOUND) result = HRESULT_FROM_WIN32(deleted);
    }
    return result;
}

}  // namespace korvex::com
