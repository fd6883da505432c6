#pragma once

#include <string>

namespace korvex::cli {

class TableText;

/// The entries of a SQL Server table as the embedded engine takes them: identity columns, keys, defaults.
/// Raises InvalidProcedureCall (5) for a second identity column, or one that does not count 1, 2, 3.
void RewriteEntries(TableText& table);

}  // namespace korvex::cli
