#pragma once

#include "hosts/cli/options.h"
#include "scriptgen/migration/definition_diff.h"
#include "scriptgen/migration/definition_identity.h"

#include <nlohmann/json_fwd.hpp>

#include <memory>
#include <string>
#include <vector>

/// What the commands share that compare a definition with what was.
namespace korvex::cli {

struct DiffSettings : CommonOptions {
    std::vector<std::string> renames;
    bool allowsLoss = false;
};
/// --storage, --fk-prefix, --rename and --allow-loss.
void AddDiffOptions(CLI::App& command, DiffSettings& settings);

using scriptgen::DefinitionState;

/// Opens a repository or a model and describes its definition; errors name the source.
DefinitionState DescribeSource(const std::string& place, const DiffSettings& settings, Console& console);

/// Compares on one dialect; with a `live` connection, whose dialect this must be, with what stands there.
std::unique_ptr<scriptgen::DefinitionDiff> Compare(const std::string& dialect, const DefinitionState& before,
                                                   const DefinitionState& now, const DiffSettings& settings);
std::unique_ptr<scriptgen::DefinitionDiff> CompareLive(const scriptgen::EngineDialect& dialect,
                                                       ado::Connection& live, const DefinitionState& now,
                                                       const DiffSettings& settings);

/// The engine dialect of an open connection; adErrFeatureNotAvailable for an engine whose tables cannot be
/// read.
const scriptgen::EngineDialect& ReadableDialect(ado::Connection& connection);

/// One change a line: "lossy: tOrder.Notes: varchar(20) in place of ...".
void PrintChanges(const scriptgen::DefinitionDiff& diff, Console& console);

/// The same for machines: an array of objects with "class", "change", "thing", "table" and, where they say
/// something, "column", "before", "now" and "reason".
nlohmann::ordered_json ChangesJson(const scriptgen::DefinitionDiff& diff);

}  // namespace korvex::cli
