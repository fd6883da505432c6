#include "hosts/cli/apply/tally.h"

#include "hosts/cli/wording.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace korvex::cli {

void Tally::Add(const ApplyStep& step) noexcept {
    const auto [deed, thing, name] = step.subject;
    if (step.action == StepAction::SkipRepeat) {
        ++m_repeats;
    } else if (step.action == StepAction::Run && deed == Deed::Other) {
        ++m_others;
    } else if (step.action == StepAction::Run) {
        ++m_counts[static_cast<std::size_t>(deed)][static_cast<std::size_t>(thing)];
    }
}

std::vector<std::string> Tally::Lines() const {
    std::vector<std::string> lines;
    for (const Deed deed : {Deed::Create, Deed::Drop}) {
        std::vector<std::string> parts;
        for (std::size_t i = 0; i < ThingCount; ++i) {
            const std::size_t count = m_counts[static_cast<std::size_t>(deed)][i];
            if (count > 0) parts.push_back(CountText(count, NounOf(static_cast<Thing>(i))));
        }
        if (deed == Deed::Drop) std::ranges::reverse(parts);
        if (!parts.empty())
            lines.push_back(JoinNames(parts) + (deed == Deed::Create ? " created" : " dropped"));
    }
    if (m_others > 0) lines.push_back(CountText(m_others, "other statement") + " run");
    if (m_repeats > 0) lines.push_back(CountText(m_repeats, "repeated statement") + " skipped");
    return lines;
}

void Tally::Write(nlohmann::ordered_json& document) const {
    for (const Deed deed : {Deed::Create, Deed::Drop}) {
        auto& counts = document[deed == Deed::Create ? "created" : "dropped"];
        for (std::size_t i = 0; i < ThingCount; ++i)
            counts[Plural(NounOf(static_cast<Thing>(i)))] = m_counts[static_cast<std::size_t>(deed)][i];
    }
    document["others"] = m_others;
    document["skipped"] = m_repeats;
}

}  // namespace korvex::cli
