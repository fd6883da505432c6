#include "repository/catalog_ways.h"

#include "automation/error.h"
#include "repository/cycles.h"

#include <algorithm>
#include <limits>

namespace korvex::repository {

std::optional<std::string> FindOwnAncestor(const Catalog& catalog, const std::vector<std::int32_t>& roots,
                                           std::vector<std::int32_t>& finished) {
    const auto childrenOf = [&](std::int32_t objectID) {
        return catalog.FindObject(objectID) == nullptr ? std::vector<std::int32_t>()
                                                       : catalog.ChildrenOf(objectID);
    };
    const auto cycle = FindCycle(roots, childrenOf, finished);
    if (!cycle) return std::nullopt;
    std::string text;
    for (const std::int32_t objectID : *cycle)
        text += (text.empty() ? "" : " > ") + catalog.FindObject(objectID)->Name;
    return text;
}

std::unordered_map<std::int32_t, std::int64_t> CountWays(const Catalog& catalog,
                                                         std::string_view storageName) {
    std::vector<std::int32_t> roots;
    for (const DataDefRow& row : catalog.DataDefs())
        if (storageName.empty() || row.Storage == storageName) roots.push_back(row.RootObjectID);
    std::vector<std::int32_t> finished;
    if (const auto cycle = FindOwnAncestor(catalog, roots, finished))
        throw automation::Error(automation::OutOfStackSpace, "An object is its own ancestor: " + *cycle);
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / 2;
    std::unordered_map<std::int32_t, std::int64_t> ways;
    for (const std::int32_t root : roots)
        ++ways[root];
    for (auto object = finished.rbegin(); object != finished.rend(); ++object) {
        if (catalog.FindObject(*object) == nullptr) {
            ways.erase(*object);
            continue;
        }
        const std::int64_t own = ways[*object];
        for (const std::int32_t child : catalog.ChildrenOf(*object))
            ways[child] = std::min(most, ways[child] + own);
    }
    return ways;
}

}  // namespace korvex::repository
