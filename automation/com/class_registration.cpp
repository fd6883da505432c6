#include "automation/com/class_registration.h"

#include "automation/com/bstr.h"
#include "automation/com/module.h"

#include <objbase.h>

namespace korvex::com {

namespace {

std::wstring ClassKey(REFCLSID id) { return L"CLSID\\" + GuidText(id); }

bool HasKey(const std::wstring& key, REGSAM view = 0) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

std::optional<std::wstring> TextOf(const std::wstring& key, const wchar_t* name) {
    DWORD size = 0;
    const auto read = [&](void* text) {
        return RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) ==
               ERROR_SUCCESS;
    };
    if (!read(nullptr)) return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (!read(text.data())) return std::nullopt;
    return std::wstring(text.c_str());
}

LSTATUS Write(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(), size);
}

HRESULT DeleteTree(const std::wstring& key) {
    const LSTATUS deleted = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    return deleted == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(deleted);
}

}  // namespace

std::wstring GuidText(REFGUID guid) {
    wchar_t text[39];
    StringFromGUID2(guid, text, ARRAYSIZE(text));
    return text;
}

Registration::~Registration() {
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
        if (step->isNewKey) {
            DeleteTree(step->key);
        } else if (step->earlier) {
            Write(step->key, step->name, *step->earlier);
        } else {
            RegDeleteKeyValueW(HKEY_CLASSES_ROOT, step->key.c_str(), step->name);
        }
    }
}

void Registration::Set(const std::wstring& key, const std::wstring& text, const wchar_t* name) {
    if (FAILED(m_result)) return;
    m_steps.push_back({key, name, !HasKey(key), TextOf(key, name)});
    m_result = HRESULT_FROM_WIN32(Write(key, name, text));
}

void Registration::AddClass(std::string_view progId, REFCLSID id, const GUID* typeLibrary) {
    const std::wstring name = ToWide(progId);
    const std::wstring key = ClassKey(id);
    Set(name, name);
    Set(name + L"\\CLSID", GuidText(id));
    Set(key, name);
    Set(key + L"\\InprocServer32", ModulePath());
    Set(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    Set(key + L"\\ProgID", name);
    if (typeLibrary != nullptr) Set(key + L"\\TypeLib", GuidText(*typeLibrary));
    Set(key + L"\\Programmable", {});
}

HRESULT DeleteClass(std::string_view progId, REFCLSID id) {
    const HRESULT result = DeleteTree(ClassKey(id));
    constexpr REGSAM otherView = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    if (HasKey(ClassKey(id), otherView)) return result;
    const HRESULT name = DeleteTree(ToWide(progId));
    return FAILED(result) ? result : name;
}

}  // namespace korvex::com
