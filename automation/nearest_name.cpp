#include "automation/nearest_name.h"

#include "automation/text.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace korvex::automation {

namespace {

std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace

NearName NearestName(std::string_view text, std::span<const std::string_view> candidates) {
    const std::string wanted = ToUpperAscii(text);
    NearName best;
    for (const std::string_view candidate : candidates) {
        const std::size_t distance = EditDistance(wanted, ToUpperAscii(candidate));
        if (best.name.empty() || distance < best.distance) best = {candidate, distance};
    }
    return best;
}

std::string DidYouMean(std::string_view text, std::span<const std::string_view> candidates) {
    const auto mostChanges = [](std::string_view candidate) { return (candidate.size() + 2) / 3; };
    std::vector<std::string_view> near;
    for (const std::string_view candidate : candidates) {
        const std::size_t difference =
            std::max(text.size(), candidate.size()) - std::min(text.size(), candidate.size());
        if (difference <= mostChanges(candidate)) near.push_back(candidate);
    }
    const NearName nearest = NearestName(text, near);
    if (nearest.name.empty() || nearest.distance > mostChanges(nearest.name)) return {};
    return "; did you mean " + Quoted(nearest.name) + "?";
}

}  // namespace korvex::automation
