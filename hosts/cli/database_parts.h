#pragma once

#include "hosts/cli/console.h"
#include "platform/ado.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

/// What the commands on target databases share.
namespace korvex::cli {

/// Refuses a definition with which data would be mixed up, before anything else happens.
void CheckDefinition(const std::string& repository, const std::string& storage, const std::string& fkPrefix,
                     Console& console);

std::shared_ptr<ado::Connection> Connect(const std::string& connectionString, Console& console);

/// Asks whoever sits at the terminal; InvalidProcedureCall (5) when nobody does (`flag` would have answered),
/// or the answer is no.
void ExpectConsent(const std::string& question, const std::string& flag, Console& console);

/// korvex database update
void AddDatabaseUpdateCommand(CLI::App& parent, Console& console);

}  // namespace korvex::cli
