#pragma once

#include "repository/repository.h"
#include "scriptgen/table_model.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace korvex::scriptgen {

/// A definition as one source has it.
struct DefinitionState {
    /// As DescribeDefinition gives them, with what tells its objects and values from others, for a comparison
    /// with the same definition at another time.
    std::vector<DescribedTable> tables;
    std::set<std::string> others;  ///< tables of the source's other definitions, in capitals
};
/// `numbered`: ValueIDs of the values that have a number of their own, where that is known; the numbers of
/// others are no identity then.
DefinitionState DescribeState(const repository::Catalog& catalog, const std::string& storageName,
                              std::string_view sFKPrefix,
                              const std::unordered_set<repository::ValueId>* numbered = nullptr);

}  // namespace korvex::scriptgen
