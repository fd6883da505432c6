#pragma once

#include "repository/definition_rows.h"

#include <cstdint>
#include <optional>

namespace korvex::repository {

/// What is done with the objects of a walk.
class ObjectVisitor {
  public:
    virtual ~ObjectVisitor() = default;
    /// Meets an object, its ancestors having been met before. Gives the object of its collection's elements
    /// (0 or less for none), or nothing to leave out everything beneath the object.
    virtual std::optional<ObjectId> Enter(ObjectId lObjectID) = 0;
    /// Everything beneath the last object that was entered, and not left yet, has been walked.
    virtual void Leave() {}
};

/// Walks an object and everything beneath it, depth first: the object, the object of its collection's
/// elements, then the objects that the values of its interfaces hold. An object that is reached along two
/// ways is walked twice. One that is its own ancestor raises OutOfStackSpace (28). The way down is not kept
/// on the call stack: its depth is limited by memory alone.
void WalkObjects(DefinitionRows& rows, ObjectId lObjectID, ObjectVisitor& visitor);

}  // namespace korvex::repository
