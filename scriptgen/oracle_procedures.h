#pragma once

#include "scriptgen/run_state.h"

#include <string_view>

namespace korvex::scriptgen {

/// Appends the procedures of the table in hand in Oracle's form, which replaces earlier ones and so needs no
/// drops.
void AddOracleStoredProcedures(RunState& run, std::string_view table);

}  // namespace korvex::scriptgen
