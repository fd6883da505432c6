// What registering the DLL writes, and that taking it back leaves the registry as it was.

#include "automation/com/bstr.h"
#include "support/module.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <korvex_com.h>
#include <set>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

/// One line per key and per value.
using Registry = std::set<std::string>;

std::string DataText(DWORD type, const std::vector<BYTE>& data) {
    if (type != REG_SZ) return "type " + std::to_string(type) + ", " + std::to_string(data.size()) + " bytes";
    std::wstring text(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t));
    while (!text.empty() && text.back() == L'\0')
        text.pop_back();
    return com::FromWide(text);
}

void AddValues(HKEY key, const std::string& path, Registry& lines) {
    wchar_t name[256];
    std::vector<BYTE> data(65536);
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = ARRAYSIZE(name);
        auto size = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key, i, name, &nameLength, nullptr, &type, data.data(), &size) != ERROR_SUCCESS)
            return;
        lines.insert(path + " [" + com::FromWide(name) + "] " +
                     DataText(type, std::vector<BYTE>(data.begin(), data.begin() + size)));
    }
}

void AddTree(HKEY key, const std::string& path, Registry& lines) {
    AddValues(key, path, lines);
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
        DWORD length = ARRAYSIZE(name);
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return;
        const std::string subPath = (path.empty() ? "" : path + "\\") + com::FromWide(name);
        lines.insert(subPath);
        HKEY subKey = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &subKey) != ERROR_SUCCESS) continue;
        AddTree(subKey, subPath, lines);
        RegCloseKey(subKey);
    }
}

/// The classes of all users, where the DLL registers itself, below the given keys.
Registry ClassesBelow(const std::vector<std::string>& keys) {
    Registry lines;
    for (const std::string& key : keys) {
        HKEY classes = nullptr;
        const std::wstring path = L"Software\\Classes" + com::ToWide(key.empty() ? "" : "\\" + key);
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &classes) != ERROR_SUCCESS) continue;
        if (!key.empty()) lines.insert(key);
        AddTree(classes, key, lines);
        RegCloseKey(classes);
    }
    return lines;
}

/// All of them, which takes seconds.
Registry Classes() { return ClassesBelow({""}); }

constexpr const char* libraryId = "{ABC64E46-B1C4-4B30-AF8C-BBC491359DD8}";

/// Those of the component but for its interfaces.
Registry OwnClasses() {
    return ClassesBelow(
        {"Korvex.clsCreateDb", "Korvex.clsField", "Korvex.clsCRUD", std::string("TypeLib\\") + libraryId,
         "CLSID\\{6EA9A0F7-8504-4AEB-9337-F37BB345C73B}", "CLSID\\{4BFF76B7-4B56-4E32-AD7D-E88480C58229}",
         "CLSID\\{BE95DFAE-5754-4973-A72F-D3558649217D}"});
}

std::string Lines(const Registry& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

/// What is in `lines` and not in `others`.
Registry Added(const Registry& lines, const Registry& others) {
    Registry difference = lines;
    std::erase_if(difference, [&](const std::string& line) { return others.contains(line); });
    return difference;
}

void AddClass(Registry& lines, const std::string& progId, const std::string& classId,
              const std::string& path) {
    const std::string key = "CLSID\\" + classId;
    lines.insert({progId, progId + " [] " + progId, progId + "\\CLSID", progId + "\\CLSID [] " + classId, key,
                  key + " [] " + progId, key + "\\InprocServer32", key + "\\InprocServer32 [] " + path,
                  key + "\\InprocServer32 [ThreadingModel] Apartment", key + "\\ProgID",
                  key + "\\ProgID [] " + progId, key + "\\Programmable", key + "\\Programmable [] ",
                  key + "\\TypeLib", key + "\\TypeLib [] " + libraryId});
}

Registry ExpectedClasses(const std::string& path) {
    Registry lines;
    AddClass(lines, "Korvex.clsCreateDb", "{6EA9A0F7-8504-4AEB-9337-F37BB345C73B}", path);
    AddClass(lines, "Korvex.clsField", "{4BFF76B7-4B56-4E32-AD7D-E88480C58229}", path);
    AddClass(lines, "Korvex.clsCRUD", "{BE95DFAE-5754-4973-A72F-D3558649217D}", path);
    return lines;
}

/// The system writes the type library and its interfaces in its own way; they are told by their identifiers.
bool IsOfTheLibrary(const std::string& line) {
    const std::string ids[] = {libraryId,
                               "{8085B8BA-FF6B-4204-B4C1-40F0397B01C9}",
                               "{FF845C66-C804-4F16-8A0F-373D72280706}",
                               "{C9216CEE-DE66-4C7C-B265-A3187205F600}",
                               "{F1EE9C8E-0934-4411-AFAD-D5074DC3B287}",
                               "{C0A7E8D4-51B5-4C6F-8F0E-7B2D9E4A6C13}"};
    return !line.starts_with("CLSID\\") &&
           std::ranges::any_of(ids, [&](const std::string& id) { return line.find(id) != line.npos; });
}

TEST(RegistrationTest, WritesTheClassesAndTheTypeLibraryAndTakesAllOfItBack) {
    const Module module;
    // The system may have noted a type library that it used without registration.
    EXPECT_EQ(module.Unregister(), S_OK);
    const Registry before = Classes();
    ASSERT_FALSE(before.contains("Korvex.clsCreateDb")) << "registered already";
    EXPECT_EQ(module.Register(), S_OK);
    EXPECT_EQ(module.Register(), S_OK) << "what is there already is no hindrance";
    const Registry registered = Classes();
    EXPECT_EQ(Lines(Added(before, registered)), "") << "lost";
    Registry added = Added(registered, before);
    std::erase_if(added, IsOfTheLibrary);
    EXPECT_EQ(Lines(added), Lines(ExpectedClasses(com::FromWide(module.Path()))));
    EXPECT_TRUE(OwnClasses().contains(std::string("TypeLib\\") + libraryId + "\\1.0\\0\\win64 [] " +
                                      com::FromWide(module.Path())));
    com::ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_Korvex, 1, 0, 0x409, library.Put()), S_OK);

    EXPECT_EQ(module.Unregister(), S_OK);
    EXPECT_EQ(module.Unregister(), S_OK) << "nor is what is gone already";
    const Registry after = Classes();
    EXPECT_EQ(Lines(Added(after, before)), "") << "left behind";
    EXPECT_EQ(Lines(Added(before, after)), "") << "lost";
}

/// A key below the classes of all users, while it lives.
class Key {
  public:
    Key(const wchar_t* path, REGSAM view, DWORD options = 0) : m_path(path), m_view(view) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, path, 0, nullptr, options, KEY_ALL_ACCESS | view,
                                  nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() { EXPECT_EQ(RegDeleteKeyExW(HKEY_CLASSES_ROOT, m_path, m_view, 0), ERROR_SUCCESS); }

  private:
    const wchar_t* m_path;
    REGSAM m_view;
};

TEST(RegistrationTest, LeavesWhatTheOtherWidthHas) {
    const Module module;
    EXPECT_EQ(module.Register(), S_OK);
    {
        const Key other(L"CLSID\\{BE95DFAE-5754-4973-A72F-D3558649217D}", KEY_WOW64_32KEY);
        EXPECT_EQ(module.Unregister(), S_OK);
        const std::string progId = "Korvex.clsCRUD";
        const std::string classId = "{BE95DFAE-5754-4973-A72F-D3558649217D}";
        EXPECT_EQ(Lines(OwnClasses()), Lines({progId, progId + " [] " + progId, progId + "\\CLSID",
                                              progId + "\\CLSID [] " + classId}));
    }
    EXPECT_EQ(module.Unregister(), S_OK);
    EXPECT_EQ(Lines(OwnClasses()), "");
}

TEST(RegistrationTest, ThatFailsLeavesWhatWasThere) {
    const Module module;
    // Nothing that lasts can be written below a key that does not.
    for (const bool wasRegistered : {false, true}) {
        if (wasRegistered) {
            EXPECT_EQ(module.Register(), S_OK);
            EXPECT_EQ(RegDeleteTreeW(HKEY_CLASSES_ROOT, L"Korvex.clsCRUD"), ERROR_SUCCESS);
            RegSetKeyValueW(HKEY_CLASSES_ROOT,
                            L"CLSID\\{6EA9A0F7-8504-4AEB-9337-F37BB345C73B}\\InprocServer32", nullptr, REG_SZ,
                            L"C:\\old.dll", 22);
        }
        const Key refusing(L"Korvex.clsCRUD", 0, REG_OPTION_VOLATILE);
        const Registry earlier = OwnClasses();
        EXPECT_EQ(module.Register(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
        EXPECT_EQ(Lines(Added(OwnClasses(), earlier)), "") << "added";
        EXPECT_EQ(Lines(Added(earlier, OwnClasses())), "") << "lost";
    }
    EXPECT_EQ(module.Unregister(), S_OK);
    EXPECT_EQ(Lines(OwnClasses()), "");
}

}  // namespace
}  // namespace korvex::tests
