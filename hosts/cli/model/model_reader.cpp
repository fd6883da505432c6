#include "hosts/cli/model/model_reader.h"

#include "automation/error.h"
#include "automation/nearest_name.h"
#include "automation/text.h"
#include "hosts/cli/model/data_types.h"
#include "hosts/cli/model/json_node.h"
#include "hosts/cli/wording.h"
#include "repository/cycles.h"
#include "repository/names.h"

#include <functional>
#include <limits>
#include <map>
#include <numeric>
#include <unordered_set>
#include <utility>

namespace korvex::cli {

namespace {

constexpr std::int32_t LongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t LongMax = std::numeric_limits<std::int32_t>::max();

/// Objects written inside one another, beyond which the file is refused.
constexpr int DeepestNesting = 200;

/// A control character may end the line of a script that the text stands in.
std::string WithoutControls(const JsonNode& node, std::string text) {
    if (repository::HasControlCharacter(text)) node.Fail("must not hold control characters");
    return text;
}

/// Names end up between single quotes in the statements of the library.
std::string ReadName(const JsonNode& node) {
    std::string name = WithoutControls(node, node.NonEmptyText());
    if (name.find('\'') != std::string::npos) node.Fail("must not hold a single quote");
    return name;
}

/// The name of a table or column, which stands in SQL text as it is. One that is no identifier is taken when
/// a run would give it by itself.
template <class IsGiven>
std::string ReadSqlName(const JsonNode& node, IsGiven isGiven) {
    std::string name = node.NonEmptyText();
    if (repository::IsIdentifier(name)) return name;
    const std::string mark = repository::FindSqlMark(name);
    if (!mark.empty()) node.Fail("must not hold " + mark + ", which SQL takes for more than a name");
    if (!isGiven(name)) {
        node.Fail("\"" + name + "\" is no identifier (letters, digits, \"_\", \"$\", \"#\", no digit first)");
    }
    return name;
}

std::int32_t ReadDataType(const JsonNode& node) {
    if (node.IsNumber()) return node.Whole(0, std::numeric_limits<std::int16_t>::max());
    const std::string name = node.Text();
    if (const std::optional<std::int32_t> code = DataTypeCode(name)) return *code;
    std::vector<std::string_view> names;
    std::vector<std::string> listed;
    for (const DataTypeName& type : DataTypeNames()) {
        names.push_back(type.name);
        listed.emplace_back(type.name);
    }
    const std::string near = automation::DidYouMean(name, names);
    node.Fail("unknown data type " + automation::Quoted(name) +
              (near.empty() ? "; known are " + JoinNames(listed) : near));
}

std::string ReadMaxLength(const JsonNode& node) {
    if (node.IsNumber()) return std::to_string(node.Whole(0, LongMax));
    std::string text = node.Text();
    if (!NumberIn(text)) node.Fail(automation::Quoted(text) + " is no number");
    return text;
}

/// The names by which a model file's objects (or interfaces) refer to one another: an entry's "id", or its
/// name when it has none.
class References {
  public:
    /// `kind` is what complaints call an entry.
    explicit References(std::string_view kind) : m_kind(kind) {}

    /// Adds the entry written at `node`. An id that is taken is complained about.
    void Add(const JsonNode& node, const std::string& name, std::size_t index) {
        if (!node.Has("id")) {
            m_byName[name].push_back(index);
            return;
        }
        const JsonNode id = node.At("id");
        const std::string text = id.NonEmptyText();
        const auto [entry, isNew] = m_ids.emplace(text, node.Path());
        if (!isNew) id.Fail(automation::Quoted(text) + " is the id of " + entry->second + " as well");
        m_byName[text].push_back(index);
    }

    /// The entry that the text at `node` refers to. Complains about an unknown one, naming the nearest, and
    /// about one that several entries share.
    std::size_t Resolve(const JsonNode& node) const {
        const std::string name = node.NonEmptyText();
        const auto entry = m_byName.find(name);
        if (entry == m_byName.end()) {
            const std::vector<std::string_view> known = [this] {
                std::vector<std::string_view> names;
                for (const auto& item : m_byName)
                    names.emplace_back(item.first);
                return names;
            }();
            node.Fail("no " + std::string(m_kind) + " " + automation::Quoted(name) +
                      automation::DidYouMean(name, known));
        }
        if (entry->second.size() > 1) {
            node.Fail("several " + std::string(m_kind) + "s " + automation::Quoted(name) +
                      "; give the one meant an \"id\"");
        }
        return entry->second.front();
    }

  private:
    std::string_view m_kind;
    std::map<std::string, std::vector<std::size_t>> m_byName;
    std::map<std::string, std::string> m_ids;  ///< explicit ids with their place
};

class ModelReader {
  public:
    explicit ModelReader(const std::string& file) { m_model.file = file; }

    Model Read(const JsonNode& document) {
        document.ExpectMembers({"$schema", "version", "definitions", "objects", "interfaces"});
        static_cast<void>(document.TextOr("$schema", ""));
        if (document.Has("version")) static_cast<void>(document.At("version").Whole(1, 1));
        for (const JsonNode& node : document.ItemsOf("interfaces"))
            static_cast<void>(ReadInterface(node, 0));
        for (const JsonNode& node : document.ItemsOf("objects"))
            static_cast<void>(ReadObject(node, 0));
        for (const JsonNode& node : document.ItemsOf("definitions"))
            ReadDefinition(node);
        Resolve();
        if (m_model.objects.empty() && m_model.interfaces.empty()) document.Fail("holds no objects");
        ExpectNoCycle();
        return std::move(m_model);
    }

  private:
    /// A text that stands for an object or interface, to be resolved when all of them are known.
    struct Pending {
        JsonNode node;
        std::function<void(std::size_t)> take;
    };

    void ReadDefinition(const JsonNode& node) {
        node.ExpectMembers({"storage", "root"});
        const JsonNode storage = node.At("storage");
        const std::string name = ReadName(storage);
        if (!m_storages.insert(name).second) storage.Fail(automation::Quoted(name) + " stands twice");
        const std::size_t position = m_model.definitions.size();
        m_model.definitions.push_back({name, 0, node.Path()});
        ReadObjectOrName(node.At("root"), 0, m_pendingRoots,
                         [this, position](std::size_t root) { m_model.definitions[position].root = root; });
    }

    /// An object written in place is read and handed on at once; a name is kept for later.
    void ReadObjectOrName(const JsonNode& node, int depth, std::vector<Pending>& pending, auto take) {
        if (node.IsObject()) {
            take(ReadObject(node, depth + 1));
        } else {
            static_cast<void>(node.NonEmptyText());
            pending.push_back({node, take});
        }
    }

    std::size_t ReadObject(const JsonNode& node, int depth) {
        if (depth > DeepestNesting) {
            node.Fail("nested deeper than " + std::to_string(DeepestNesting) +
                      " objects; put the objects into \"objects\" and refer to them by name");
        }
        node.ExpectMembers({"name", "id", "guid", "table", "included", "values", "interfaces", "element",
                            "primaryKey", "foreignKeys"});
        const std::size_t index = m_model.objects.size();
        ModelObject& object = m_model.objects.emplace_back();
        object.place = node.Path();
        object.Name = ReadName(node.At("name"));
        object.Guid = node.TextOr("guid", "");
        if (node.Has("table")) {
            object.TableName = ReadSqlName(node.At("table"), [&object](const std::string& table) {
                return repository::IsTableNameOf(table, object.Name);
            });
        }
        object.IsIncluded = node.FlagOr("included", false);
        m_objects.Add(node, object.Name, index);

        // Reading values adds objects and interfaces, so nothing here may be held by reference across it.
        // Values written directly in an object are an interface with its name.
        if (node.Has("values"))
            AttachInterface(index, AddInterface(node, m_model.objects[index].Name, depth));
        for (const JsonNode& item : node.ItemsOf("interfaces"))
            ReadInterfaceOrName(item, index, depth);
        if (node.Has("element")) {
            ReadObjectOrName(
                node.At("element"), depth, m_pendingElements,
                [this, index](std::size_t element) { m_model.objects[index].element = element; });
        }
        if (node.Has("primaryKey") || node.Has("foreignKeys")) m_keys.emplace_back(node, index);
        return index;
    }

    void AttachInterface(std::size_t object, std::size_t interface) {
        m_model.objects[object].interfaces.push_back(interface);
    }

    void ReadInterfaceOrName(const JsonNode& node, std::size_t object, int depth) {
        if (node.IsObject()) return AttachInterface(object, ReadInterface(node, depth));
        static_cast<void>(node.NonEmptyText());
        const std::size_t position = m_model.objects[object].interfaces.size();
        m_pendingInterfaces.push_back({node, [this, object, position](std::size_t interface) {
                                           m_model.objects[object].interfaces[position] = interface;
                                       }});
        AttachInterface(object, 0);
    }

    std::size_t ReadInterface(const JsonNode& node, int depth) {
        node.ExpectMembers({"name", "id", "values"});
        const std::string name = ReadName(node.At("name"));
        m_interfaces.Add(node, name, m_model.interfaces.size());
        return AddInterface(node, name, depth);
    }

    /// An interface with the values of a node.
    std::size_t AddInterface(const JsonNode& node, const std::string& name, int depth) {
        const std::size_t index = m_model.interfaces.size();
        ModelInterface& interface = m_model.interfaces.emplace_back();
        interface.Name = name;
        interface.place = node.Path();
        for (const JsonNode& item : node.ItemsOf("values"))
            ReadValue(item, index, depth);
        return index;
    }

    void ReadValue(const JsonNode& node, std::size_t interface, int depth) {
        node.ExpectMembers({"name", "type", "maxLength", "default", "autoNumber", "child", "field",
                            "included", "readOnly", "description", "caption", "translation", "maxValue",
                            "minValue", "vid", "tags"});
        const std::size_t position = m_model.interfaces[interface].values.size();
        ModelValue value;
        value.place = node.Path();
        value.Name = ReadName(node.At("name"));
        if (!node.Has("type") && !node.Has("child")) node.Fail("lacks the member \"type\" or \"child\"");
        value.DataType = node.Has("type") ? ReadDataType(node.At("type")) : TypeObject;
        value.MaxLength = node.Has("maxLength") ? ReadMaxLength(node.At("maxLength")) : "0";
        if (node.Has("default")) {
            const JsonNode text = node.At("default");
            value.DefaultVal = WithoutControls(text, text.Scalar());
        }
        value.IsAutoNumber = node.FlagOr("autoNumber", false);
        if (node.Has("field")) {
            value.FieldName = ReadSqlName(node.At("field"), [&value](const std::string& column) {
                return column == repository::ValueColumnName(value.Name);
            });
        }
        value.IsIncluded = node.FlagOr("included", false);
        ReadDescriptiveColumns(node, value);
        m_model.interfaces[interface].values.push_back(std::move(value));
        if (!node.Has("child")) return;
        ReadObjectOrName(node.At("child"), depth, m_pendingChildren,
                         [this, interface, position](std::size_t child) {
                             m_model.interfaces[interface].values[position].child = child;
                         });
    }

    static void ReadDescriptiveColumns(const JsonNode& node, ModelValue& value) {
        value.IsReadOnly = node.FlagOr("readOnly", false);
        value.Description = node.TextOr("description", "");
        value.Caption = node.TextOr("caption", "");
        value.Translation = node.TextOr("translation", "");
        value.MaxValue = node.ScalarOr("maxValue", "");
        value.MinValue = node.ScalarOr("minValue", "");
        value.isNumbered = node.Has("vid");
        if (value.isNumbered) value.VID = node.At("vid").Whole(LongMin, LongMax);
        std::string* const tags[] = {&value.VIDTag1, &value.VIDTag2, &value.VIDTag3};
        const std::vector<JsonNode> texts = node.ItemsOf("tags");
        if (texts.size() > std::size(tags)) node.At("tags").Fail("holds more than three texts");
        for (std::size_t i = 0; i < texts.size(); ++i)
            *tags[i] = texts[i].Text();
    }

    void ExpectNoCycle() const {
        std::vector<std::size_t> objects(m_model.objects.size());
        std::iota(objects.begin(), objects.end(), std::size_t{0});
        std::vector<std::size_t> finished;
        const auto cycle = repository::FindCycle(
            objects, [this](std::size_t object) { return ChildrenOf(m_model, object); }, finished);
        if (!cycle) return;
        std::string path;
        for (const std::size_t object : *cycle)
            path += (path.empty() ? "" : " > ") + m_model.objects[object].Name;
        throw automation::Error(automation::OutOfStackSpace,
                                PlaceText(m_model, m_model.objects[cycle->back()].place) +
                                    "an object is its own ancestor: " + path);
    }

    void Resolve() {
        for (const auto* kind : {&m_pendingRoots, &m_pendingElements, &m_pendingChildren})
            for (const Pending& pending : *kind)
                pending.take(m_objects.Resolve(pending.node));
        for (const Pending& pending : m_pendingInterfaces)
            pending.take(m_interfaces.Resolve(pending.node));
        for (const auto& [node, object] : m_keys) {
            for (const JsonNode& item : node.ItemsOf("primaryKey"))
                ReadPrimaryKey(item, object);
            for (const JsonNode& item : node.ItemsOf("foreignKeys"))
                ReadForeignKey(item, object);
        }
    }

    void ReadPrimaryKey(const JsonNode& node, std::size_t object) {
        node.ExpectMembers({"value", "interface", "seq"});
        const ModelValueRef value = KeyValue(node, "value", "interface", object);
        m_model.objects[object].primaryKeys.push_back(
            {value, node.At("seq").Whole(LongMin, LongMax), node.Path()});
    }

    void ReadForeignKey(const JsonNode& node, std::size_t object) {
        node.ExpectMembers({"value", "interface", "object", "key", "keyInterface", "guid"});
        ModelForeignKey key;
        key.value = KeyValue(node, "value", "interface", object);
        key.object = m_objects.Resolve(node.At("object"));
        key.key = KeyValue(node, "key", "keyInterface", key.object);
        key.guid = node.TextOr("guid", "");
        key.place = node.Path();
        m_model.objects[object].foreignKeys.push_back(std::move(key));
    }

    /// The value of an object that a key entry names; with its interface when the name alone is not enough.
    ModelValueRef KeyValue(const JsonNode& node, std::string_view member, std::string_view interfaceMember,
                           std::size_t object) {
        std::vector<ModelValueRef> found = m_values.Find(object, node.At(member).NonEmptyText());
        if (node.Has(interfaceMember)) {
            const std::string interface = node.At(interfaceMember).NonEmptyText();
            std::erase_if(found, [&](const ModelValueRef& ref) {
                return m_model.interfaces[ref.interface].Name != interface;
            });
        }
        if (found.empty()) node.At(member).Fail("no such value in " + m_model.objects[object].Name);
        if (found.size() > 1) {
            node.At(member).Fail("several values of that name in " + m_model.objects[object].Name +
                                 "; name its \"" + std::string(interfaceMember) + "\"");
        }
        return found.front();
    }

    Model m_model;
    ValueIndex m_values{m_model};  ///< used when all values are known
    std::unordered_set<std::string> m_storages;
    References m_objects{"object"};
    References m_interfaces{"interface"};
    std::vector<Pending> m_pendingRoots;
    std::vector<Pending> m_pendingElements;
    std::vector<Pending> m_pendingChildren;
    std::vector<Pending> m_pendingInterfaces;
    std::vector<std::pair<JsonNode, std::size_t>> m_keys;  ///< objects with key entries
};

}  // namespace

Model ReadModel(const std::string& path) {
    const nlohmann::json document = ReadJsonFile(path);
    return ModelReader(path).Read(JsonNode(document, path));
}

}  // namespace korvex::cli
