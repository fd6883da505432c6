#include "hosts/cli/apply/apply_plan.h"

#include "automation/error.h"
#include "automation/sql_tokens.h"
#include "automation/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>
#include <string_view>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::sql::Tokenize;
using automation::sql::TokenReader;

/// What stands at both ends of a script that brings its own frame.
constexpr std::string_view Opening[] = {"pragma foreign_keys = off", "begin"};
constexpr std::string_view Closing[] = {"pragma foreign_key_check", "commit", "pragma foreign_keys = on"};

/// Finds statements that make or drop the same once more. What was dropped may be made again, and the other
/// way round.
class RepeatFilter {
  public:
    bool IsRepeat(Deed deed, const std::string& text) {
        if (deed != m_last) m_texts.clear();
        m_last = deed;
        return deed != Deed::Other && !m_texts.insert(text).second;
    }

  private:
    Deed m_last = Deed::Other;
    std::set<std::string_view> m_texts;
};

bool Reads(const ApplyStep& step, std::string_view words) {
    TokenReader tokens(Tokenize(step.statement->text));
    return tokens.Take(words) && tokens.AtEnd();
}

/// Marks the frame of a script, if it has one.
bool TakeFrame(std::span<ApplyStep> script) {
    if (script.size() < std::size(Opening) + std::size(Closing)) return false;
    const std::span<ApplyStep> opening = script.first(std::size(Opening));
    const std::span<ApplyStep> closing = script.last(std::size(Closing));
    if (!std::ranges::equal(opening, Opening, Reads) || !std::ranges::equal(closing, Closing, Reads))
        return false;
    for (const std::span<ApplyStep> end : {opening, closing})
        for (ApplyStep& step : end)
            step.action = StepAction::Frame;
    return true;
}

void RefuseTransactionControl(const ApplyStep& step) {
    if (step.action == StepAction::Frame || step.subject.deed != Deed::Other) return;
    TokenReader tokens(Tokenize(step.statement->text));
    while (tokens.Take(";")) {
    }
    for (const std::string_view words :
         {"begin", "commit", "end", "rollback", "savepoint", "release", "pragma foreign_keys"}) {
        if (!tokens.Sees(words)) continue;
        throw Error(automation::InvalidProcedureCall,
                    PlaceOf(*step.statement) + ": " + automation::ToUpperAscii(words) +
                        " cannot stand in a script for the embedded engine, where a run is one transaction. "
                        "Take it out, or put the whole script between PRAGMA foreign_keys=OFF; BEGIN; and "
                        "PRAGMA foreign_key_check; COMMIT; PRAGMA foreign_keys=ON;");
    }
}

void PlanForEmbedded(ApplyPlan& plan) {
    std::size_t files = 0;
    std::size_t framed = 0;
    for (auto begin = plan.steps.begin(); begin != plan.steps.end(); ++files) {
        const auto end = std::find_if(begin, plan.steps.end(), [&](const ApplyStep& step) {
            return step.statement->file != begin->statement->file;
        });
        if (TakeFrame({begin, end})) ++framed;
        begin = end;
    }
    std::ranges::for_each(plan.steps, RefuseTransactionControl);
    plan.isFramed = framed > 0;
    if (plan.isFramed && framed < files) {
        throw Error(automation::InvalidProcedureCall,
                    "Some of the scripts stand between PRAGMA foreign_keys=OFF and ON, and others do not: "
                    "apply these for themselves.");
    }
}

/// What a statement makes or drops; its own beginning for one that does neither.
std::string DeedOf(const ApplyStep& step) {
    const StatementSubject& subject = step.subject;
    if (subject.deed != Deed::Other) {
        return std::string(subject.deed == Deed::Create ? "create " : "drop ") +
               std::string(NounOf(subject.thing)) + (subject.thing == Thing::Constraint ? " of " : " ") +
               subject.name;
    }
    constexpr std::size_t Most = 60;
    const std::string_view text = step.statement->text;
    const std::string_view beginning = automation::Left(text.substr(0, text.find_first_of("\r\n")), Most);
    return "run " + std::string(beginning) + (beginning.size() < text.size() ? " ..." : "");
}

}  // namespace

std::string PlaceOf(const ScriptStatement& statement) {
    return statement.file + ", line " + std::to_string(statement.line);
}

ApplyPlan PlanStatements(std::span<const ScriptStatement> statements, bool isEmbedded) {
    ApplyPlan plan;
    plan.steps.reserve(statements.size());
    RepeatFilter repeats;
    for (const ScriptStatement& statement : statements) {
        ApplyStep& step = plan.steps.emplace_back();
        step.statement = &statement;
        step.subject = SubjectOf(statement.text);
        if (repeats.IsRepeat(step.subject.deed, statement.text)) step.action = StepAction::SkipRepeat;
    }
    if (isEmbedded) PlanForEmbedded(plan);
    return plan;
}

std::string PlanLine(const ApplyStep& step) {
    constexpr std::string_view Notes[] = {"", "skip the repetition: ", "frame of the run: "};
    return PlaceOf(*step.statement) + ": " + std::string(Notes[static_cast<std::size_t>(step.action)]) +
           DeedOf(step);
}

nlohmann::ordered_json PlanJson(const ApplyStep& step) {
    constexpr const char* Actions[] = {"run", "skip", "frame"};
    nlohmann::ordered_json json = {{"file", step.statement->file},
                                   {"line", step.statement->line},
                                   {"action", Actions[static_cast<std::size_t>(step.action)]}};
    const StatementSubject& subject = step.subject;
    if (subject.deed == Deed::Other) return json;
    json["deed"] = subject.deed == Deed::Create ? "create" : "drop";
    json["thing"] = NounOf(subject.thing);
    json["name"] = subject.name;
    return json;
}

}  // namespace korvex::cli
