#include "platform/native/sql/odbc/odbc_handle.h"

#include "automation/text.h"
#include "platform/native/sql/engine_error.h"

#include <algorithm>
#include <array>

namespace korvex::native::sql {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

OdbcHandle::OdbcHandle(SQLSMALLINT type, SQLHANDLE parent) {
    SQLHANDLE handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &handle)))
        throw EngineError(ErrorKind::Other, "The ODBC driver manager gives no handle");
    m_handle = {handle, Free{type}};
}

OdbcDiagnosis ReadDiagnosis(const OdbcHandle& handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, SQL_MAX_MESSAGE_LENGTH * 2> message{};
    SQLINTEGER nativeCode = 0;
    SQLSMALLINT length = 0;
    OdbcDiagnosis diagnosis;
    if (!SQL_SUCCEEDED(SQLGetDiagRecW(handle.Type(), handle.Get(), 1, state.data(), &nativeCode,
                                      message.data(), static_cast<SQLSMALLINT>(message.size()), &length))) {
        diagnosis.state = "HY000";
        diagnosis.message = "The driver reports a failure without a reason";
        return diagnosis;
    }
    diagnosis.state = FromWide(state.data(), 5);
    diagnosis.nativeCode = nativeCode;
    const auto units =
        std::min(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), message.size() - 1);
    diagnosis.message = FromWide(message.data(), units);
    while (diagnosis.message.starts_with('[')) {
        const std::size_t end = diagnosis.message.find(']');
        if (end == std::string::npos) break;
        diagnosis.message.erase(0, end + 1);
    }
    // Behind this mark one driver tells what it was doing itself.
    if (const std::size_t own = diagnosis.message.find(";\n"); own != std::string::npos) {
        diagnosis.message.erase(own);
    }
    return diagnosis;
}

WideText::WideText(std::string_view utf8) : m_text(automation::ToUtf16(utf8)) {}

std::string FromWide(const SQLWCHAR* text, std::size_t units) {
    return automation::ToUtf8({reinterpret_cast<const char16_t*>(text), units});
}

}  // namespace korvex::native::sql
