#pragma once

#include "support/late_bound.h"

#include <windows.h>

#include <string>
#include <unknwn.h>

/// What COM calls came to, as one line of text, so that tests compare whole outcomes.
namespace korvex::tests {

/// "S_OK", "DISP_E_TYPEMISMATCH"; "0x800A005B" for a result without a name.
std::string ResultName(HRESULT result);

/// "String <x>" for a success, "DISP_E_TYPEMISMATCH at 0" with the caller's index of the argument at fault,
/// "0x800A005B <Korvex> <description>" for an exception.
std::string OutcomeText(const CallOutcome& outcome);

/// The same for a slot of `object` that answered `result`: "S_OK", or the result with the error information
/// that the object left for `interfaceId`, if any.
std::string SlotText(HRESULT result, IUnknown* object, REFIID interfaceId);

}  // namespace korvex::tests
