#pragma once

#include "automation/com/com_ptr.h"
#include "automation/error.h"

#include <windows.h>

#include <oleauto.h>
#include <string_view>

/// Errors on the COM border: automation::Error inside, HRESULT and error information outside.
namespace korvex::com {

/// HRESULT of an error number: 0x800A0000 + n for the runtime's and the engines' 16-bit numbers, the number
/// itself when it is an HRESULT already.
HRESULT ResultOf(std::int32_t number) noexcept;
/// The error number of a failed HRESULT, the other way round.
std::int32_t NumberOf(HRESULT result) noexcept;

/// Call these inside a catch block: the exception being handled becomes an HRESULT. Whatever is no
/// automation::Error counts as OutOfMemory (7) or as E_FAIL with the exception's text.
/// For a slot: number, source and description stay with the thread as COM error information.
HRESULT ReportException(REFIID interfaceId) noexcept;
/// For a late-bound caller: `info` (may be null) is filled; DISP_E_EXCEPTION.
HRESULT ReportException(EXCEPINFO* info) noexcept;

/// Runs a slot's body; no exception passes, and no error information of an earlier call stays behind.
template <class Body>
HRESULT Guard(REFIID interfaceId, Body&& body) noexcept {
    try {
        SetErrorInfo(0, nullptr);
        return body();
    } catch (...) {
        return ReportException(interfaceId);
    }
}

/// Raises what a slot of a host's object answered when it is a failure, with the error information that the
/// object left. Everything the host said is kept.
void Check(HRESULT result, IUnknown* object, REFIID interfaceId);

/// Raises what IDispatch::Invoke answered; `member` is named where the object itself said nothing.
[[noreturn]] void RaiseInvokeError(HRESULT result, EXCEPINFO& info, std::string_view member);

/// The system's own text for a result, without its line end; the number where it has none.
std::string SystemText(HRESULT result);

}  // namespace korvex::com
