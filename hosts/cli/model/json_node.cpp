#include "hosts/cli/model/json_node.h"

#include "automation/error.h"
#include "automation/nearest_name.h"
#include "automation/text.h"

#include <algorithm>
#include <span>

namespace korvex::cli {

void JsonNode::Fail(const std::string& complaint) const {
    const std::string place = m_path.empty() ? "the document" : m_path;
    throw automation::Error(automation::InvalidProcedureCall, *m_file + ": " + place + ": " + complaint);
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
    for (const nlohmann::json& item : *array.m_value)
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
