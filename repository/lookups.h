#pragma once

#include "repository/definition_rows.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Questions about single objects and values that both the relationship builder and the script generator ask.
namespace korvex::repository {

/// The interfaces that an object implements, in the repository's order.
std::vector<InterfaceId> GetObjectInterfaces(DefinitionRows& rows, ObjectId lObjectID);

/// The first interface of the object whose name is like `sInterfaceName`, or 0.
InterfaceId FindObjectInterface(DefinitionRows& rows, ObjectId lObjectID, std::string_view sInterfaceName);

/// The objects that the values of an interface hold, in the repository's order.
std::vector<ObjectId> GetChildObjects(DefinitionRows& rows, InterfaceId lInterfaceID);

/// Column name of a value, table name of an object; "" when there is no such row or it holds Null.
std::string GetFieldName(DefinitionRows& rows, ValueId lValueID);
std::string GetObjectTableName(DefinitionRows& rows, ObjectId lObjectID);

/// RootObjectID of every data definition of that storage name (of all when it is empty), in row order. A
/// query that failed gives none.
std::vector<ObjectId> GetRootObjects(DefinitionRows& rows, std::string_view storageName);

}  // namespace korvex::repository
