#include "hosts/cli/model/model_writer.h"

#include "hosts/cli/model/data_types.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace korvex::cli {

namespace {

using Json = nlohmann::ordered_json;

/// One line: "{ "name": "Street", "type": "string" }".
std::string OneLine(const Json& value) {
    const auto scalar = [](const Json& item) {
        return item.dump(-1, ' ', false, Json::error_handler_t::replace);
    };
    if (!value.is_object() && !value.is_array()) return scalar(value);
    std::string text;
    for (const auto& item : value.items()) {
        text += text.empty() ? "" : ", ";
        if (value.is_object()) text += scalar(Json(item.key())) + ": ";
        text += OneLine(item.value());
    }
    if (value.is_array()) return "[" + text + "]";
    return text.empty() ? "{}" : "{ " + text + " }";
}

/// Items one a line, indented by `depth` steps, between brackets.
std::string Lines(const std::vector<std::string>& items, std::size_t depth,
                  std::string_view brackets = "[]") {
    if (items.empty()) return std::string(brackets);
    const std::string indent(2 * depth, ' ');
    std::string text;
    for (const std::string& item : items)
        text += (text.empty() ? "\n  " : ",\n  ") + indent + item;
    return brackets.front() + text + "\n" + indent + brackets.back();
}

/// The same for members of an object.
std::string Block(const std::vector<std::string>& members, std::size_t depth) {
    return Lines(members, depth, "{}");
}

/// The names by which entries are referred to: their own, numbered where several share one.
template <class Entry>
std::vector<std::string> ReferenceNames(const std::vector<Entry>& entries) {
    std::set<std::string> taken;
    for (const Entry& entry : entries)
        taken.insert(entry.Name);
    std::map<std::string, int> lastNumbers;
    std::vector<std::string> names;
    for (const Entry& entry : entries) {
        std::string name = entry.Name;
        const auto [last, isFirst] = lastNumbers.try_emplace(entry.Name, 1);
        while (!isFirst && !taken.insert(name).second)
            name = entry.Name + "-" + std::to_string(++last->second);
        names.push_back(std::move(name));
    }
    return names;
}

class ModelWriter {
  public:
    explicit ModelWriter(const Model& model)
        : m_model(model),
          m_values(model),
          m_objectNames(ReferenceNames(model.objects)),
          m_interfaceNames(ReferenceNames(model.interfaces)),
          m_users(model.interfaces.size()) {
        for (const ModelObject& object : model.objects) {
            for (const std::size_t interface : object.interfaces)
                ++m_users[interface];
        }
    }

    std::string Text() const {
        std::string text = "{\n  \"version\": 1";
        Section(text, "definitions", Definitions());
        Section(text, "interfaces", SharedInterfaces());
        Section(text, "objects", Objects());
        return text + "\n}\n";
    }

  private:
    static void Section(std::string& text, std::string_view name, const std::vector<std::string>& items) {
        if (items.empty()) return;
        text.append(",\n  \"").append(name).append("\": ").append(Lines(items, 1));
    }

    std::vector<std::string> Definitions() const {
        std::vector<std::string> lines;
        for (const ModelDefinition& definition : m_model.definitions) {
            lines.push_back(
                OneLine({{"storage", definition.storage}, {"root", m_objectNames[definition.root]}}));
        }
        return lines;
    }

    /// Interfaces that are not written inside the one object that implements them.
    std::vector<std::string> SharedInterfaces() const {
        std::vector<std::string> blocks;
        for (std::size_t i = 0; i < m_model.interfaces.size(); ++i) {
            if (m_users[i] != 1) blocks.push_back(Interface(i, 2));
        }
        return blocks;
    }

    std::string Interface(std::size_t index, std::size_t depth) const {
        const ModelInterface& interface = m_model.interfaces[index];
        std::vector<std::string> members = {Member("name", interface.Name)};
        if (m_interfaceNames[index] != interface.Name && m_users[index] != 1) {
            members.push_back(Member("id", m_interfaceNames[index]));
        }
        members.push_back("\"values\": " + Lines(Values(interface), depth + 1));
        return Block(members, depth);
    }

    static std::string Member(std::string_view name, const Json& value) {
        return OneLine(Json(name)) + ": " + OneLine(value);
    }

    std::vector<std::string> Values(const ModelInterface& interface) const {
        std::vector<std::string> lines;
        for (const ModelValue& value : interface.values)
            lines.push_back(OneLine(Value(value)));
        return lines;
    }

    Json Value(const ModelValue& value) const {
        Json line = {{"name", value.Name}};
        if (value.child) {
            line["child"] = m_objectNames[*value.child];
            if (value.DataType != TypeObject) line["type"] = DataType(value.DataType);
        } else {
            line["type"] = DataType(value.DataType);
        }
        if (value.MaxLength != "0" && !value.MaxLength.empty())
            line["maxLength"] = MaxLength(value.MaxLength);
        PutText(line, "default", value.DefaultVal);
        PutFlag(line, "autoNumber", value.IsAutoNumber);
        if (value.FieldName) line["field"] = *value.FieldName;
        PutFlag(line, "included", value.IsIncluded);
        PutFlag(line, "readOnly", value.IsReadOnly);
        PutText(line, "caption", value.Caption);
        PutText(line, "description", value.Description);
        PutText(line, "translation", value.Translation);
        PutText(line, "minValue", value.MinValue);
        PutText(line, "maxValue", value.MaxValue);
        if (value.isNumbered) line["vid"] = value.VID;
        std::vector<std::string> tags = {value.VIDTag1, value.VIDTag2, value.VIDTag3};
        while (!tags.empty() && tags.back().empty())
            tags.pop_back();
        if (!tags.empty()) line["tags"] = tags;
        return line;
    }

    static Json DataType(std::int32_t code) {
        const std::string_view name = DataTypeText(code);
        return name.empty() ? Json(code) : Json(name);
    }

    /// A number where the text is the plain form of one.
    static Json MaxLength(const std::string& text) {
        std::int32_t number = 0;
        const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool isPlain = failure == std::errc() && end == text.data() + text.size() && number >= 0 &&
                             std::to_string(number) == text;
        return isPlain ? Json(number) : Json(text);
    }

    static void PutText(Json& line, const char* name, const std::string& text) {
        if (!text.empty()) line[name] = text;
    }
    static void PutFlag(Json& line, const char* name, bool flag) {
        if (flag) line[name] = true;
    }

    std::vector<std::string> Objects() const {
        std::vector<std::string> blocks;
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            blocks.push_back(Object(i));
        }
        return blocks;
    }

    std::string Object(std::size_t index) const {
        const ModelObject& object = m_model.objects[index];
        std::vector<std::string> members = {Member("name", object.Name)};
        if (m_objectNames[index] != object.Name) members.push_back(Member("id", m_objectNames[index]));
        if (!object.Guid.empty()) members.push_back(Member("guid", object.Guid));
        if (object.TableName) members.push_back(Member("table", *object.TableName));
        if (object.IsIncluded) members.push_back(Member("included", true));
        if (object.element) members.push_back(Member("element", m_objectNames[*object.element]));
        AddInterfaces(object, members);
        if (!object.primaryKeys.empty()) {
            members.push_back("\"primaryKey\": " + Lines(PrimaryKey(index), 3));
        }
        if (!object.foreignKeys.empty()) {
            members.push_back("\"foreignKeys\": " + Lines(ForeignKeys(index), 3));
        }
        return Block(members, 2);
    }

    void AddInterfaces(const ModelObject& object, std::vector<std::string>& members) const {
        std::vector<std::string> interfaces;
        for (std::size_t i = 0; i < object.interfaces.size(); ++i) {
            const std::size_t interface = object.interfaces[i];
            if (m_users[interface] != 1) {
                interfaces.push_back(OneLine(m_interfaceNames[interface]));
            } else if (i == 0 && m_model.interfaces[interface].Name == object.Name) {
                members.push_back("\"values\": " + Lines(Values(m_model.interfaces[interface]), 3));
            } else {
                interfaces.push_back(Interface(interface, 4));
            }
        }
        if (!interfaces.empty()) members.push_back("\"interfaces\": " + Lines(interfaces, 3));
    }

    std::vector<std::string> PrimaryKey(std::size_t index) const {
        std::vector<std::string> lines;
        for (const ModelPrimaryKey& key : m_model.objects[index].primaryKeys) {
            Json line;
            PutValue(line, "value", "interface", index, key.value);
            line["seq"] = key.seq;
            lines.push_back(OneLine(line));
        }
        return lines;
    }

    std::vector<std::string> ForeignKeys(std::size_t index) const {
        std::vector<std::string> lines;
        for (const ModelForeignKey& key : m_model.objects[index].foreignKeys) {
            Json line;
            PutValue(line, "value", "interface", index, key.value);
            line["object"] = m_objectNames[key.object];
            PutValue(line, "key", "keyInterface", key.object, key.key);
            PutText(line, "guid", key.guid);
            lines.push_back(OneLine(line));
        }
        return lines;
    }

    void PutValue(Json& line, const char* member, const char* interfaceMember, std::size_t object,
                  const ModelValueRef& ref) const {
        const ModelInterface& interface = m_model.interfaces[ref.interface];
        const std::string& name = interface.values[ref.value].Name;
        line[member] = name;
        if (m_values.Find(object, name).size() > 1) line[interfaceMember] = interface.Name;
    }

    const Model& m_model;
    mutable ValueIndex m_values;
    std::vector<std::string> m_objectNames;
    std::vector<std::string> m_interfaceNames;
    std::vector<std::size_t> m_users;  ///< objects that implement each interface
};

}  // namespace

std::string ModelText(const Model& model) { return ModelWriter(model).Text(); }

}  // namespace korvex::cli
