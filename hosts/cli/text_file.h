#pragma once

#include <cstdint>
#include <string>

namespace korvex::cli {

/// Error number for a file that does not exist.
inline constexpr std::int32_t FileNotFoundError = 53;

/// All of a file, or of standard input for "-". Raises FileNotFoundError, or PathFileAccessError (75) for
/// what cannot be read.
std::string ReadTextFile(const std::string& path);

/// Makes a folder where there is none; PathFileAccessError (75) when that cannot be.
void CreateFolder(const std::string& folder);

}  // namespace korvex::cli
