#pragma once

#include "repository/catalog.h"

#include <unordered_map>
#include <unordered_set>

namespace korvex::cli {

/// Answers again and again which objects stand directly beneath others.
class HeldObjects {
  public:
    explicit HeldObjects(const repository::Catalog& catalog) : m_catalog(catalog) {}

    bool Holds(repository::ObjectId parentID, repository::ObjectId childID) {
        const auto [entry, isNew] = m_children.try_emplace(parentID);
        if (isNew) {
            const auto children = m_catalog.ChildrenOf(parentID);
            entry->second.insert(children.begin(), children.end());
        }
        return entry->second.contains(childID);
    }

  private:
    const repository::Catalog& m_catalog;
    std::unordered_map<repository::ObjectId, std::unordered_set<repository::ObjectId>> m_children;
};

}  // namespace korvex::cli
