#include "hosts/cli/apply/apply_run.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/apply_plan.h"
#include "hosts/cli/shell/progress.h"
#include "platform/ado_transaction.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/table_rebuild.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

namespace {

using automation::AddSentence;
using automation::Error;
using Connection = std::shared_ptr<ado::Connection>;

Error WithSentence(const Error& error, std::string_view sentence) {
    return Error(error.Number(), AddSentence(error.Description(), sentence), error.Source());
}

/// The way to scripts that the engine reads, when a statement of a script for others fails.
std::string DialectHint(ado::Connection& connection) {
    try {
        const std::string engine = scriptgen::EngineBehind(connection);
        scriptgen::EngineDialectOf(engine);
        return "Scripts for this engine are written with korvex script --dialect " + engine +
               ", its tables made with korvex database create.";
    } catch (const Error&) {
        // It has none, or the connection is gone.
        return {};
    }
}

std::string Hint(ado::Connection& connection, const ApplyStep& step, const Error& error) {
    if (error.Number() == ado::DbETableExists)
        return "Run the drop scripts first (foreign keys, then tables) to make the tables anew.";
    const StatementSubject& subject = step.subject;
    if (subject.deed == Deed::Drop && subject.thing == Thing::Table && error.Number() == ado::DbEConstraint)
        return "Records of other tables refer to this one: drop the foreign keys first.";
    const bool isUnread = error.Number() == ado::DbEStatement || error.Number() == ado::DbENoTable;
    return isUnread && step.statement->style != ScriptStyle::Plain ? DialectHint(connection) : "";
}

void RunSteps(const Connection& connection, std::span<const ApplyStep> steps, Console& console,
              Tally& tally) {
    const auto isRun = [](const ApplyStep& step) { return step.action == StepAction::Run; };
    const Progress progress(console, "statements",
                            static_cast<std::size_t>(std::ranges::count_if(steps, isRun)));
    for (const ApplyStep& step : steps) {
        const ScriptStatement& statement = *step.statement;
        try {
            if (isRun(step)) connection->Execute(statement.text);
        } catch (const Error& error) {
            throw Error(
                error.Number(),
                PlaceOf(statement) + ": " + AddSentence(error.Description(), Hint(*connection, step, error)),
                error.Source());
        }
        tally.Add(step);
    }
}

void RunEmbedded(const Connection& connection, const ApplyPlan& plan, Console& console, Tally& tally) {
    std::optional<scriptgen::ReferencesOff> references;
    if (plan.isFramed) references.emplace(*connection);
    ado::Transaction transaction(connection);
    try {
        RunSteps(connection, plan.steps, console, tally);
        if (references) references->CheckReferences();
        transaction.Commit();
    } catch (const Error& error) {
        throw WithSentence(error, transaction.TakeBack());
    }
}

void RunOnServer(const Connection& connection, const ApplyPlan& plan, Console& console, Tally& tally) {
    try {
        RunSteps(connection, plan.steps, console, tally);
    } catch (const Error& error) {
        const std::vector<std::string> done = tally.Lines();
        throw WithSentence(
            error, done.empty() ? "" : "Done before that, and kept: " + scriptgen::Joined(done) + ".");
    }
}

}  // namespace

Tally RunStatements(const Connection& connection, std::span<const ScriptStatement> statements,
                    bool isEmbedded, Console& console) {
    const ApplyPlan plan = PlanStatements(statements, isEmbedded);
    Tally tally;
    (isEmbedded ? RunEmbedded : RunOnServer)(connection, plan, console, tally);
    return tally;
}

}  // namespace korvex::cli
