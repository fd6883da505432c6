#pragma once

#include "objects/definition.h"

#include <memory>
#include <string>

namespace korvex::objects {

/// The JSON Schema (2020-12) of what ListFromJson takes for new objects of a definition: one of them, or an
/// array. Whatever it refuses ListFromJson refuses, too.
std::string JsonSchema(const std::shared_ptr<Definition>& definition);

}  // namespace korvex::objects
