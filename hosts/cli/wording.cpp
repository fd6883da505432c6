#include "hosts/cli/wording.h"

#include "automation/text.h"

#include <algorithm>

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

std::string Plural(std::string_view noun) { return std::string(noun) + (noun.ends_with('x') ? "es" : "s"); }

std::string CountText(std::size_t count, std::string_view noun) {
    return std::to_string(count) + " " + (count == 1 ? std::string(noun) : Plural(noun));
}

std::string Escaped(std::string_view text, std::initializer_list<std::pair<char, std::string_view>> escapes) {
    std::string escaped;
    for (const char c : text) {
        const auto* escape = std::ranges::find(escapes, c, &std::pair<char, std::string_view>::first);
        if (escape == escapes.end())
            escaped += c;
        else
            escaped += escape->second;
    }
    return escaped;
}

std::string InQuotes(std::string_view text, char quote) {
    return quote + Escaped(text, {{quote, std::string(2, quote)}}) + quote;
}

}  // namespace korvex::cli
