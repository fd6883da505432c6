#pragma once

#include <windows.h>

#include <oleauto.h>
#include <string>
#include <string_view>
#include <utility>

namespace korvex::com {

std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view text);

/// Text of a BSTR; a null one is the empty text. Embedded zeros are kept.
std::string FromBstr(const OLECHAR* text);
/// A new BSTR that the caller owns. Raises OutOfMemory (7).
BSTR ToBstr(std::string_view utf8);

/// An owned BSTR.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::string_view utf8) : m_text(ToBstr(utf8)) {}
    Bstr(Bstr&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(m_text, other.m_text);
        return *this;
    }
    ~Bstr() { SysFreeString(m_text); }

    BSTR Get() const noexcept { return m_text; }
    BSTR Detach() noexcept { return std::exchange(m_text, nullptr); }
    /// For functions that answer a BSTR through a pointer; frees an earlier one.
    BSTR* Put() noexcept {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }
    std::string Text() const { return FromBstr(m_text); }

  private:
    BSTR m_text = nullptr;
};

}  // namespace korvex::com
