#pragma once

#include "hosts/cli/apply/table_text.h"
#include "platform/ado.h"

#include <string>
#include <vector>

/// Foreign keys of tables that are there already. The embedded engine cannot change them in place: a table is
/// made anew with other constraints, its records are copied, and it takes the old one's place, with its
/// indexes, triggers and counter. Meanwhile foreign keys must be off (PRAGMA foreign_keys) and a transaction
/// open. Errors of the engine reach the caller.
namespace korvex::cli {

/// Adds a key; false when the table has it already. A missing table raises DbENoTable.
bool AddForeignKey(ado::Connection& connection, const std::string& table, const ForeignKey& key);

/// Removes the foreign keys of that name; how many there were. A missing table raises DbENoTable, a missing
/// constraint DbEStatement.
std::size_t DropForeignKeys(ado::Connection& connection, const std::string& table,
                            const std::string& constraint);

/// Makes sure that a foreign key can hold: its parent is there, with a key of these columns (DbENoTable,
/// DbEFail), and every record refers to one of the parent's or to nothing (DbEConstraint).
void CheckForeignKey(ado::Connection& connection, const std::string& table, const ForeignKey& key);

/// Makes sure that no record of any table refers to one that is not there (DbEConstraint).
void CheckAllForeignKeys(ado::Connection& connection);

}  // namespace korvex::cli
