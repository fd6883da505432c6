#include "tests/windows/engines/server_classes.h"

#include "automation/com/bstr.h"
#include "automation/com/module.h"
#include "tests/windows/engines/ado_parts.h"
#include "tests/windows/engines/dao_objects.h"
#include "tests/windows/engines/data_objects.h"

#include <string>

namespace korvex::test {

namespace {

template <class T>
std::shared_ptr<automation::TableObject> Create() {
    return std::make_shared<T>();
}

constexpr ServerClass classes[] = {
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa1}},
     "DAO.DBEngine.36",
     Create<DBEngineObject>},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa2}},
     "ADODB.Connection",
     CreateAdoConnection},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa3}},
     "ADODB.Recordset",
     CreateAdoRecordset},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa4}},
     "KorvexTest.DataObjects",
     Create<DataObjects>},
};

std::wstring ClassKey(const ServerClass& entry) {
    wchar_t text[39];
    StringFromGUID2(entry.id, text, ARRAYSIZE(text));
    return text;
}

HRESULT SetText(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(
        RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(), size));
}

}  // namespace

std::span<const ServerClass> ServerClasses() noexcept { return classes; }

HRESULT RegisterServer() {
    for (const ServerClass& entry : classes) {
        const std::wstring id = ClassKey(entry);
        const std::wstring server = L"CLSID\\" + id + L"\\InprocServer32";
        HRESULT result = SetText(com::ToWide(entry.progId) + L"\\CLSID", id);
        if (SUCCEEDED(result)) result = SetText(server, com::ModulePath());
        if (SUCCEEDED(result)) result = SetText(server, L"Apartment", L"ThreadingModel");
        if (FAILED(result)) return result;
    }
    return S_OK;
}

HRESULT UnregisterServer() {
    for (const ServerClass& entry : classes) {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, com::ToWide(entry.progId).c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + ClassKey(entry)).c_str());
    }
    return S_OK;
}

}  // namespace korvex::test
