#pragma once

#include <windows.h>

#include <oleauto.h>
#include <string>
#include <string_view>
#include <utility>

namespace korvex::com {

/// UTF-16 of a text and back. Hosts may hold texts that are no Unicode: a lone surrogate is carried as the
/// three bytes that UTF-8 would have for it, so that it comes back as it went in.
std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view text);

/// Text of a BSTR; a null one is the empty text. Embedded zeros are kept, and so is the odd byte at the end
/// of a byte string (a host's ChrB, LeftB), in a form that no other text has.
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
