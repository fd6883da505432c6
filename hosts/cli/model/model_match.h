#pragma once

#include "hosts/cli/model/model.h"

#include <optional>
#include <vector>

namespace korvex::cli {

/// For each entry of one model the position of the same entry in an earlier one; nothing for a new entry.
struct ModelMatch {
    using Positions = std::vector<std::optional<std::size_t>>;
    Positions objects;
    Positions interfaces;
    std::vector<Positions> values;  ///< by interface; positions within the interface that it matches
};

/// Finds out what `now` and `before` have in common (see scriptgen::MatchDefinitions). `inScope` says of each
/// object of `before` whether it may be told by its name.
ModelMatch MatchModels(const Model& before, const std::vector<bool>& inScope, const Model& now);

/// Whether a value was written as a key by a run.
bool IsKeyValue(const ModelInterface& interface, const ModelValue& value);

}  // namespace korvex::cli
