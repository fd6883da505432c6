#include "hosts/cli/suggest.h"

#include "automation/nearest_name.h"

namespace korvex::cli {

std::string NearestName(std::string_view text, std::span<const std::string_view> candidates) {
    const auto nearest = automation::NearestName(text, candidates);
    return nearest.distance * 3 > nearest.name.size() + 2 ? std::string() : std::string(nearest.name);
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
