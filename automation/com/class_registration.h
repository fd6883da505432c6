#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::com {

/// Writes text values below HKEY_CLASSES_ROOT and takes them back, to what stood there before, unless they
/// are kept. The first failure stops the rest.
class Registration {
  public:
    Registration() = default;
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration();

    /// A class of this module, for hosts that live in an apartment. `typeLibrary` describes its interfaces,
    /// if one does.
    void AddClass(std::string_view progId, REFCLSID id, const GUID* typeLibrary = nullptr);
    /// Makes a key where there is none, and sets a value of it. Keys above it that do not exist are made as
    /// well, but stay when it is taken back.
    void Set(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr);
    HRESULT Result() const noexcept { return m_result; }
    void Keep() noexcept { m_steps.clear(); }

  private:
    struct Step {
        std::wstring key;
        const wchar_t* name;
        bool isNewKey;
        std::optional<std::wstring> earlier;
    };
    HRESULT m_result = S_OK;
    std::vector<Step> m_steps;
};

/// Takes a class out again; what is not there does not matter. Its program identifier, which both widths
/// share, stays while the other one has the class.
HRESULT DeleteClass(std::string_view progId, REFCLSID id);

/// "{6EA9A0F7-...}"
std::wstring GuidText(REFGUID guid);

}  // namespace korvex::com
