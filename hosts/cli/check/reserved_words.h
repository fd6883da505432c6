#pragma once

#include <string>
#include <string_view>

namespace korvex::cli {

/// The dialects that reserve `name`, in any case: "MS SQL, Sybase"; empty for none.
std::string ReservedBy(std::string_view name);

}  // namespace korvex::cli
