#pragma once

#include "automation/dispatch.h"

#include <string_view>

namespace korvex {

/// A new object by program identifier, in any case: "Korvex.clsCreateDb", "Korvex.clsField",
/// "Korvex.clsCRUD". CannotCreateObject (429) for any other.
automation::ObjectRef CreateObject(std::string_view progId);

}  // namespace korvex
