#include "repository/catalog_ways.h"

#include "automation/error.h"
#include "repository/cycles.h"

#include <algorithm>
#include <limits>

namespace korvex::repository {

std::optional<std::string> FindOwnAncestor(const Catalog& catalog, const std::vector<ObjectId>& roots,
                                           std::vector<ObjectId>& finished) {
    const auto childrenOf = [&](ObjectId objectID) {
        return catalog.FindObject(objectID) == nullptr ? std::vector<ObjectId>()
                                                       : catalog.ChildrenOf(objectID);
    };
    const auto cycle = FindCycle(roots, childrenOf, finished);
    if (!cycle) return std::nullopt;
    std::string text;
    for (const ObjectId objectID : *cycle)
        text += (text.empty() ? "" : " > ") + catalog.FindObject(objectID)->Name;
    return text;
}

std::unordered_map<ObjectId, std::int64_t> CountWays(const Catalog& catalog, std::string_view storageName) {
    std::vector<ObjectId> roots;
    for (const DataDefRow& row : catalog.DataDefs())
        if (storageName.empty() || row.Storage == storageName) roots.push_back(row.RootObjectID);
    std::vector<ObjectId> finished;
    if (const auto cycle = FindOwnAncestor(catalog, roots, finished))
        throw automation::Error(automation::OutOfStackSpace, "An object is its own ancestor: " + *cycle);
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / 2;
    std::unordered_map<ObjectId, std::int64_t> ways;
    for (const ObjectId root : roots)
        ++ways[root];
    for (auto object = finished.rbegin(); object != finished.rend(); ++object) {
        if (catalog.FindObject(*object) == nullptr) {
            ways.erase(*object);
            continue;
        }
        const std::int64_t own = ways[*object];
        for (const ObjectId child : catalog.ChildrenOf(*object))
            ways[child] = std::min(most, ways[child] + own);
    }
    return ways;
}

}  // namespace korvex::repository
