#pragma once

#include "scriptgen/run_state.h"

#include <string>
#include <string_view>

/// Parts of a table's create text that all dialects write alike.
namespace korvex::scriptgen {

/// Appends the key constraint behind the last column, or, for a table without a key, only the line end.
/// `keyKind` is the dialect's wording ("PRIMARY KEY ...").
void AppendPrimaryKey(std::string& text, const RunState& run, std::string_view keyKind);

/// Appends one index per referenced object over the columns that reference it. The indexes are named after
/// the table and numbered from 1. `owner` stands before the table's name, `terminator` ends each statement.
void AppendForeignKeyIndexes(std::string& text, const RunState& run, std::string_view owner,
                             std::string_view terminator);

}  // namespace korvex::scriptgen
