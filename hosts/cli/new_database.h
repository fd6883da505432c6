#pragma once

#include "platform/ado.h"

#include <string>

/// Database files that a command makes.
namespace korvex::cli {

/// The file behind a connection to the embedded engine; empty for a database in memory.
std::string DatabaseFile(ado::Connection& connection);

/// After a failure: removes a database file that holds nothing and that nobody has open, so that the next try
/// finds things as the failed one did.
void RemoveUnusedDatabase(const std::string& file) noexcept;

}  // namespace korvex::cli
