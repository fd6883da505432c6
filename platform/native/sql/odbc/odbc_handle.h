#pragma once

#include "platform/native/sql/odbc/odbc_api.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvex::native::sql {

/// Owns an ODBC handle.
class OdbcHandle {
  public:
    OdbcHandle() = default;
    /// Allocates a handle of `type` (SQL_HANDLE_ENV, ...) under `parent`; EngineError when there is no
    /// memory.
    OdbcHandle(SQLSMALLINT type, SQLHANDLE parent);

    SQLSMALLINT Type() const noexcept { return m_handle.get_deleter().type; }
    SQLHANDLE Get() const noexcept { return m_handle.get(); }

  private:
    struct Free {
        SQLSMALLINT type;
        void operator()(SQLHANDLE handle) const noexcept { SQLFreeHandle(type, handle); }
    };
    std::unique_ptr<void, Free> m_handle;
};

/// What a driver says about a failed call.
struct OdbcDiagnosis {
    std::string state;  ///< five characters (SQLSTATE)
    std::int32_t nativeCode = 0;
    std::string message;  ///< without the names of driver and driver manager in front
};

OdbcDiagnosis ReadDiagnosis(const OdbcHandle& handle);

/// UTF-16 as ODBC's wide functions take it.
class WideText {
  public:
    explicit WideText(std::string_view utf8);
    SQLWCHAR* Data() noexcept { return reinterpret_cast<SQLWCHAR*>(m_text.data()); }
    SQLSMALLINT Length() const noexcept { return static_cast<SQLSMALLINT>(m_text.size()); }
    SQLINTEGER LongLength() const noexcept { return static_cast<SQLINTEGER>(m_text.size()); }
    bool IsEmpty() const noexcept { return m_text.empty(); }

  private:
    std::u16string m_text;
};

/// `units` characters of a wide buffer.
std::string FromWide(const SQLWCHAR* text, std::size_t units);
/// The text in front of the first zero.
template <std::size_t N>
std::string FromWide(const std::array<SQLWCHAR, N>& text) {
    return FromWide(text.data(),
                    static_cast<std::size_t>(std::ranges::find(text, SQLWCHAR{0}) - text.begin()));
}

}  // namespace korvex::native::sql
