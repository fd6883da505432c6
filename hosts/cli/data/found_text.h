#pragma once

#include "automation/variant.h"
#include "objects/find.h"

#include <ostream>
#include <string>
#include <string_view>

namespace korvex::cli {

/// A value as a line of text: dates in ISO 8601, binary data in base64, nothing for Null.
std::string LineOf(const automation::Variant& value);

/// Writes what was found, one line each: "table" with columns under their names for people, "json", "csv"
/// with a line of names first (quotes as RFC 4180 has them; Null is nothing, an empty text ""), or "keys".
void WriteFound(objects::FoundObjects& found, std::string_view format, std::ostream& results);

}  // namespace korvex::cli
