#pragma once

#include "platform/dao.h"
#include "repository/schema.h"

#include <memory>
#include <span>
#include <string_view>
#include <vector>

/// The tables of a repository with all their rows in memory: what copies are made of.
namespace korvex::repository {

/// All tables with all columns, without rows.
std::vector<dao::WholeTable> EmptyTables();

/// All tables with all rows; engine errors reach the caller.
std::vector<dao::WholeTable> ReadAll(dao::Database& database);

/// Adds rows to the tables of those names, all or none where the engine has transactions.
void AddRows(dao::Database& database, std::span<const dao::WholeTable> tables);

/// A database in memory that holds these rows and takes more. RaiseGaps when the tables of the repository
/// `name` are not complete.
std::unique_ptr<dao::Database> InMemory(dao::DBEngine& engine, std::span<const dao::WholeTable> tables,
                                        std::string_view name);

}  // namespace korvex::repository
