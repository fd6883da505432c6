#pragma once

#include "automation/com/bstr.h"
#include "automation/com/com_ptr.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <string>
#include <string_view>

/// A C++ host of the dual interfaces: it knows the classes by their registration, and the header that was
/// generated with the type library.
namespace korvex::tests {

/// A text of the host's own, passed by reference as most members take it.
class Text {
  public:
    explicit Text(std::string_view text) : m_text(com::ToBstr(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(m_text); }

    BSTR* operator&() noexcept { return &m_text; }
    BSTR Get() const noexcept { return m_text; }

  private:
    BSTR m_text;
};

inline VARIANT Long(LONG value) noexcept {
    VARIANT result = {};
    result.vt = VT_I4;
    result.lVal = value;
    return result;
}

inline VARIANT MissingArgument() noexcept {
    VARIANT result = {};
    result.vt = VT_ERROR;
    result.scode = DISP_E_PARAMNOTFOUND;
    return result;
}

/// A new object of a registered class.
template <class Interface>
com::ComPtr<Interface> Create(REFCLSID classId) {
    com::ComPtr<Interface> object;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                               reinterpret_cast<void**>(object.Put())),
              S_OK);
    return object;
}

/// The text that a property get answers: `Get(crud, &_clsCRUD::get_FKPrefix)`.
template <class Interface>
std::string Get(const com::ComPtr<Interface>& object, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*)) {
    com::Bstr result;
    EXPECT_EQ((object.Get()->*get)(result.Put()), S_OK);
    return result.Text();
}

/// Every test works in a folder of its own, on copies of the databases that the earlier jobs have made.
class Host : public testing::Test {
  protected:
    Host();
    ~Host() override;

    static std::string ReadFile(const std::string& path);
    /// Connects to the folder's target database.
    std::string ConnectionString() const;
};

}  // namespace korvex::tests
