#pragma once

#include "hosts/cli/check/finding.h"
#include "hosts/cli/check/planned_tables.h"
#include "repository/catalog.h"

#include <string>
#include <string_view>

/// What is wrong, or would go wrong in a run, with the definitions of a repository.
namespace korvex::cli {

/// All checks. `fkPrefix` is the prefix of foreign-key columns that the runs will use.
Findings CheckCatalog(const repository::Catalog& catalog, std::string_view fkPrefix);

/// References to rows that do not exist, and rows that nothing refers to.
void CheckReferences(const repository::Catalog& catalog, Findings& findings);

/// Objects that are their own ancestors. True when there are none.
bool CheckCycles(const repository::Catalog& catalog, Findings& findings);

/// Names that can not stand in SQL text or that several rows share.
void CheckNames(const repository::Catalog& catalog, Findings& findings);

/// Keys that earlier runs left behind: of renamed objects, or of parents that are none any longer.
void CheckKeys(const repository::Catalog& catalog, Findings& findings);

/// Each planned table by itself: its columns, their types, lengths and defaults.
void CheckColumns(const PlannedTable& table, Findings& findings);

/// Names that two tables, procedures or constraints of one definition would share.
void CheckScriptNames(const PlannedDefinition& definition, Findings& findings);

/// "object Customer (ObjectID 7)", for findings; also for an identifier without a row.
std::string ObjectText(const repository::Catalog& catalog, std::int32_t objectID);
std::string ObjectText(const repository::ObjectRow& object);

}  // namespace korvex::cli
