#pragma once

#include "hosts/cli/apply/script_reader.h"
#include "hosts/cli/apply/statement_subject.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace korvex::cli {

enum class StepAction : std::uint8_t {
    Run,
    SkipRepeat,  ///< the same statement was run before
    Frame,       ///< what the run itself does around all others
};

/// What becomes of one statement of a script.
struct ApplyStep {
    const ScriptStatement* statement = nullptr;  ///< one of those planned for
    StatementSubject subject;
    StepAction action = StepAction::Run;
};

struct ApplyPlan {
    std::vector<ApplyStep> steps;  ///< one for each statement, in order
    /// The scripts bring the frame within which tables of the embedded engine are made anew: references are
    /// not kept while they run, and checked before the commit.
    bool isFramed = false;
};

/// Statements run as they stand. But the generated scripts for SQL Server, Oracle and Sybase write a table
/// once for each way that leads to its object, and each foreign key with all those before it: exact
/// repetitions of what makes or drops something are skipped.
///
/// On the embedded engine the run is one transaction. InvalidProcedureCall (5), naming file and line, for a
/// statement that would end it or has no effect in one. A script may stand between
///     PRAGMA foreign_keys=OFF; BEGIN;   and   PRAGMA foreign_key_check; COMMIT; PRAGMA foreign_keys=ON;
/// which then are the run's own; it runs with others of the kind only.
ApplyPlan PlanStatements(std::span<const ScriptStatement> statements, bool isEmbedded);

/// "FILE, line 12".
std::string PlaceOf(const ScriptStatement& statement);

/// What a step is going to do, in one line: "FILE, line 12: create table T".
std::string PlanLine(const ApplyStep& step);

/// The same for machines: "file", "line", "action" ("run", "skip" or "frame") and, of what makes or drops
/// something, "deed", "thing" and "name".
nlohmann::ordered_json PlanJson(const ApplyStep& step);

}  // namespace korvex::cli
