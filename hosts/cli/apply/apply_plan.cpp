#include "hosts/cli/apply/apply_plan.h"

#include "hosts/cli/apply/repeat_filter.h"

namespace korvex::cli {

std::string PlaceOf(const ScriptStatement& statement) {
    return statement.file + ", line " + std::to_string(statement.line);
}

std::vector<ApplyStep> PlanStatements(std::span<const ScriptStatement> statements) {
    std::vector<ApplyStep> steps;
    steps.reserve(statements.size());
    RepeatFilter repeats;
    for (const ScriptStatement& statement : statements) {
        ApplyStep& step = steps.emplace_back();
        step.statement = &statement;
        step.subject = SubjectOf(statement.text);
        if (repeats.IsRepeat(step.subject.kind, statement.text)) {
            step.action = StepAction::SkipRepeat;
        } else {
            step.texts.push_back(statement.text);
        }
    }
    return steps;
}

}  // namespace korvex::cli
