#include "hosts/cli/show/html.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace korvex::cli {

namespace {

using Parts = std::map<std::string_view, std::string_view>;

constexpr std::string_view Mark = "<!-- part ";
constexpr std::string_view MarkEnd = " -->\n";

Parts Divide(std::string_view text) {
    Parts parts;
    for (std::size_t at = text.find(Mark); at != std::string_view::npos;) {
        const std::size_t nameEnd = text.find(MarkEnd, at);
        const std::string_view name = text.substr(at + Mark.size(), nameEnd - at - Mark.size());
        const std::size_t begin = nameEnd + MarkEnd.size();
        at = text.find(Mark, begin);
        // The line end before the next part is none of this one.
        const std::size_t end = std::min(at, text.size());
        parts.emplace(name, text.substr(begin, end - begin - 1));
    }
    return parts;
}

std::string_view PartOf(std::string_view name) {
    static const Parts parts = Divide(PageParts);
    const auto found = parts.find(name);
    if (found == parts.end()) throw std::logic_error("The page has no part " + std::string(name));
    return found->second;
}

}  // namespace

Html Fill(std::string_view part, std::initializer_list<std::pair<std::string_view, Html>> places) {
    const std::string_view text = PartOf(part);
    std::string markup;
    std::size_t at = 0;
    for (std::size_t open = text.find("{{"); open != std::string_view::npos; open = text.find("{{", at)) {
        const std::size_t close = text.find("}}", open);
        const std::string_view name = text.substr(open + 2, close - open - 2);
        const auto* place = std::ranges::find(places, name, &std::pair<std::string_view, Html>::first);
        if (place == places.end())
            throw std::logic_error("Nothing for " + std::string(name) + " of " + std::string(part));
        markup.append(text.substr(at, open - at)).append(place->second.Markup());
        at = close + 2;
    }
    return Html::Finished(markup.append(text.substr(at)));
}

}  // namespace korvex::cli
