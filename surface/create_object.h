#pragma once

#include "automation/dispatch.h"

#include <string_view>

namespace korvex {

/// A new object by program identifier, to be used by name: automation::Call, Get and Let.
/// @param progId "Korvex.clsCreateDb", "Korvex.clsField" or "Korvex.clsCRUD", in any case;
///     CannotCreateObject (429) for any other
/// @return the object, with the parts of this build
automation::ObjectRef CreateObject(std::string_view progId);

}  // namespace korvex
