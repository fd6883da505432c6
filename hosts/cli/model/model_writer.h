#pragma once

#include "hosts/cli/model/model.h"

#include <string>

namespace korvex::cli {

/// The JSON form of a model, such that ReadModel gives the same model again: every object once, in order,
/// with its children by name; one value a line; members that hold their default left out.
std::string ModelText(const Model& model);

}  // namespace korvex::cli
