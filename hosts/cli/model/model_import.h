#pragma once

#include "hosts/cli/model/model.h"
#include "platform/dao.h"

namespace korvex::cli {

/// Adds a model to a repository, in one transaction where the engine has them. A storage name or a class
/// identifier that the repository already has raises InvalidProcedureCall (5) before anything is written.
void ImportModel(const Model& model, dao::Database& database);

}  // namespace korvex::cli
