// What registering the DLL writes, and that taking it back leaves the registry as it was.

#include "automation/com/bstr.h"
#include "support/module.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <korvex_com.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace korvex::tests {
namespace {

using Keys = std::vector<std::string>;

/// The values of a key and of what stands below it, one line for each key and each value.
void AddTree(HKEY key, const std::string& path, std::set<std::string>& lines) {
    lines.insert(path);
    wchar_t name[256];
    wchar_t text[1024];
    for (DWORD i = 0;; ++i) {
        DWORD length = ARRAYSIZE(name);
        DWORD size = sizeof text - sizeof *text;
        std::fill(std::begin(text), std::end(text), L'\0');
        if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size) !=
            ERROR_SUCCESS)
            break;
        lines.insert(path + " [" + com::FromWide(name) + "] " + com::FromWide(text));
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = ARRAYSIZE(name);
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return;
        HKEY below = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &below) != ERROR_SUCCESS) continue;
        AddTree(below, path + "\\" + com::FromWide(name), lines);
        RegCloseKey(below);
    }
}

/// What is registered for all users below these keys.
std::string ClassesBelow(const Keys& keys) {
    std::set<std::string> lines;
    for (const std::string& path : keys) {
        HKEY key = nullptr;
        const std::wstring full = L"Software\\Classes\\" + com::ToWide(path);
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, full.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) continue;
        AddTree(key, path, lines);
        RegCloseKey(key);
    }
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

const std::string libraryKey = "TypeLib\\{ABC64E46-B1C4-4B30-AF8C-BBC491359DD8}";

struct {
    std::string progId;
    std::string key;
} const classes[] = {
    {"Korvex.clsCRUD", "CLSID\\{BE95DFAE-5754-4973-A72F-D3558649217D}"},
    {"Korvex.clsCreateDb", "CLSID\\{6EA9A0F7-8504-4AEB-9337-F37BB345C73B}"},
    {"Korvex.clsField", "CLSID\\{4BFF76B7-4B56-4E32-AD7D-E88480C58229}"},
};

std::string RegisteredClasses() {
    Keys keys;
    for (const auto& [progId, key] : classes)
        keys.insert(keys.end(), {progId, key});
    return ClassesBelow(keys);
}

/// The type library and its interfaces, which the system writes in its own way, for both widths.
std::string RegisteredTypes() {
    Keys keys = {libraryKey};
    for (const char* id : {"8085B8BA-FF6B-4204-B4C1-40F0397B01C9", "FF845C66-C804-4F16-8A0F-373D72280706",
                           "C9216CEE-DE66-4C7C-B265-A3187205F600", "F1EE9C8E-0934-4411-AFAD-D5074DC3B287",
                           "C0A7E8D4-51B5-4C6F-8F0E-7B2D9E4A6C13"})
        keys.push_back(std::string("Interface\\{") + id + "}");
    for (std::size_t i = 0, count = keys.size(); i < count; ++i)
        keys.push_back("Wow6432Node\\" + keys[i]);
    return ClassesBelow(keys);
}

std::string ExpectedClasses(const std::string& path) {
    std::set<std::string> lines;
    for (const auto& [progId, key] : classes) {
        const std::string id = key.substr(key.find('{'));
        lines.insert({progId, progId + " [] " + progId, progId + "\\CLSID", progId + "\\CLSID [] " + id, key,
                      key + " [] " + progId, key + "\\InprocServer32", key + "\\InprocServer32 [] " + path,
                      key + "\\InprocServer32 [ThreadingModel] Apartment", key + "\\ProgID",
                      key + "\\ProgID [] " + progId, key + "\\Programmable", key + "\\Programmable [] ",
                      key + "\\TypeLib", key + "\\TypeLib [] " + libraryKey.substr(8)});
    }
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

class RegistrationTest : public testing::Test {
  protected:
    /// The system may have noted a type library that it used without registration.
    RegistrationTest() { EXPECT_EQ(m_module.Unregister(), S_OK); }
    ~RegistrationTest() override {
        EXPECT_EQ(m_module.Unregister(), S_OK);
        EXPECT_EQ(m_module.Unregister(), S_OK) << "what is gone already is no hindrance";
        EXPECT_EQ(RegisteredClasses() + RegisteredTypes(), "");
    }

    const Module m_module;
};

TEST_F(RegistrationTest, WritesTheClassesAndTheTypeLibrary) {
    EXPECT_EQ(m_module.Register(), S_OK);
    EXPECT_EQ(m_module.Register(), S_OK) << "nor is what is there already";
    const std::string path = com::FromWide(m_module.Path());
    EXPECT_EQ(RegisteredClasses(), ExpectedClasses(path));
    EXPECT_NE(RegisteredTypes().find(libraryKey + "\\1.0\\0\\win64 [] " + path), std::string::npos);
    com::ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_Korvex, 1, 0, 0x409, library.Put()), S_OK);
}

/// A key below the classes of all users, while it lives.
class Key {
  public:
    Key(std::wstring path, REGSAM view, DWORD options = 0) : m_path(std::move(path)), m_view(view) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, m_path.c_str(), 0, nullptr, options,
                                  KEY_ALL_ACCESS | view, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { EXPECT_EQ(RegDeleteKeyExW(HKEY_CLASSES_ROOT, m_path.c_str(), m_view, 0), ERROR_SUCCESS); }

  private:
    std::wstring m_path;
    REGSAM m_view;
};

TEST_F(RegistrationTest, LeavesWhatTheOtherWidthHas) {
    EXPECT_EQ(m_module.Register(), S_OK);
    const auto& [progId, key] = classes[0];
    const Key other(com::ToWide(key), KEY_WOW64_32KEY);
    EXPECT_EQ(m_module.Unregister(), S_OK);
    EXPECT_EQ(RegisteredClasses(), progId + "\n" + progId + " [] " + progId + "\n" + progId + "\\CLSID\n" +
                                       progId + "\\CLSID [] " + key.substr(6) + "\n");
}

// Nothing that lasts can be written below a key that does not.
TEST_F(RegistrationTest, ThatFailsLeavesWhatWasThere) {
    for (const bool wasRegistered : {false, true}) {
        if (wasRegistered) {
            EXPECT_EQ(m_module.Register(), S_OK);
            EXPECT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Korvex.clsCRUD"), ERROR_SUCCESS);
            RegSetKeyValueW(HKEY_CLASSES_ROOT, com::ToWide(classes[1].key + "\\InprocServer32").c_str(),
                            nullptr, REG_SZ, L"C:\\old.dll", 22);
        }
        const Key refusing(L"Korvex.clsCRUD", 0, REG_OPTION_VOLATILE);
        const std::string earlier = RegisteredClasses() + RegisteredTypes();
        EXPECT_EQ(m_module.Register(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
        EXPECT_EQ(RegisteredClasses() + RegisteredTypes(), earlier);
    }
}

}  // namespace
}  // namespace korvex::tests
