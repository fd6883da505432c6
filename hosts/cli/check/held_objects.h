#pragma once

#include "repository/catalog.h"

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace korvex::cli {

/// Answers again and again which objects stand directly beneath others.
class HeldObjects {
  public:
    explicit HeldObjects(const repository::Catalog& catalog) : m_catalog(catalog) {}

    bool Holds(std::int32_t parentID, std::int32_t childID) {
        const auto [entry, isNew] = m_children.try_emplace(parentID);
        if (isNew) {
            const std::vector<std::int32_t> children = m_catalog.ChildrenOf(parentID);
            entry->second.insert(children.begin(), children.end());
        }
        return entry->second.contains(childID);
    }

  private:
    const repository::Catalog& m_catalog;
    std::unordered_map<std::int32_t, std::unordered_set<std::int32_t>> m_children;
};

}  // namespace korvex::cli
