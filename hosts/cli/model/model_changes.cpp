#include "hosts/cli/model/model_changes.h"

#include "automation/text.h"
#include "hosts/cli/model/model_match.h"
#include "hosts/cli/suggest.h"
#include "repository/names.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

namespace korvex::cli {

namespace {

using repository::InterfaceId;
using repository::NoObject;
using repository::ObjectId;
using repository::RowId;
using repository::ValueId;

using Position = std::optional<std::size_t>;

/// Nothing and 0 are the same length.
std::string Length(const ModelValue& value) { return value.maxLength.empty() ? "0" : value.maxLength; }

/// Whether members of one entry differ by nothing but what runs write, which the new one lacks.
bool IsRunsWork(std::string_view member, bool isGone) {
    return isGone && (member == "table" || member == "field" || member == "included");
}

class Changes {
  public:
    Changes(const StoredModel& before, const StoredModel& after)
        : m_before(before.model), m_after(after.model), m_beforeIDs(before.ids), m_afterIDs(after.ids) {
        Index(m_beforeIDs.objects, m_objects);
        Index(m_beforeIDs.interfaces, m_interfaces);
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
    template <RowId Id>
    using Positions = std::unordered_map<Id, std::size_t>;

    template <RowId Id>
    static void Index(const std::vector<Id>& ids, Positions<Id>& positions) {
        for (std::size_t i = 0; i < ids.size(); ++i)
            positions.emplace(ids[i], i);
    }

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
            } else if (m_beforeIDs.objects[before->root] != m_afterIDs.objects[definition.root]) {
                m_lines.push_back(Named("definition", definition.storage) + " has another root: " +
                                  Named("object", m_after.objects[definition.root].name));
            }
        }
    }

    void Objects() {
        const std::set<ObjectId> stay(m_afterIDs.objects.begin(), m_afterIDs.objects.end());
        for (std::size_t i = 0; i < m_before.objects.size(); ++i)
            if (!stay.contains(m_beforeIDs.objects[i]))
                m_lines.push_back(Named("object", m_before.objects[i].name) + " removed");
        for (std::size_t i = 0; i < m_after.objects.size(); ++i) {
            const auto before = m_objects.find(m_afterIDs.objects[i]);
            if (before == m_objects.end()) {
                m_lines.push_back(Named("object", m_after.objects[i].name) + " added");
            } else {
                Compare(m_before.objects[before->second], m_after.objects[i], {i});
            }
        }
    }

    template <class Entry>
    void AddDifferences(const std::string& what, const std::string& oldName, const Entry& before,
                        const Entry& now, std::vector<std::string_view> members,
                        const std::vector<std::size_t>& objects) {
        if (std::erase(members, "name") > 0) Add(oldName + " renamed to " + now.name, objects);
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
        return member == "table" ? object.tableName.has_value() : object.isIncluded;
    }
    static bool IsGiven(const ModelValue& value, std::string_view member) {
        return member == "field" ? value.fieldName.has_value() : value.isIncluded;
    }

    ObjectId BeforeID(const Position& object) const {
        return object ? m_beforeIDs.objects[*object] : NoObject;
    }
    /// -1 for an object that is new.
    ObjectId AfterID(const Position& object) const {
        if (!object) return NoObject;
        return m_afterIDs.objects[*object] == NoObject ? ObjectId{-1} : m_afterIDs.objects[*object];
    }

    void Compare(const ModelObject& before, const ModelObject& now, const std::vector<std::size_t>& objects) {
        std::vector<std::string_view> members = Differences(before, now);
        if (BeforeID(before.element) != AfterID(now.element)) members.push_back("element");
        if (InterfacesOf(m_before, m_beforeIDs, before) != InterfacesOf(m_after, m_afterIDs, now))
            members.push_back("interfaces");
        AddDifferences(Named("object", now.name), Named("object", before.name), before, now,
                       std::move(members), objects);
        if (now.primaryKeys.size() < before.primaryKeys.size() ||
            (!now.place.empty() && now.foreignKeys.size() < before.foreignKeys.size()))
            m_runsWork = true;
    }

    /// But for those of keys, which come and go with runs.
    static std::vector<InterfaceId> InterfacesOf(const Model& model, const ModelIDs& ids,
                                                 const ModelObject& object) {
        std::vector<InterfaceId> interfaces;
        for (const std::size_t interface : object.interfaces)
            if (model.interfaces[interface].name != repository::KeyInterfaceName(object.name))
                interfaces.push_back(ids.interfaces[interface]);
        return interfaces;
    }

    void Interfaces() {
        const std::set<ObjectId> objects(m_afterIDs.objects.begin(), m_afterIDs.objects.end());
        std::set<InterfaceId> known(m_afterIDs.interfaces.begin(), m_afterIDs.interfaces.end());
        for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
            if (!objects.contains(m_beforeIDs.objects[i])) continue;
            for (const InterfaceId id : InterfacesOf(m_before, m_beforeIDs, m_before.objects[i]))
                if (known.insert(id).second)
                    m_lines.push_back(Named("interface", m_before.interfaces[m_interfaces.at(id)].name) +
                                      " removed");
        }
        std::vector<std::vector<std::size_t>> users(m_after.interfaces.size());
        for (std::size_t i = 0; i < m_after.objects.size(); ++i)
            for (const std::size_t interface : m_after.objects[i].interfaces)
                users[interface].push_back(i);
        for (std::size_t i = 0; i < m_after.interfaces.size(); ++i) {
            const auto before = m_interfaces.find(m_afterIDs.interfaces[i]);
            if (before != m_interfaces.end()) Compare(before->second, i, users[i]);
        }
    }

    /// Values by identifier; keys come and go with runs.
    void Compare(std::size_t beforeIndex, std::size_t afterIndex, const std::vector<std::size_t>& users) {
        const ModelInterface& before = m_before.interfaces[beforeIndex];
        const ModelInterface& after = m_after.interfaces[afterIndex];
        Positions<ValueId> nowOf;
        Index(m_afterIDs.values[afterIndex], nowOf);
        const auto name = [](const ModelInterface& interface, const ModelValue& value) {
            return Named("value", interface.name + "." + value.name);
        };
        for (std::size_t i = 0; i < before.values.size(); ++i) {
            const ModelValue& value = before.values[i];
            const auto now = nowOf.find(m_beforeIDs.values[beforeIndex][i]);
            if (now == nowOf.end() && !IsKeyValue(before, value))
                Add(name(before, value) + " removed", users);
            if (now == nowOf.end() || IsKeyValue(before, value)) continue;
            const ModelValue& other = after.values[now->second];
            std::vector<std::string_view> members = Differences(value, other);
            if (BeforeID(value.child) != AfterID(other.child)) members.push_back("child");
            AddDifferences(name(after, other), name(before, value), value, other, std::move(members), users);
        }
        std::vector<ValueId> order = m_afterIDs.values[afterIndex];
        std::erase(order, ValueId());
        if (!std::ranges::is_sorted(order))
            Add(Named("interface", after.name) + " changed: the order of its values", users);
        for (std::size_t i = 0; i < after.values.size(); ++i)
            if (m_afterIDs.values[afterIndex][i] == ValueId() && !IsKeyValue(after, after.values[i]))
                Add(name(after, after.values[i]) + " added", users);
    }

    const Model& m_before;
    const Model& m_after;
    const ModelIDs& m_beforeIDs;
    const ModelIDs& m_afterIDs;
    Positions<ObjectId> m_objects;                                    ///< of m_before
    Positions<InterfaceId> m_interfaces;                              ///< likewise
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
    compare("name", before.name == now.name);
    compare("type", before.dataType == now.dataType);
    compare("maxLength", Length(before) == Length(now));
    compare("default", before.defaultVal == now.defaultVal);
    compare("autoNumber", before.isAutoNumber == now.isAutoNumber);
    compare("field", before.fieldName == now.fieldName);
    compare("included", before.isIncluded == now.isIncluded);
    compare("readOnly", before.isReadOnly == now.isReadOnly);
    compare("description", before.description == now.description);
    compare("caption", before.caption == now.caption);
    compare("translation", before.translation == now.translation);
    compare("maxValue", before.maxValue == now.maxValue);
    compare("minValue", before.minValue == now.minValue);
    compare("vid", !now.vid || before.vid == now.vid);
    compare("tags", before.tags == now.tags);
    return members;
}

std::vector<std::string_view> Differences(const ModelObject& before, const ModelObject& now) {
    std::vector<std::string_view> members;
    if (before.name != now.name) members.push_back("name");
    if (before.guid != now.guid) members.push_back("guid");
    if (before.tableName != now.tableName) members.push_back("table");
    if (before.isIncluded != now.isIncluded) members.push_back("included");
    return members;
}

std::vector<std::string> DescribeChanges(const StoredModel& before, const StoredModel& after) {
    return Changes(before, after).Describe();
}

}  // namespace korvex::cli
