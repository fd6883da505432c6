#pragma once

#include "hosts/cli/apply/script_reader.h"
#include "hosts/cli/apply/statement_kind.h"
#include "hosts/cli/apply/table_text.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace korvex::cli {

enum class StepAction : std::uint8_t {
    Run,            ///< `texts`, one after the other
    SkipRepeat,     ///< the same statement was run before
    SkipProcedure,  ///< the engine has none
    AddKey,         ///< `key` to a table that is there already
    CheckKey,       ///< `key` was made with its table, by an earlier step
    DropKeys,       ///< the foreign keys named `constraint`
};

/// What becomes of one statement of a script.
struct ApplyStep {
    StepAction action = StepAction::Run;
    StatementSubject subject;
    const ScriptStatement* statement = nullptr;  ///< one of those planned for
    std::vector<std::string> texts;
    ForeignKey key;
    std::string constraint;
};

/// The steps of a run, one for each statement, in order. The generated scripts write a table once for each
/// way that leads to its object, and each foreign key with all those before it: exact repetitions of what
/// makes or drops something are skipped.
std::vector<ApplyStep> PlanStatements(std::span<const ScriptStatement> statements);

/// The same for the embedded engine. Statements of plain scripts run as they stand; those of others are
/// rewritten, procedures skipped, foreign keys put into the CREATE TABLE where the run has it. Raises
/// InvalidProcedureCall (5), naming file and line, for a statement that the engine cannot take.
std::vector<ApplyStep> PlanForEmbedded(std::span<const ScriptStatement> statements);

/// "FILE, line 12".
std::string PlaceOf(const ScriptStatement& statement);

}  // namespace korvex::cli
