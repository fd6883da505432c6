#pragma once

#include "hosts/cli/apply/apply_report.h"
#include "hosts/cli/console.h"
#include "platform/ado.h"

#include <span>

namespace korvex::cli {

/// Runs the statements one at a time, with a progress line, and counts in `report` what they did. The first
/// failure ends the run as an error that names file and line. On the embedded engine (see PlanForEmbedded)
/// the run is one transaction: it succeeds, foreign keys included, or leaves the database as it was, and the
/// report empty. On a server what ran before the failure stays.
void RunStatements(ado::Connection& connection, std::span<const ScriptStatement> statements, Console& console,
                   ApplyReport& report);

}  // namespace korvex::cli
