#pragma once

#include "repository/definition_rows.h"

#include <cstdint>
#include <unordered_map>
#include <unordered_set>

namespace korvex::repository {

/// The references between objects that one call has written.
class KeyReferences {
  public:
    void AddObject(ObjectId objectID) { m_objects.insert(objectID); }
    void Add(ObjectId childID, ObjectId parentID, ValueId valueID) {
        m_values[Pair(childID, parentID)] = valueID;
        m_parents[valueID] = parentID;
    }

    bool IsEmpty() const noexcept { return m_objects.empty(); }
    bool HasObject(ObjectId objectID) const { return m_objects.contains(objectID); }
    /// The value by which the child refers to the parent; 0 for none.
    ValueId ValueOf(ObjectId childID, ObjectId parentID) const {
        const auto position = m_values.find(Pair(childID, parentID));
        return position == m_values.end() ? ValueId() : position->second;
    }
    /// A value that several parents of one name share refers to the last of them.
    const KeyParents& Parents() const noexcept { return m_parents; }

  private:
    static std::uint64_t Pair(ObjectId childID, ObjectId parentID) {
        return std::uint64_t{static_cast<std::uint32_t>(childID)} << 32 |
               static_cast<std::uint32_t>(parentID);
    }

    std::unordered_set<ObjectId> m_objects;
    std::unordered_map<std::uint64_t, ValueId> m_values;  ///< by child and parent
    KeyParents m_parents;
};

/// Deletes the foreign keys that earlier calls wrote for the objects of `references` and that are none any
/// longer: the parent holds the child nowhere in the repository, or the child now refers to it by another
/// value. A value goes with its last row in tForeignKeys unless it is a primary key. A query that fails
/// leaves the keys that it was about.
void DeleteStaleKeys(DefinitionRows& rows, const KeyReferences& references);

}  // namespace korvex::repository
