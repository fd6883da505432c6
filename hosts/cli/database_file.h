#pragma once

#include "platform/ado.h"

#include <string>
#include <string_view>

/// Files of the embedded engine, and the connection strings that name them.
namespace korvex::cli {

/// Whether a connection string says Provider=SQLite.
bool IsForEmbeddedEngine(std::string_view connection);

/// The connection string of a database file of the embedded engine.
std::string ConnectionToFile(const std::string& file);

/// The connection string with Mode=Create. Raises InvalidProcedureCall (5) for a connection that does not
/// name the embedded engine, which alone makes databases.
std::string WithCreateMode(const std::string& connection);

/// The file behind a connection to the embedded engine; empty for a database in memory.
std::string DatabaseFile(ado::Connection& connection);

/// After a failure: removes a database file that holds nothing and that nobody has open, so that the next try
/// finds things as the failed one did.
void RemoveUnusedDatabase(const std::string& file) noexcept;

}  // namespace korvex::cli
