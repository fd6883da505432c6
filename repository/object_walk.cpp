#include "repository/object_walk.h"

#include "automation/error.h"
#include "repository/lookups.h"

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace korvex::repository {

namespace {

/// An object on the way down, and how far the objects beneath it are walked.
struct Level {
    ObjectId objectID = {};
    ObjectId elementObject = {};  ///< 0 once it is walked
    std::optional<std::vector<InterfaceId>> interfaces;
    std::size_t nextInterface = 0;
    std::vector<ObjectId> children;  ///< of the interface before the next one
    std::size_t nextChild = 0;
};

class Walk {
  public:
    Walk(DefinitionRows& rows, ObjectVisitor& visitor) : m_rows(rows), m_visitor(visitor) {}

    void From(ObjectId rootObjectID) {
        Enter(rootObjectID);
        while (!m_path.empty()) {
            if (const auto next = NextBeneath(m_path.back())) {
                Enter(*next);
            } else {
                Leave();
            }
        }
    }

  private:
    void Enter(ObjectId objectID);
    void Leave();
    std::optional<ObjectId> NextBeneath(Level& level);

    DefinitionRows& m_rows;
    ObjectVisitor& m_visitor;
    std::vector<Level> m_path;
    std::unordered_set<ObjectId> m_objectsOnPath;
};

void Walk::Enter(ObjectId objectID) {
    if (m_objectsOnPath.contains(objectID)) {
        throw automation::Error(automation::OutOfStackSpace,
                                "Object " + std::to_string(Number(objectID)) +
                                    " is its own ancestor: object " +
                                    std::to_string(Number(m_path.back().objectID)) + " holds it again.");
    }
    if (const auto elementObject = m_visitor.Enter(objectID)) {
        m_objectsOnPath.insert(objectID);
        Level& level = m_path.emplace_back();
        level.objectID = objectID;
        level.elementObject = *elementObject;
    }
}

void Walk::Leave() {
    m_objectsOnPath.erase(m_path.back().objectID);
    m_path.pop_back();
    m_visitor.Leave();
}

std::optional<ObjectId> Walk::NextBeneath(Level& level) {
    if (IsRow(level.elementObject)) return std::exchange(level.elementObject, ObjectId());

    if (!level.interfaces) level.interfaces = GetObjectInterfaces(m_rows, level.objectID);
    while (level.nextChild == level.children.size()) {
        if (level.nextInterface == level.interfaces->size()) return std::nullopt;
        level.children = GetChildObjects(m_rows, (*level.interfaces)[level.nextInterface]);
        level.nextChild = 0;
        ++level.nextInterface;
    }
    return level.children[level.nextChild++];
}

}  // namespace

void WalkObjects(DefinitionRows& rows, ObjectId lObjectID, ObjectVisitor& visitor) {
    Walk(rows, visitor).From(lObjectID);
}

}  // namespace korvex::repository
