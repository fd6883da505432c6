#pragma once

#include "hosts/cli/model/model.h"
#include "platform/dao.h"

#include <span>
#include <string>
#include <vector>

namespace korvex::cli {

/// Adds a model to a repository, in one transaction where the engine has them; gives it with its identifiers.
/// A storage name or a class identifier that the repository already has raises InvalidProcedureCall (5)
/// before anything is written.
Model ImportModel(const Model& model, dao::Database& database);

/// Puts the definitions of a model in the place of those that a repository has by these names, and removes
/// those of `removed` (see MergeModel), in one transaction where the engine has them; with `isDry` nothing is
/// written. Gives what changes, for a person.
std::vector<std::string> ReplaceDefinitions(const Model& model, std::span<const std::string> removed,
                                            dao::Database& database, bool isDry);

}  // namespace korvex::cli
