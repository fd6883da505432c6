#pragma once

#include <string>
#include <string_view>

namespace korvex::test {

/// The host system's path of a Windows path under Wine: ODBC drivers there know no other.
std::string UnixPath(std::string_view windowsPath);

}  // namespace korvex::test
