#include "hosts/cli/apply/apply_run.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/apply_plan.h"
#include "hosts/cli/suggest.h"
#include "platform/ado_transaction.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/table_rebuild.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using automation::AddSentence;
using automation::Error;
using Connection = std::shared_ptr<ado::Connection>;

std::string Counted(std::size_t count, std::string_view noun) {
    const std::string_view plural = count == 1 ? "" : noun.ends_with('x') ? "es" : "s";
    return std::to_string(count) + " " + std::string(noun) + std::string(plural);
}

/// Counts what a run did.
class Tally {
  public:
    void Add(const ApplyStep& step) noexcept {
        const auto [deed, thing, name] = step.subject;
        if (step.action == StepAction::SkipRepeat) {
            ++m_repeats;
        } else if (step.action == StepAction::Run && deed == Deed::Other) {
            ++m_others;
        } else if (step.action == StepAction::Run) {
            ++m_counts[static_cast<std::size_t>(deed)][static_cast<std::size_t>(thing)];
        }
    }

    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (const Deed deed : {Deed::Create, Deed::Drop}) {
            std::vector<std::string> parts;
            for (std::size_t i = 0; i < ThingCount; ++i) {
                const std::size_t count = m_counts[static_cast<std::size_t>(deed)][i];
                if (count > 0) parts.push_back(Counted(count, NounOf(static_cast<Thing>(i))));
            }
            if (deed == Deed::Drop) std::ranges::reverse(parts);
            if (!parts.empty())
                lines.push_back(JoinNames(parts) + (deed == Deed::Create ? " created" : " dropped"));
        }
        if (m_others > 0) lines.push_back(Counted(m_others, "other statement") + " run");
        if (m_repeats > 0) lines.push_back(Counted(m_repeats, "repeated statement") + " skipped");
        return lines;
    }

  private:
    std::array<std::array<std::size_t, ThingCount>, 2> m_counts{};  ///< of what was made, and dropped
    std::size_t m_others = 0;
    std::size_t m_repeats = 0;
};

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
    std::size_t number = 0;
    for (const ApplyStep& step : steps) {
        const ScriptStatement& statement = *step.statement;
        console.Progress(statement.file + " " + std::to_string(++number) + "/" +
                         std::to_string(steps.size()));
        try {
            if (step.action == StepAction::Run) connection->Execute(statement.text);
        } catch (const Error& error) {
            throw Error(
                error.Number(),
                PlaceOf(statement) + ": " + AddSentence(error.Description(), Hint(*connection, step, error)),
                error.Source());
        }
        tally.Add(step);
    }
    console.ClearProgress();
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

std::vector<std::string> RunStatements(const Connection& connection,
                                       std::span<const ScriptStatement> statements, bool isEmbedded,
                                       Console& console) {
    const ApplyPlan plan = PlanStatements(statements, isEmbedded);
    Tally tally;
    (isEmbedded ? RunEmbedded : RunOnServer)(connection, plan, console, tally);
    return tally.Lines();
}

}  // namespace korvex::cli
