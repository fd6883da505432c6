#pragma once

#include "automation/com/com_ptr.h"
#include "automation/dispatch.h"

#include <oaidl.h>

namespace korvex::com {

/// A host's For Each over an object of this library. Raises what Object::NewEnum raises.
ComPtr<IEnumVARIANT> EnumerateForHost(automation::ObjectRef collection);

}  // namespace korvex::com
