#include "hosts/cli/model/model_changes.h"

#include "automation/text.h"
#include "hosts/cli/model/model_match.h"
#include "hosts/cli/wording.h"
#include "repository/names.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

namespace korvex::cli {

namespace {

using repository::InterfaceId;
using repository::ObjectId;
using repository::ValueId;

/// Nothing and 0 are the same length.
std::string Length(const ModelValue& value) { return value.MaxLength.empty() ? "0" : value.MaxLength; }

/// Whether members of one entry differ by nothing but what runs write, which the new one lacks.
bool IsRunsWork(std::string_view member, bool isGone) {
    return isGone && (member == "table" || member == "field" || member == "included");
}

class Changes {
  public:
    Changes(const Model& before, const Model& after)
        : m_before(before),
          m_after(after),
          m_objects(before.objects, &ModelObject::ObjectID),
          m_interfaces(before.interfaces, &ModelInterface::InterfaceID) {
        for (const ModelDefinition& definition : m_after.definitions)
            if (definition.place.empty()) m_others.push_back({definition.storage, {}});
        for (auto& [storage, reach] : m_others)
            reach = Beneath(m_after, RootsOf(storage));
    }

    std::vector<std::string> Describe() {
        Definitions();
        Objects();
        Interfaces();
        if (m_runsWork)
            m_lines.push_back(
                "the names and keys that runs wrote and the model does not have are removed; the next run "
                "writes them again");
        return std::move(m_lines);
    }

  private:
    std::vector<std::size_t> RootsOf(const std::string& storage) const {
        std::vector<std::size_t> roots;
        for (const ModelDefinition& definition : m_after.definitions)
            if (definition.storage == storage) roots.push_back(definition.root);
        return roots;
    }

    static std::string Named(std::string_view kind, const std::string& name) {
        constexpr std::size_t longest = 60;
        return std::string(kind) + " " + automation::Readable(name, longest);
    }

    /// The definitions that have one of these objects of m_after without being meant to change.
    void Add(std::string line, const std::vector<std::size_t>& objects) {
        std::vector<std::string> names;
        for (const auto& [storage, reach] : m_others)
            if (std::ranges::any_of(objects, [&reach = reach](std::size_t object) { return reach[object]; }))
                names.push_back(storage);
        if (!names.empty()) line += "; also in " + JoinNames(names);
        m_lines.push_back(std::move(line));
    }

    void Definitions() {
        const auto find = [](const Model& model, const std::string& storage) {
            return std::ranges::find(model.definitions, storage, &ModelDefinition::storage);
        };
        for (const ModelDefinition& definition : m_before.definitions)
            if (find(m_after, definition.storage) == m_after.definitions.end())
                m_lines.push_back(Named("definition", definition.storage) + " removed");
        for (const ModelDefinition& definition : m_after.definitions) {
            const auto before = find(m_before, definition.storage);
            if (before == m_before.definitions.end()) {
                m_lines.push_back(Named("definition", definition.storage) + " added");
            } else if (m_before.IdOf(before->root) != m_after.IdOf(definition.root)) {
                m_lines.push_back(Named("definition", definition.storage) + " has another root: " +
                                  Named("object", m_after.objects[definition.root].Name));
            }
        }
    }

    void Objects() {
        const EntryIndex stay(m_after.objects, &ModelObject::ObjectID);
        for (const ModelObject& object : m_before.objects)
            if (stay.Find(object.ObjectID) == nullptr)
                m_lines.push_back(Named("object", object.Name) + " removed");
        for (std::size_t i = 0; i < m_after.objects.size(); ++i) {
            const ModelObject* before = m_objects.Find(m_after.objects[i].ObjectID);
            if (before == nullptr)
                m_lines.push_back(Named("object", m_after.objects[i].Name) + " added");
            else
                Compare(*before, m_after.objects[i], {i});
        }
    }

    template <class Entry>
    void AddDifferences(const std::string& what, const std::string& oldName, const Entry& before,
                        const Entry& now, std::vector<std::string_view> members,
                        const std::vector<std::size_t>& objects) {
        if (std::erase(members, "name") > 0) Add(oldName + " renamed to " + now.Name, objects);
        m_runsWork =
            std::erase_if(members,
                          [&](std::string_view member) {
                              return IsRunsWork(member, !IsGiven(now, member) && IsGiven(before, member));
                          }) > 0 ||
            m_runsWork;
        if (members.empty()) return;
        const std::vector<std::string> names(members.begin(), members.end());
        Add(what + " changed: " + JoinNames(names), objects);
    }

    static bool IsGiven(const ModelObject& object, std::string_view member) {
        return member == "table" ? object.TableName.has_value() : object.IsIncluded;
    }
    static bool IsGiven(const ModelValue& value, std::string_view member) {
        return member == "field" ? value.FieldName.has_value() : value.IsIncluded;
    }

    /// Whether both hold the same object, or none.
    bool HoldSame(const std::optional<std::size_t>& before, const std::optional<std::size_t>& now) const {
        const bool isNew = now && m_after.IdOf(now) == repository::NoObject;
        return !isNew && m_before.IdOf(before) == m_after.IdOf(now);
    }

    void Compare(const ModelObject& before, const ModelObject& now, const std::vector<std::size_t>& objects) {
        std::vector<std::string_view> members = Differences(before, now);
        if (!HoldSame(before.element, now.element)) members.push_back("element");
        if (InterfacesOf(m_before, before) != InterfacesOf(m_after, now)) members.push_back("interfaces");
        AddDifferences(Named("object", now.Name), Named("object", before.Name), before, now,
                       std::move(members), objects);
        if (now.primaryKeys.size() < before.primaryKeys.size() ||
            (!now.place.empty() && now.foreignKeys.size() < before.foreignKeys.size()))
            m_runsWork = true;
    }

    /// But for those of keys, which come and go with runs.
    static std::vector<InterfaceId> InterfacesOf(const Model& model, const ModelObject& object) {
        std::vector<InterfaceId> interfaces;
        for (const std::size_t interface : object.interfaces)
            if (model.interfaces[interface].Name != repository::KeyInterfaceName(object.Name))
                interfaces.push_back(model.interfaces[interface].InterfaceID);
        return interfaces;
    }

    void Interfaces() {
        const EntryIndex objects(m_after.objects, &ModelObject::ObjectID);
        std::set<InterfaceId> known;
        for (const ModelInterface& interface : m_after.interfaces)
            known.insert(interface.InterfaceID);
        for (const ModelObject& object : m_before.objects) {
            if (objects.Find(object.ObjectID) == nullptr) continue;
            for (const InterfaceId id : InterfacesOf(m_before, object))
                if (known.insert(id).second)
                    m_lines.push_back(Named("interface", m_interfaces.Find(id)->Name) + " removed");
        }
        std::vector<std::vector<std::size_t>> users(m_after.interfaces.size());
        for (std::size_t i = 0; i < m_after.objects.size(); ++i)
            for (const std::size_t interface : m_after.objects[i].interfaces)
                users[interface].push_back(i);
        for (std::size_t i = 0; i < m_after.interfaces.size(); ++i) {
            const ModelInterface* before = m_interfaces.Find(m_after.interfaces[i].InterfaceID);
            if (before != nullptr) Compare(*before, m_after.interfaces[i], users[i]);
        }
    }

    /// Values by identifier; keys come and go with runs.
    void Compare(const ModelInterface& before, const ModelInterface& after,
                 const std::vector<std::size_t>& users) {
        const auto name = [](const ModelInterface& interface, const ModelValue& value) {
            return Named("value", interface.Name + "." + value.Name);
        };
        const EntryIndex nowOf(after.values, &ModelValue::ValueID);
        for (const ModelValue& value : before.values) {
            if (IsKeyValue(before, value)) continue;
            const ModelValue* now = nowOf.Find(value.ValueID);
            if (now == nullptr) {
                Add(name(before, value) + " removed", users);
                continue;
            }
            std::vector<std::string_view> members = Differences(value, *now);
            if (!HoldSame(value.child, now->child)) members.push_back("child");
            AddDifferences(name(after, *now), name(before, value), value, *now, std::move(members), users);
        }
        std::vector<ValueId> order;
        std::ranges::transform(after.values, std::back_inserter(order), &ModelValue::ValueID);
        std::erase(order, ValueId());
        if (!std::ranges::is_sorted(order))
            Add(Named("interface", after.Name) + " changed: the order of its values", users);
        for (const ModelValue& value : after.values)
            if (value.ValueID == ValueId() && !IsKeyValue(after, value))
                Add(name(after, value) + " added", users);
    }

    const Model& m_before;
    const Model& m_after;
    EntryIndex<ModelObject, ObjectId> m_objects;                      ///< of m_before
    EntryIndex<ModelInterface, InterfaceId> m_interfaces;             ///< likewise
    std::vector<std::pair<std::string, std::vector<bool>>> m_others;  ///< with the objects of m_after
    bool m_runsWork = false;
    std::vector<std::string> m_lines;
};

}  // namespace

std::vector<std::string_view> Differences(const ModelValue& before, const ModelValue& now) {
    std::vector<std::string_view> members;
    const auto compare = [&](std::string_view member, bool isSame) {
        if (!isSame) members.push_back(member);
    };
    compare("name", before.Name == now.Name);
    compare("type", before.DataType == now.DataType);
    compare("maxLength", Length(before) == Length(now));
    compare("default", before.DefaultVal == now.DefaultVal);
    compare("autoNumber", before.IsAutoNumber == now.IsAutoNumber);
    compare("field", before.FieldName == now.FieldName);
    compare("included", before.IsIncluded == now.IsIncluded);
    compare("readOnly", before.IsReadOnly == now.IsReadOnly);
    compare("description", before.Description == now.Description);
    compare("caption", before.Caption == now.Caption);
    compare("translation", before.Translation == now.Translation);
    compare("maxValue", before.MaxValue == now.MaxValue);
    compare("minValue", before.MinValue == now.MinValue);
    compare("vid", before.VID == now.VID);
    compare("tags", std::tie(before.VIDTag1, before.VIDTag2, before.VIDTag3) ==
                        std::tie(now.VIDTag1, now.VIDTag2, now.VIDTag3));
    return members;
}

std::vector<std::string_view> Differences(const ModelObject& before, const ModelObject& now) {
    std::vector<std::string_view> members;
    if (before.Name != now.Name) members.push_back("name");
    if (before.Guid != now.Guid) members.push_back("guid");
    if (before.TableName != now.TableName) members.push_back("table");
    if (before.IsIncluded != now.IsIncluded) members.push_back("included");
    return members;
}

std::vector<std::string> DescribeChanges(const Model& before, const Model& after) {
    return Changes(before, after).Describe();
}

}  // namespace korvex::cli
