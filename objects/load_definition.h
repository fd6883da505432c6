#pragma once

#include "objects/definition.h"
#include "repository/catalog.h"

#include <memory>
#include <string_view>

namespace korvex::objects {

/// The definition of the objects that are stored under a storage name, from a repository whose relational
/// keys are up to date for that foreign-key prefix (CreateRelationship).
///
/// An object that stands beneath several others has a definition for each of its parents: its foreign key is
/// the one to that parent, and its columns that refer to other parents are not part of it. The topmost object
/// keeps all of them, as optional links: it may be stored under a parent of another definition. Raises
/// InvalidProcedureCall (5) for a storage name that no definition or several have, for a reference to an
/// object that does not exist, and for keys that are not prepared, each with what to do;
/// OutOfStackSpace (28) for an object that is its own ancestor.
std::shared_ptr<Definition> LoadDefinition(const repository::Catalog& catalog, std::string_view storageName,
                                           std::string_view sFKPrefix = "FK_");

}  // namespace korvex::objects
