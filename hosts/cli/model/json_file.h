#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace korvex::cli {

/// The JSON document in a file; // and /* */ comments are skipped. Raises FileNotFoundError,
/// PathFileAccessError (75) for a file that can not be read, and InvalidProcedureCall (5) for text that is no
/// JSON, naming file, line and column, and for a member that stands twice in one object, naming its path.
nlohmann::json ReadJsonFile(const std::string& path);

}  // namespace korvex::cli
