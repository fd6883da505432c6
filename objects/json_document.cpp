#include "objects/json_document.h"

#include "automation/error.h"
#include "automation/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace korvex::objects {

using automation::Error;

namespace {

/// "line 3, column 7" of the byte before `position`.
std::string PlaceText(std::string_view text, std::size_t position) {
    const auto before = text.substr(0, position == 0 ? 0 : position - 1);
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const auto lineStart = before.rfind('\n') + 1;  // 0 in the first line
    const auto column = automation::Length(before.substr(lineStart)) + 1;
    return "line " + std::to_string(lines + 1) + ", column " + std::to_string(column);
}

/// The parser's message without its own prefix: "[...] parse error at line 3, column 7: " or only "[...] ".
std::string Reason(std::string_view message) {
    const auto afterText = [&](std::string_view text, std::size_t from) {
        const auto found = message.find(text, from);
        return found == std::string_view::npos ? from : found + text.size();
    };
    const auto start = afterText("] ", 0);
    const auto place = afterText(" at line ", start);
    return std::string(message.substr(place == start ? start : afterText(": ", place)));
}

/// Counts the characters that the parser took.
class CountingInput {
  public:
    using difference_type = std::ptrdiff_t;
    using value_type = char;
    using pointer = const char*;
    using reference = const char&;
    using iterator_category = std::input_iterator_tag;

    CountingInput(const char* position, const char** reached) : m_position(position), m_reached(reached) {}
    reference operator*() const { return *m_position; }
    CountingInput& operator++() {
        ++m_position;
        if (m_reached != nullptr) *m_reached = m_position;
        return *this;
    }
    CountingInput operator++(int) {
        auto before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const CountingInput& a, const CountingInput& b) {
        return a.m_position == b.m_position;
    }

  private:
    const char* m_position;
    const char** m_reached;
};

}  // namespace

/// Takes the parser's events.
class JsonDocument::Reader : public nlohmann::json_sax<nlohmann::json> {
  public:
    Reader(std::vector<Value>& values, std::string_view text)
        : m_values(values), m_text(text), m_reached(text.data()) {}

    const char** Reached() { return &m_reached; }

    bool null() override { return Add({}); }
    bool boolean(bool value) override { return Add({.kind = Kind::Boolean, .boolean = value, .text = {}}); }
    bool number_integer(number_integer_t value) override { return AddNumber(std::to_string(value)); }
    bool number_unsigned(number_unsigned_t value) override { return AddNumber(std::to_string(value)); }
    bool number_float(number_float_t, const string_t& text) override { return AddNumber(text); }
    bool string(string_t& text) override { return Add({.kind = Kind::Text, .text = std::move(text)}); }
    bool binary(binary_t&) override { return false; }
    bool start_array(std::size_t) override { return Open(Kind::Array); }
    bool start_object(std::size_t) override { return Open(Kind::Object); }
    bool end_array() override { return Close(); }
    bool end_object() override { return Close(); }

    bool key(string_t& name) override {
        auto& object = m_open.back();
        if (!object.names.insert(name).second)
            throw Error(automation::InvalidProcedureCall,
                        PlaceText(m_text, static_cast<std::size_t>(m_reached - m_text.data())) +
                            ": the member " + automation::Quoted(name) + " stands twice in the same object");
        m_values[object.position].names.push_back(std::move(name));
        return true;
    }

    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::detail::exception& error) override {
        throw Error(automation::InvalidProcedureCall,
                    PlaceText(m_text, position) + ": " + Reason(error.what()));
    }

  private:
    struct OpenValue {
        std::size_t position;
        std::unordered_set<std::string> names;
    };

    bool Add(Value value) {
        if (!m_open.empty()) m_values[m_open.back().position].children.push_back(m_values.size());
        m_values.push_back(std::move(value));
        return true;
    }
    bool AddNumber(std::string text) { return Add({.kind = Kind::Number, .text = std::move(text)}); }
    bool Open(Kind kind) {
        const auto position = m_values.size();
        Add({.kind = kind, .text = {}});
        m_open.push_back({position, {}});
        return true;
    }
    bool Close() {
        m_open.pop_back();
        return true;
    }

    std::vector<Value>& m_values;
    std::string_view m_text;
    const char* m_reached;
    std::vector<OpenValue> m_open;
};

JsonDocument::JsonDocument(std::string_view text) {
    Reader reader(m_values, text);
    const char* end = text.data() + text.size();
    nlohmann::json::sax_parse(CountingInput(text.data(), reader.Reached()), CountingInput(end, nullptr),
                              &reader);
}

std::string_view KindName(JsonDocument::Kind kind) {
    switch (kind) {
        case JsonDocument::Kind::Null:
            return "null";
        case JsonDocument::Kind::Boolean:
            return "true or false";
        case JsonDocument::Kind::Number:
            return "a number";
        case JsonDocument::Kind::Text:
            return "a text";
        case JsonDocument::Kind::Array:
            return "an array";
        case JsonDocument::Kind::Object:
            return "an object";
    }
    return "";
}

}  // namespace korvex::objects
