#include "objects/json_schema.h"

#include "objects/json_state.h"
#include "objects/json_value.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <unordered_map>
#include <vector>

namespace korvex::objects {

namespace {

using automation::VarType;
using Json = nlohmann::ordered_json;

template <class T>
Json Number(const char* type) {
    return {{"type", {type, "null"}},
            {"minimum", std::numeric_limits<T>::lowest()},
            {"maximum", std::numeric_limits<T>::max()}};
}

Json Text(const char* pattern = nullptr) {
    Json schema = {{"type", {"string", "null"}}};
    if (pattern != nullptr) schema["pattern"] = pattern;
    return schema;
}

Json Binary() {
    return {{"type", {"object", "null"}},
            {"properties", {{Base64Member, {{"type", "string"}, {"contentEncoding", "base64"}}}}},
            {"required", {Base64Member}},
            {"additionalProperties", false}};
}

/// What ReadValue takes.
Json ValueSchema(std::int32_t dataType) {
    switch (static_cast<VarType>(dataType)) {
        case VarType::Integer:
            return Number<std::int16_t>("integer");
        case VarType::Long:
            return Number<std::int32_t>("integer");
        case VarType::LongLong:
            return Number<std::int64_t>("integer");
        case VarType::Byte:
            return Number<std::uint8_t>("integer");
        case VarType::Single:
            return Number<float>("number");
        case VarType::Double:
            return {{"type", {"number", "null"}}};
        case VarType::Currency:
            return {{"type", {"number", "null"}},
                    {"minimum", -922337203685477.6},
                    {"maximum", 922337203685477.6}};
        case VarType::Date:
            return Text("^[0-9]{4}-[0-9]{2}-[0-9]{2}(T[0-9]{2}:[0-9]{2}:[0-9]{2}(\\.[0-9]+)?)?$");
        case VarType::Boolean:
            return {{"type", {"boolean", "null"}}};
        case VarType::Object:
            return Binary();
        case VarType::Variant: {
            Json schema = Binary();
            schema["type"] = {"string", "number", "boolean", "object", "null"};
            return schema;
        }
        default:
            return Text();
    }
}

/// Writes each definition once; a list stands in for the call stack, as definitions may be deep.
class Writer {
  public:
    std::string Write(const Definition& root) {
        const Json one = Reference(root);
        Json schemas = Json::object();
        for (std::size_t i = 0; i < m_waiting.size(); ++i)
            schemas[m_names.at(m_waiting[i])] = ObjectSchema(*m_waiting[i]);
        const Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                             {"title", root.Name()},
                             {"if", {{"type", "array"}}},
                             {"then", {{"items", one}}},
                             {"else", one},
                             {"$defs", schemas}};
        return schema.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    }

  private:
    Json Reference(const Definition& definition) {
        const auto [name, isNew] =
            m_names.try_emplace(&definition, "object" + std::to_string(m_names.size() + 1));
        if (isNew) m_waiting.push_back(&definition);
        return {{"$ref", "#/$defs/" + name->second}};
    }

    Json ObjectSchema(const Definition& definition) {
        Json members = Json::object();
        for (const auto& value : definition.Values())
            members[value->Info().name] =
                value->Child() != nullptr ? Reference(*value->Child()) : ValueSchema(value->Info().dataType);
        Json states = Json::object();
        for (const State& state : StatesOf(definition)) {
            states[std::string(state.name)] = ValueSchema(state.dataType);
            states[std::string(state.name)]["type"] = "integer";
        }
        if (!members.contains(StateMember))
            members[std::string(StateMember)] = {
                {"type", "object"}, {"properties", states}, {"additionalProperties", false}};
        if (definition.ElementDefinition() != nullptr && !members.contains(ItemsMember))
            members[std::string(ItemsMember)] = {{"type", "array"},
                                                 {"items", Reference(*definition.ElementDefinition())}};
        return {{"title", definition.Name()},
                {"type", "object"},
                {"properties", members},
                {"additionalProperties", false}};
    }

    std::unordered_map<const Definition*, std::string> m_names;
    std::vector<const Definition*> m_waiting;
};

}  // namespace

std::string JsonSchema(const std::shared_ptr<Definition>& definition) { return Writer().Write(*definition); }

}  // namespace korvex::objects
