#pragma once

#include <windows.h>

namespace korvex::com {

/// Registers the classes, their program identifiers and the type library of this module for all users; on a
/// failure nothing stays behind.
HRESULT RegisterModule();
/// Takes all of it away again; what is not there does not matter.
HRESULT UnregisterModule();

}  // namespace korvex::com
