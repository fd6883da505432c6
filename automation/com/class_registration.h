#pragma once

#include <windows.h>

#include <string_view>

namespace korvex::com {

/// Enters a class of this module below HKEY_CLASSES_ROOT, for hosts that live in an apartment. `typeLibrary`
/// describes its interfaces, if one does. The first failure ends it.
HRESULT WriteClass(std::string_view progId, REFCLSID id, const GUID* typeLibrary = nullptr);
/// Takes it out again; what is not there does not matter.
HRESULT DeleteClass(std::string_view progId, REFCLSID id);

}  // namespace korvex::com
