#pragma once

#include "hosts/cli/apply/script_reader.h"
#include "hosts/cli/console.h"
#include "platform/ado.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace korvex::cli {

/// Runs the statements one at a time, as they stand, with a progress line (see PlanStatements). What they
/// did, in lines for a person: "2 tables and 1 index created"; none when nothing was done. The first failure
/// ends the run as an error that names file and line. On the embedded engine the run is one transaction: it
/// succeeds, or leaves the database as it was. On a server what ran before the failure stays, and the error
/// says what that is.
std::vector<std::string> RunStatements(const std::shared_ptr<ado::Connection>& connection,
                                       std::span<const ScriptStatement> statements, bool isEmbedded,
                                       Console& console);

}  // namespace korvex::cli
