#pragma once

#include "automation/variant.h"
#include "objects/json_document.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Single values in their JSON form, by the data type code of their definition.
namespace korvex::objects {

inline constexpr std::string_view Base64Member = "$base64";

/// The value that stands at `value`. TypeMismatch (13), Overflow (6): with a description of what stands there
/// and what belongs there.
automation::Variant ReadValue(const JsonDocument& document, const JsonDocument::Value& value,
                              std::int32_t dataType);

/// Appends the JSON text of a value that is not Empty. TypeMismatch (13) for an object, Overflow (6) for a
/// number that is not finite.
void WriteValue(std::string& text, const automation::Variant& value);
/// Appends a text in quotes.
void WriteText(std::string& text, std::string_view value);

}  // namespace korvex::objects
