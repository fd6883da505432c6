#include "hosts/cli/apply/apply_report.h"

#include "automation/text.h"
#include "hosts/cli/suggest.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace korvex::cli {

namespace {

struct Noun {
    StatementKind kind;
    std::string_view one;
    std::string_view many;
};

constexpr Noun Made[] = {
    {StatementKind::CreateSequence, "sequence", "sequences"},
    {StatementKind::CreateTable, "table", "tables"},
    {StatementKind::CreateIndex, "index", "indexes"},
    {StatementKind::CreateTrigger, "trigger", "triggers"},
    {StatementKind::CreateProcedure, "procedure", "procedures"},
    {StatementKind::CreateFunction, "function", "functions"},
    {StatementKind::AddConstraint, "constraint", "constraints"},
};
constexpr Noun Dropped[] = {
    {StatementKind::DropConstraint, "constraint", "constraints"},
    {StatementKind::DropTrigger, "trigger", "triggers"},
    {StatementKind::DropProcedure, "procedure", "procedures"},
    {StatementKind::DropFunction, "function", "functions"},
    {StatementKind::DropIndex, "index", "indexes"},
    {StatementKind::DropTable, "table", "tables"},
    {StatementKind::DropSequence, "sequence", "sequences"},
};
constexpr Noun Others[] = {{StatementKind::Other, "other statement", "other statements"}};

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

constexpr std::string_view NoProcedures = ": the embedded engine has none";

/// What a statement makes or drops; its own beginning for one that does neither.
std::string Deed(const ApplyStep& step) {
    const StatementKind kind = step.subject.kind;
    const bool isConstraint = kind == StatementKind::AddConstraint || kind == StatementKind::DropConstraint;
    for (const std::span<const Noun> nouns : {std::span<const Noun>(Made), std::span<const Noun>(Dropped)}) {
        const auto noun = std::ranges::find(nouns, kind, &Noun::kind);
        if (noun == nouns.end()) continue;
        return std::string(Makes(kind) ? "create " : "drop ") + std::string(noun->one) +
               (isConstraint ? " of " : " ") + step.subject.name;
    }
    constexpr std::size_t Most = 60;
    const std::string_view text = step.statement->text;
    const std::string_view beginning = automation::Left(text.substr(0, text.find_first_of("\r\n")), Most);
    return "run " + std::string(beginning) + (beginning.size() < text.size() ? " ..." : "");
}

}  // namespace

void ApplyReport::Ran(const StatementSubject& subject, std::size_t count) {
    m_ran[static_cast<std::size_t>(subject.kind)] += count;
}

bool ApplyReport::IsEmpty() const noexcept {
    return m_repeats + m_procedures == 0 && std::ranges::count(m_ran, 0U) == std::ssize(m_ran);
}

std::vector<std::string> ApplyReport::Lines() const {
    std::vector<std::string> lines;
    const auto add = [&](std::span<const Noun> nouns, std::string_view verb) {
        std::vector<std::string> counts;
        for (const Noun& noun : nouns) {
            const std::size_t count = m_ran[static_cast<std::size_t>(noun.kind)];
            if (count > 0) counts.push_back(Counted(count, noun.one, noun.many));
        }
        if (!counts.empty()) lines.push_back(JoinNames(counts) + std::string(verb));
    };
    add(Made, " created");
    add(Dropped, " dropped");
    add(Others, " run");
    if (m_procedures > 0) {
        lines.push_back(Counted(m_procedures, "procedure", "procedures") + " skipped" +
                        std::string(NoProcedures));
    }
    if (m_repeats > 0)
        lines.push_back(Counted(m_repeats, "repeated statement", "repeated statements") + " skipped");
    if (lines.empty()) lines.emplace_back("nothing to do");
    return lines;
}

std::string PlanLine(const ApplyStep& step) {
    std::string line = PlaceOf(*step.statement) + ": ";
    if (step.action == StepAction::SkipRepeat) return line + "skip the repetition: " + Deed(step);
    if (step.action == StepAction::SkipProcedure)
        return line + "skip " + Deed(step) + std::string(NoProcedures);
    return line + Deed(step);
}

}  // namespace korvex::cli
