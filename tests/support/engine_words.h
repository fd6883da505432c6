#pragma once

#include "support/driver.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvex::tests {

/// A declared type in the words of an engine, nothing when it has none like it. Tests use the types of the
/// generated scripts: "datetime", "image", "NUMBER(5)".
std::optional<std::string> TypeIn(Driver driver, std::string_view declared);

/// A statement that makes or fills test tables in the words of an engine: such types, "[quoted names]",
/// "integer primary key" for a key that the engine numbers and "numbered" for such a column.
std::string InWordsOf(Driver driver, std::string_view statement);

}  // namespace korvex::tests
