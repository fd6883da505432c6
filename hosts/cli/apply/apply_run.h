#pragma once

#include "hosts/cli/apply/script_reader.h"
#include "hosts/cli/apply/tally.h"
#include "hosts/cli/console.h"
#include "platform/ado.h"

#include <memory>
#include <span>

namespace korvex::cli {

/// Runs the statements one at a time, as they stand, with a progress line (see PlanStatements). What they
/// did. The first failure ends the run as an error that names file and line. On the embedded engine the run
/// is one transaction: it succeeds, or leaves the database as it was. On a server what ran before the failure
/// stays, and the error says what that is.
Tally RunStatements(const std::shared_ptr<ado::Connection>& connection,
                    std::span<const ScriptStatement> statements, bool isEmbedded, Console& console);

}  // namespace korvex::cli
