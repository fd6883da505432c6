#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>

namespace korvex::cli {

/// --connection, which is required.
void AddConnectionOption(CLI::App& command, std::string& connection);

/// Whether a connection string says Provider=SQLite.
bool IsForEmbeddedEngine(std::string_view connection);

/// The connection string of a database file of the embedded engine.
std::string ConnectionToFile(const std::string& file);

/// The connection string with Mode=Create. Raises InvalidProcedureCall (5) for a connection that does not
/// name the embedded engine, which alone makes databases.
std::string WithCreateMode(const std::string& connection);

}  // namespace korvex::cli
