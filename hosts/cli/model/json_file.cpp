#include "hosts/cli/model/json_file.h"

#include "automation/error.h"
#include "hosts/cli/text_file.h"

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
class DuplicateMembers : public nlohmann::json_sax<json> {
  public:
    bool null() override { return Item(); }
    bool boolean(bool) override { return Item(); }
    bool number_integer(number_integer_t) override { return Item(); }
    bool number_unsigned(number_unsigned_t) override { return Item(); }
    bool number_float(number_float_t, const string_t&) override { return Item(); }
    bool string(string_t&) override { return Item(); }
    bool binary(binary_t&) override { return Item(); }
    bool start_array(std::size_t) override { return Start(true); }
    bool end_array() override { return End(); }
    bool start_object(std::size_t) override { return Start(false); }
    bool end_object() override { return End(); }
    bool key(string_t& name) override {
        Level& level = m_levels.back();
        level.member = name;
        if (level.members.insert(name).second) return true;
        m_first = Path();
        return false;
    }
    bool parse_error(std::size_t, const std::string&, const json::exception&) override { return false; }

    /// Path of the first one; empty for none.
    const std::string& First() const { return m_first; }

  private:
    struct Level {
        bool isArray;
        std::size_t items;  ///< of an array: started so far
        std::string member;
        std::set<std::string> members;
    };

    bool Item() {
        if (!m_levels.empty() && m_levels.back().isArray) ++m_levels.back().items;
        return true;
    }
    bool Start(bool isArray) {
        Item();
        m_levels.push_back({isArray, 0, {}, {}});
        return true;
    }
    bool End() {
        m_levels.pop_back();
        return true;
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
    const std::string text = ReadTextFile(path);
    if (text.find('\0') != std::string::npos) {
        throw Error(automation::InvalidProcedureCall, path + ": This is no JSON text, but a binary file.");
    }
    json document;
    try {
        document = json::parse(text, nullptr, true, true);
    } catch (const json::parse_error& error) {
        throw Error(automation::InvalidProcedureCall,
                    path + ": " + PlaceText(text, error.byte) + ": " + std::string(Reason(error.what())));
    }
    DuplicateMembers duplicates;
    if (!json::sax_parse(text, &duplicates, json::input_format_t::json, true, true)) {
        throw Error(automation::InvalidProcedureCall,
                    path + ": " + duplicates.First() + ": stands twice in the same object");
    }
    return document;
}

}  // namespace korvex::cli
