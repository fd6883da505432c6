#include "hosts/cli/suggest.h"

#include "automation/text.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace korvex::cli {

namespace {

/// Letters to insert, drop or replace to turn one text into the other.
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

std::string NearestName(std::string_view text, std::span<const std::string_view> candidates) {
    const std::string wanted = automation::ToUpperAscii(text);
    std::string_view best;
    std::size_t bestDistance = 0;
    for (const std::string_view candidate : candidates) {
        const std::size_t distance = EditDistance(wanted, automation::ToUpperAscii(candidate));
        if (distance * 3 > candidate.size() + 2) continue;
        if (best.empty() || distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return std::string(best);
}

std::string JoinNames(std::span<const std::string> names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
        text += names[i];
    }
    return text;
}

}  // namespace korvex::cli
