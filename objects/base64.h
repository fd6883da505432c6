#pragma once

#include "automation/variant.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvex::objects {

/// Base64 text (RFC 4648, with padding) of binary data, and back; nothing for text that is none.
std::string ToBase64(const automation::Bytes& data);
std::optional<automation::Bytes> FromBase64(std::string_view text);

}  // namespace korvex::objects
