#pragma once

#include "hosts/cli/model/model.h"

#include <string>

namespace korvex::cli {

/// The model in a JSON file. Raises the errors of ReadJsonFile, InvalidProcedureCall (5) with file and path
/// for content that makes no model, and OutOfStackSpace (28) for an object that is its own ancestor.
Model ReadModel(const std::string& path);

}  // namespace korvex::cli
