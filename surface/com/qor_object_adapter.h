#pragma once

#include "automation/dispatch.h"

namespace korvex::com {

/// A host's data object, called through the slots of its QORObject interface. Raises TypeMismatch (13) for an
/// object that has no such interface. An object of this library comes back as itself.
automation::ObjectRef BindDataObject(const automation::ObjectRef& object);

}  // namespace korvex::com
