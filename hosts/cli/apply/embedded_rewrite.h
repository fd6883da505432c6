#pragma once

#include "hosts/cli/apply/statement_kind.h"

#include <string>
#include <string_view>

namespace korvex::cli {

/// A statement of a SQL Server or Sybase script as the embedded engine takes it. Owners ("dbo.") and
/// CLUSTERED go; a guarded drop becomes DROP TABLE IF EXISTS. In a CREATE TABLE an identity column becomes
/// one that the engine numbers, a default of nothing goes, and a default that is more than a literal is put
/// in parentheses. Everything else stays as it is. Raises InvalidProcedureCall (5) for what the engine has
/// not: a second identity column, one that does not count 1, 2, 3.
std::string RewriteForEmbedded(const StatementSubject& subject, std::string_view statement);

}  // namespace korvex::cli
