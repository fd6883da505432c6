#pragma once

#include "hosts/cli/model/model.h"

#include <span>
#include <string>

namespace korvex::cli {

/// The model of everything that a repository holds (`before`), with the definitions of `model` in place of
/// those that it has by these storage names; the identifiers of what is the same stay (see MatchModels).
/// Definitions of `removed` go. What these definitions alone had goes; what others use stays. Raises
/// InvalidProcedureCall (5) for a class identifier that an object which is none of these has already.
Model MergeModel(const Model& before, const Model& model, std::span<const std::string> removed = {});

/// Raises that an object's class identifier is already that of another object, `owner`.
[[noreturn]] void RefuseGuid(const Model& model, const ModelObject& object, const std::string& owner);

}  // namespace korvex::cli
