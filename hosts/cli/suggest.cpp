#include "hosts/cli/suggest.h"

#include "automation/text.h"

namespace korvex::cli {

std::string JoinNames(std::span<const std::string> names) {
    constexpr std::size_t most = 20;
    constexpr std::size_t longest = 60;
    const std::size_t shown = names.size() > most ? most - 1 : names.size();
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
        text += automation::Readable(names[i], longest);
    }
    if (shown < names.size()) text += " and " + std::to_string(names.size() - shown) + " more";
    return text;
}

}  // namespace korvex::cli
