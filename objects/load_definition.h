#pragma once

#include "objects/definition.h"
#include "repository/catalog.h"

#include <memory>
#include <string_view>

namespace korvex::objects {

/// The definition of the objects that are stored under a storage name: their tables, columns and keys are
/// those of the scripts of this storage name and foreign-key prefix, whatever was scripted before.
///
/// An object that stands beneath several others has a definition for each of its parents: its foreign key is
/// the one to that parent, and its columns that refer to other parents are not part of it. The topmost object
/// keeps all of them, as optional links: it may be stored under a parent of another definition. Raises
/// InvalidProcedureCall (5) for a storage name that no definition or several have and for a reference to an
/// object that does not exist; OutOfStackSpace (28) for an object that is its own ancestor; and the errors of
/// clsCreateDb::CreateRelationship.
/// @param catalog all of the repository; the definition keeps no reference to it
/// @param storageName of one definition
/// @param sFKPrefix the prefix of foreign-key columns; clsCRUD must be given the same one
/// @return the definition of the topmost object, with those beneath it
std::shared_ptr<Definition> LoadDefinition(const repository::Catalog& catalog, std::string_view storageName,
                                           std::string_view sFKPrefix = "FK_");

}  // namespace korvex::objects
