#pragma once

#include "hosts/cli/model/model.h"
#include "platform/dao.h"

#include <cstdint>
#include <vector>

namespace korvex::cli {

/// The identifiers that a repository gave to a model's entries, by their positions in the model.
struct ImportedIDs {
    std::vector<std::int32_t> objects;
    std::vector<std::int32_t> interfaces;
    std::vector<std::vector<std::int32_t>> values;  ///< by interface
};

/// Adds a model to a repository, in one transaction where the engine has them. A storage name or a class
/// identifier that the repository already has raises InvalidProcedureCall (5) before anything is written.
ImportedIDs ImportModel(const Model& model, dao::Database& database);

}  // namespace korvex::cli
