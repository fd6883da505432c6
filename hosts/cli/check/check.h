#pragma once

#include "hosts/cli/check/finding.h"
#include "hosts/cli/console.h"
#include "repository/related_catalog.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/table_model.h"

#include <string>
#include <string_view>
#include <vector>

/// What is wrong, or would go wrong in a run, with the definitions of a repository.
namespace korvex::cli {

/// All checks; the tables are those of the definitions of that storage name (of all when it is empty).
/// `fkPrefix` is the prefix of foreign-key columns that the runs will use.
Findings CheckCatalog(const repository::Catalog& catalog, std::string_view fkPrefix,
                      std::string_view storage = {});

/// What is wrong with the definitions of that storage name alone (of all when it is empty): their tables,
/// columns and script names.
void CheckDefinitions(const repository::Catalog& catalog, std::string_view storage, std::string_view fkPrefix,
                      Findings& findings);

/// Prints the findings that endanger data as warnings: for commands that go on with such a definition.
void WarnOfDanger(const Findings& findings, Console& console);

/// CheckDefinitions for commands that store or delete data, before they do anything: raises
/// InvalidProcedureCall (5) with the first finding that endangers data and what to do.
void RefuseDanger(const repository::Catalog& catalog, std::string_view storage, std::string_view fkPrefix);

/// What an engine will not take of the tables that each definition makes.
void CheckForEngine(const repository::Catalog& catalog, std::string_view fkPrefix,
                    const scriptgen::EngineDialect& dialect, Findings& findings);

/// References to rows that do not exist, and rows that nothing refers to.
void CheckReferences(const repository::Catalog& catalog, Findings& findings);

/// Objects that are their own ancestors. True when there are none.
bool CheckCycles(const repository::Catalog& catalog, Findings& findings);

/// Names that can not stand in SQL text or that several rows share.
void CheckNames(const repository::Catalog& catalog, Findings& findings);

/// Adds an error for a name of a table or column that is no identifier; `what` stands before it. One that SQL
/// can take for more than a name endangers data when it stands in the statements about records.
void CheckIdentifier(const std::string& what, const std::string& name, bool isInStatements,
                     Findings& findings);

/// Keys that earlier runs left behind: of renamed objects, or of parents that are none any longer.
void CheckKeys(const repository::Catalog& catalog, Findings& findings);

/// The tables that a run makes of the definitions of a storage name, and the rows behind them.
struct CheckedDefinition {
    const std::string& storage;
    const repository::RelatedCatalog& rows;
    std::vector<scriptgen::DescribedTable> tables;
};

/// Each table by itself: its columns, their types, lengths and defaults.
void CheckColumns(const CheckedDefinition& definition, Findings& findings);

/// Names that two tables, procedures or constraints of one definition would share, and references that the
/// scripts leave out.
void CheckScriptNames(const CheckedDefinition& definition, Findings& findings);

/// The dialects that reserve `name`, in any case: "MS SQL, Sybase"; empty for none.
std::string_view ReservedBy(std::string_view name);

/// "value Street (ValueID 7)".
std::string ValueText(const repository::ValueRow& value);
/// "value with ValueID 7 has no name".
std::string NamelessText(const repository::ValueRow& value);

/// "object Customer (ObjectID 7)", for findings; also for an identifier without a row.
std::string ObjectText(const repository::Catalog& catalog, repository::ObjectId objectID);
std::string ObjectText(const repository::ObjectRow& object);

}  // namespace korvex::cli
