#pragma once

#include "automation/dispatch.h"

namespace korvex::com {

/// What a member gets for a host's object: a data object and an ADO connection are bound to what the
/// parameter declares (TypeMismatch, 13, when they are none), a language service takes the number of a text
/// by reference, other objects are called by name.
automation::ObjectRef BindHostObject(automation::ObjectRef object, const automation::Parameter& parameter);

}  // namespace korvex::com
