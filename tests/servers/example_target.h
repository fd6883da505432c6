#pragma once

#include "objects/data_object.h"
#include "servers/server_database.h"
#include "surface/cls_crud.h"

#include <memory>
#include <string>

namespace korvex::tests {

/// The definition of the example's orders, with the keys that storing them needs.
std::shared_ptr<objects::Definition> OrdersDefinition();

/// Makes the example's tables on a server.
void CreateExampleTables(const std::shared_ptr<ado::Connection>& connection);

/// An order with everything in it: each kind of value, collections in collections, accented letters.
std::shared_ptr<objects::DataObject> FullOrder(const std::shared_ptr<objects::Definition>& definition);

/// The number of records of all tables.
int CountRecords(ado::Connection& connection, Driver driver);

}  // namespace korvex::tests
