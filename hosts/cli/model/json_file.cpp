#include "hosts/cli/model/json_file.h"

#include "automation/error.h"
#include "hosts/cli/text_file.h"

#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Error;
using nlohmann::json;

/// "line 3, column 7" of the byte at `position` (counted from 1); columns count bytes.
std::string PlaceText(std::string_view text, std::size_t position) {
    const std::string_view before = text.substr(0, position == 0 ? 0 : position - 1);
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] != '\n') continue;
        ++line;
        lineStart = i + 1;
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineStart + 1);
}

/// The parser's message without its own prefix, "[...] parse error at line 3, column 7: ".
std::string_view Reason(std::string_view message) {
    constexpr std::string_view start = "parse error";
    const std::size_t found = message.find(start);
    if (found == std::string_view::npos) return message;
    const std::size_t colon = message.find(": ", found);
    return colon == std::string_view::npos ? message : message.substr(colon + 2);
}

/// Finds members that stand twice in one object: the document itself keeps only the last one.
class DuplicateMembers {
  public:
    void Take(json::parse_event_t event, const json& parsed) {
        using Event = json::parse_event_t;
        if (event == Event::key) return TakeMember(parsed.get<std::string>());
        if (event == Event::array_end || event == Event::object_end) return m_levels.pop_back();
        if (!m_levels.empty() && m_levels.back().isArray) ++m_levels.back().items;
        if (event != Event::value) m_levels.push_back({event == Event::array_start, 0, {}, {}});
    }

    /// Path of the first one, if there is one.
    const std::optional<std::string>& First() const { return m_first; }

  private:
    struct Level {
        bool isArray;
        std::size_t items;  ///< of an array: started so far
        std::string member;
        std::set<std::string> members;
    };

    void TakeMember(const std::string& name) {
        m_levels.back().member = name;
        if (!m_levels.back().members.insert(name).second && !m_first) m_first = Path();
    }

    std::string Path() const {
        std::string path;
        for (const Level& level : m_levels) {
            if (level.isArray) {
                path += "[" + std::to_string(level.items - 1) + "]";
            } else {
                path += (path.empty() ? "" : ".") + level.member;
            }
        }
        return path;
    }

    std::vector<Level> m_levels;
    std::optional<std::string> m_first;
};

}  // namespace

json ReadJsonFile(const std::string& path) {
    const std::string text = ReadTextFile(path);
    if (text.find('\0') != std::string::npos) {
        throw Error(automation::InvalidProcedureCall, path + ": This is no JSON text, but a binary file.");
    }
    json document;
    DuplicateMembers duplicates;
    const auto watch = [&](int, json::parse_event_t event, const json& parsed) {
        duplicates.Take(event, parsed);
        return true;
    };
    try {
        document = json::parse(text, watch, true, true);
    } catch (const json::parse_error& error) {
        throw Error(automation::InvalidProcedureCall,
                    path + ": " + PlaceText(text, error.byte) + ": " + std::string(Reason(error.what())));
    }
    if (duplicates.First()) {
        throw Error(automation::InvalidProcedureCall,
                    path + ": " + *duplicates.First() + ": stands twice in the same object");
    }
    return document;
}

}  // namespace korvex::cli
