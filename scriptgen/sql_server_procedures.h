#pragma once

#include "scriptgen/run_state.h"

#include <string_view>

namespace korvex::scriptgen {

/// Appends the procedures of the table in hand in the form that SQL Server and Sybase share, and the drop of
/// each to the drop script.
void AddStoredProcedures(RunState& run, std::string_view table);

/// Appends the guarded drop of one procedure to the drop script. The owner is dbo in both dialects.
void AddDropProcedure(RunState& run, std::string_view procedure);

}  // namespace korvex::scriptgen
