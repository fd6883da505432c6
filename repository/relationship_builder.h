#pragma once

#include "repository/definition_rows.h"
#include "repository/repository.h"

#include <string_view>

namespace korvex::repository {

/// Prepares the data definitions of that storage name (all of them when it is empty) for relational storage:
/// table names, key interfaces, columns, primary and foreign keys. Running it again edits the rows of the run
/// before; keys that it wrote for parents that hold their child no longer are deleted. On an engine with
/// transactions it succeeds as a whole or leaves the repository as it was. An object that is its own ancestor
/// raises OutOfStackSpace (28).
///
/// Leaves in `repository` which parent each foreign key stands for (ScriptedParents).
void CreateRelationship(Repository& repository, std::string_view storageName, std::string_view sFKPrefix);

/// The same on rows wherever they are, without a transaction; gives the scripted parents.
KeyParents RelateRows(DefinitionRows& rows, std::string_view storageName, std::string_view sFKPrefix);

}  // namespace korvex::repository
