#include "hosts/cli/model/json_node.h"

#include "automation/error.h"
#include "automation/nearest_name.h"
#include "automation/text.h"
#include "hosts/cli/text_file.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>

namespace korvex::cli {

using automation::Error;
using nlohmann::json;

namespace {

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

/// Finds members that stand twice in one object: the document itself keeps only the last one. In a pass of
/// its own, as a parser that calls back looks through an array anew after each object in it.
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

void JsonNode::Fail(const std::string& complaint) const {
    const std::string place = m_path.empty() ? "the document" : m_path;
    throw Error(automation::InvalidProcedureCall, *m_file + ": " + place + ": " + complaint);
}

const char* JsonNode::KindName() const {
    if (m_value->is_boolean()) return "true or false";
    if (m_value->is_string()) return "a text";
    if (m_value->is_array()) return "an array";
    if (m_value->is_object()) return "an object";
    return m_value->is_null() ? "null" : "a number";
}

void JsonNode::ExpectMembers(std::initializer_list<std::string_view> known) const {
    if (!IsObject()) Fail(std::string("must be an object, not ") + KindName());
    for (const auto& member : m_value->items()) {
        if (std::find(known.begin(), known.end(), member.key()) != known.end()) continue;
        Fail("unknown member " + automation::Quoted(member.key()) +
             automation::DidYouMean(member.key(), {known.begin(), known.size()}));
    }
}

JsonNode JsonNode::At(std::string_view member) const {
    const auto found = m_value->find(member);
    if (found == m_value->end()) Fail("lacks the member \"" + std::string(member) + "\"");
    return JsonNode(*found, *m_file, (m_path.empty() ? "" : m_path + ".") + std::string(member));
}

std::vector<JsonNode> JsonNode::ItemsOf(std::string_view member) const {
    std::vector<JsonNode> items;
    if (!Has(member)) return items;
    const JsonNode array = At(member);
    if (!array.m_value->is_array()) array.Fail(std::string("must be an array, not ") + array.KindName());
    items.reserve(array.m_value->size());
    for (const json& item : *array.m_value)
        items.emplace_back(item, *m_file, array.m_path + "[" + std::to_string(items.size()) + "]");
    return items;
}

std::string JsonNode::Text() const {
    if (!IsText()) Fail(std::string("must be a text, not ") + KindName());
    return m_value->get<std::string>();
}

std::string JsonNode::NonEmptyText() const {
    std::string text = Text();
    if (text.empty()) Fail("must not be empty");
    return text;
}

bool JsonNode::Flag() const {
    if (!m_value->is_boolean()) Fail(std::string("must be true or false, not ") + KindName());
    return m_value->get<bool>();
}

std::int32_t JsonNode::Whole(std::int32_t least, std::int32_t most) const {
    if (!m_value->is_number_integer()) Fail(std::string("must be a whole number, not ") + KindName());
    // Beyond the signed range the parser keeps the number unsigned.
    const bool huge = m_value->is_number_unsigned() && m_value->get<std::uint64_t>() > INT64_MAX;
    const std::int64_t number = huge ? INT64_MAX : m_value->get<std::int64_t>();
    if (number < least || number > most) {
        Fail("must be from " + std::to_string(least) + " to " + std::to_string(most));
    }
    return static_cast<std::int32_t>(number);
}

std::string JsonNode::Scalar() const {
    if (IsText()) return m_value->get<std::string>();
    if (m_value->is_boolean()) return m_value->get<bool>() ? "1" : "0";
    if (!IsNumber()) Fail(std::string("must be a text, a number, true or false, not ") + KindName());
    return m_value->dump();
}

std::string JsonNode::TextOr(std::string_view member, std::string_view absent) const {
    return Has(member) ? At(member).Text() : std::string(absent);
}

bool JsonNode::FlagOr(std::string_view member, bool absent) const {
    return Has(member) ? At(member).Flag() : absent;
}

std::string JsonNode::ScalarOr(std::string_view member, std::string_view absent) const {
    return Has(member) ? At(member).Scalar() : std::string(absent);
}

}  // namespace korvex::cli
