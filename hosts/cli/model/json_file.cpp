#include "hosts/cli/model/json_file.h"

#include "automation/error.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Error;
using nlohmann::json;

std::string ReadFile(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        throw Error(automation::PathFileAccessError, path + ": is a folder");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        const int reason = errno;
        throw Error(reason == ENOENT ? FileNotFoundError : automation::PathFileAccessError,
                    path + ": " + std::generic_category().message(reason));
    }
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) throw Error(automation::PathFileAccessError, path + ": cannot be read");
    return text;
}

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

/// Finds members that stand twice in one object: the parser itself would silently keep the last one.
class DuplicateMembers {
  public:
    bool operator()(int, json::parse_event_t event, json& parsed) {
        switch (event) {
            case json::parse_event_t::object_start:
            case json::parse_event_t::array_start:
                NextItem();
                m_levels.push_back({event == json::parse_event_t::array_start, 0, {}, {}});
                break;
            case json::parse_event_t::object_end:
            case json::parse_event_t::array_end:
                m_levels.pop_back();
                break;
            case json::parse_event_t::value:
                NextItem();
                break;
            case json::parse_event_t::key:
                Key(parsed.get<std::string>());
                break;
        }
        return true;
    }

    /// Path of the first one; empty for none.
    const std::string& First() const { return m_first; }

  private:
    struct Level {
        bool isArray;
        std::size_t items;  ///< of an array: started so far
        std::string member;
        std::set<std::string> members;
    };

    void NextItem() {
        if (!m_levels.empty() && m_levels.back().isArray) ++m_levels.back().items;
    }

    void Key(const std::string& name) {
        Level& level = m_levels.back();
        level.member = name;
        if (!level.members.insert(name).second && m_first.empty()) m_first = Path();
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
    std::string m_first;
};

}  // namespace

json ReadJsonFile(const std::string& path) {
    const std::string text = ReadFile(path);
    DuplicateMembers duplicates;
    json document;
    try {
        document = json::parse(text, std::ref(duplicates), true, true);
    } catch (const json::parse_error& error) {
        throw Error(automation::InvalidProcedureCall,
                    path + ": " + PlaceText(text, error.byte) + ": " + std::string(Reason(error.what())));
    }
    if (!duplicates.First().empty()) {
        throw Error(automation::InvalidProcedureCall,
                    path + ": " + duplicates.First() + ": stands twice in the same object");
    }
    return document;
}

}  // namespace korvex::cli
