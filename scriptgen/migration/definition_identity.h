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

/// The tables of a definition (DescribeDefinition) with what tells its objects and values from others, for a
/// comparison with the same definition at another time. `numbered`: ValueIDs of the values that have a number
/// of their own, where that is known; the numbers of others are no identity then.
std::vector<DescribedTable> DescribeIdentified(
    const repository::Catalog& catalog, std::string_view storageName, std::string_view sFKPrefix,
    const std::unordered_set<repository::ValueId>* numbered = nullptr);

/// A definition as one source has it.
struct DefinitionState {
    std::vector<DescribedTable> tables;  ///< as DescribeIdentified gives them
    std::set<std::string> others;        ///< tables of the source's other definitions, in capitals
};
DefinitionState DescribeState(const repository::Catalog& catalog, const std::string& storageName,
                              std::string_view sFKPrefix,
                              const std::unordered_set<repository::ValueId>* numbered = nullptr);

}  // namespace korvex::scriptgen
