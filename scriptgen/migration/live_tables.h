#pragma once

#include "platform/ado.h"
#include "scriptgen/engine_dialect.h"

#include <string>
#include <string_view>
#include <vector>

/// What stands in a target database.
namespace korvex::scriptgen {

/// Whether an open connection leads to the embedded engine, directly or through its ODBC driver.
bool IsEmbedded(ado::Connection& connection);

/// What the engine behind an open connection is called: the name of its dialect, also that of a published one
/// ("mssql", "sybase", "oracle"). adErrFeatureNotAvailable for an engine that has none.
std::string EngineBehind(ado::Connection& connection);

/// The tables of the database, described as the dialect describes those of a definition: names, columns with
/// their types and defaults, keys, indexes, references and triggers. What only a definition knows (objects,
/// values, data types) is left empty; DefaultVal is the default as the engine writes it. Engine errors reach
/// the caller.
std::vector<DescribedTable> ReadLiveTables(ado::Connection& connection, const EngineDialect& dialect);

/// The first column of every row, as text.
std::vector<std::string> ReadTexts(ado::Connection& connection, const std::string& query);

}  // namespace korvex::scriptgen
