#pragma once

#include <windows.h>

namespace korvex::com {

/// Registers the classes, their program identifiers and the type library of this module for all users; a
/// failure leaves what was registered before, or nothing.
HRESULT RegisterModule();
/// Takes it away again, but for what the other width's registration shares; what is not there does not
/// matter.
HRESULT UnregisterModule();

}  // namespace korvex::com
