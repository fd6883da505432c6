#include "hosts/cli/model/model_merge.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/model/model_match.h"
#include "repository/key_values.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace korvex::cli {

namespace {

/// Gives values that have no number the next free ones of their interface, behind the highest one that is not
/// a key's.
class VidNumbering {
  public:
    void Take(const ModelInterface& interface) {
        for (const ModelValue& value : interface.values) {
            if (!value.isNumbered) continue;
            m_taken.insert(value.VID);
            if (value.VID <= repository::LowestKeyVid) m_last = std::max(m_last, value.VID);
        }
    }

    std::int32_t Next() {
        do {
            ++m_last;
        } while (repository::IsKeyVid(m_last) || !m_taken.insert(m_last).second);
        return m_last;
    }

  private:
    std::int32_t m_last = 0;
    std::unordered_set<std::int32_t> m_taken;
};

using Map = std::vector<std::optional<std::size_t>>;

/// Where the entries of a model stand in the result of the merge; nothing for those that are not there.
struct Places {
    explicit Places(const Model& model) : objects(model.objects.size()), interfaces(model.interfaces.size()) {
        for (const ModelInterface& interface : model.interfaces)
            values.emplace_back(interface.values.size());
    }

    std::optional<ModelValueRef> Of(const ModelValueRef& ref) const {
        const std::optional<std::size_t> interface = interfaces[ref.interface];
        const std::optional<std::size_t> value = values[ref.interface][ref.value];
        return interface && value ? std::optional(ModelValueRef{*interface, *value}) : std::nullopt;
    }
    std::optional<ModelForeignKey> Of(const ModelForeignKey& key) const {
        const std::optional<ModelValueRef> value = Of(key.value);
        const std::optional<ModelValueRef> target = Of(key.key);
        const std::optional<std::size_t> object = objects[key.object];
        if (!value || !target || !object) return std::nullopt;
        return ModelForeignKey{*value, *object, *target, key.guid, key.place};
    }
    /// The object with what it refers to, as far as that is there.
    ModelObject Of(const ModelObject& object) const {
        ModelObject placed = object;
        if (object.element) placed.element = objects[*object.element];
        for (std::size_t& interface : placed.interfaces)
            interface = *interfaces[interface];
        placed.primaryKeys.clear();
        for (const ModelPrimaryKey& key : object.primaryKeys)
            if (const auto value = Of(key.value)) placed.primaryKeys.push_back({*value, key.seq, key.place});
        placed.foreignKeys.clear();
        for (const ModelForeignKey& key : object.foreignKeys)
            if (const auto there = Of(key)) placed.foreignKeys.push_back(*there);
        return placed;
    }

    Map objects;
    Map interfaces;
    std::vector<Map> values;  ///< by interface
};

/// The other way round: who has which of `count` positions.
Map Reversed(const Map& positions, std::size_t count) {
    Map reversed(count);
    for (std::size_t i = 0; i < positions.size(); ++i)
        if (positions[i]) reversed[*positions[i]] = i;
    return reversed;
}

class Merger {
  public:
    Merger(const Model& before, const Model& now, std::span<const std::string> removed)
        : m_before(before), m_now(now), m_ofBefore(before), m_ofNow(now) {
        m_replaced.insert(removed.begin(), removed.end());
        for (const ModelDefinition& definition : now.definitions)
            m_replaced.insert(definition.storage);
    }

    Model Merge() {
        m_match = MatchModels(m_before, Scope(), m_now);
        FindWhatStays();
        RefuseTakenGuids();
        m_result.file = m_now.file;
        PlaceObjects();
        PlaceInterfaces();
        for (std::size_t i = 0; i < m_before.objects.size(); ++i)
            if (m_isKept[i]) m_result.objects[*m_ofBefore.objects[i]] = m_ofBefore.Of(m_before.objects[i]);
        for (std::size_t i = 0; i < m_now.objects.size(); ++i)
            PlaceNew(i);
        DropUnusedKeys();
        MergeDefinitions();
        return std::move(m_result);
    }

  private:
    bool IsReplaced(const ModelDefinition& definition) const {
        return m_replaced.contains(definition.storage);
    }

    /// Names tell the objects of the definitions that are replaced, and those of no definition.
    std::vector<bool> Scope() {
        std::vector<std::size_t> replaced;
        std::vector<std::size_t> all;
        for (const ModelDefinition& definition : m_before.definitions) {
            all.push_back(definition.root);
            if (IsReplaced(definition)) replaced.push_back(definition.root);
        }
        m_isLoose = Beneath(m_before, all);
        m_isLoose.flip();
        std::vector<bool> scope = Beneath(m_before, replaced);
        for (std::size_t i = 0; i < scope.size(); ++i)
            scope[i] = scope[i] || m_isLoose[i];
        return scope;
    }

    /// Objects that are none of the model's, but that others, or nobody at all, had.
    void FindWhatStays() {
        std::vector<bool> isMatched(m_before.objects.size());
        for (const auto& before : m_match.objects)
            if (before) isMatched[*before] = true;
        std::vector<std::size_t> starts;
        for (const ModelDefinition& definition : m_before.definitions)
            if (!IsReplaced(definition)) starts.push_back(definition.root);
        for (std::size_t i = 0; i < m_isLoose.size(); ++i)
            if (m_isLoose[i]) starts.push_back(i);
        // What is beneath an object of the model is the model's.
        m_isKept = Beneath(m_before, starts, isMatched);
    }

    void RefuseTakenGuids() const {
        std::unordered_map<std::string, std::size_t> guids;
        for (std::size_t i = 0; i < m_before.objects.size(); ++i)
            if (m_isKept[i] && !m_before.objects[i].Guid.empty()) guids.emplace(m_before.objects[i].Guid, i);
        for (std::size_t i = 0; i < m_now.objects.size(); ++i) {
            const ModelObject& object = m_now.objects[i];
            const std::optional<std::size_t> before = m_match.objects[i];
            const auto taken = guids.find(object.Guid);
            if (taken == guids.end() || (before && m_before.objects[*before].Guid == object.Guid)) continue;
            RefuseGuid(m_now, object, m_before.objects[taken->second].Name);
        }
    }

    /// Objects of before keep their order, new ones stand behind.
    void PlaceObjects() {
        const Map nowOf = Reversed(m_match.objects, m_before.objects.size());
        std::size_t count = 0;
        for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
            if (!m_isKept[i] && !nowOf[i]) continue;
            m_ofBefore.objects[i] = count++;
            if (nowOf[i]) m_ofNow.objects[*nowOf[i]] = m_ofBefore.objects[i];
        }
        for (std::optional<std::size_t>& place : m_ofNow.objects)
            if (!place) place = count++;
        m_result.objects.resize(count);
    }

    enum class Kept : std::uint8_t { Nothing, OthersKeys, All };

    /// What stays of interfaces that the model does not have.
    std::vector<Kept> KeptInterfaces() const {
        std::vector<Kept> kept(m_before.interfaces.size(), Kept::All);
        for (const ModelObject& object : m_before.objects)
            for (const std::size_t interface : object.interfaces)
                kept[interface] = Kept::Nothing;
        for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
            if (m_isKept[i])
                for (const std::size_t interface : m_before.objects[i].interfaces)
                    kept[interface] = Kept::All;
            if (!m_ofBefore.objects[i]) continue;
            for (const ModelForeignKey& key : m_before.objects[i].foreignKeys)
                if (IsOthers(key))
                    kept[key.value.interface] = std::max(kept[key.value.interface], Kept::OthersKeys);
        }
        return kept;
    }

    /// A reference to an object that the model says nothing of.
    bool IsOthers(const ModelForeignKey& key) const { return m_isKept[key.object]; }

    void PlaceInterfaces() {
        const Map nowOf = Reversed(m_match.interfaces, m_before.interfaces.size());
        const std::vector<Kept> kept = KeptInterfaces();
        for (std::size_t i = 0; i < m_before.interfaces.size(); ++i)
            if (kept[i] != Kept::Nothing || nowOf[i])
                AddInterface(i, nowOf[i], !nowOf[i] && kept[i] == Kept::All);
        for (std::size_t i = 0; i < m_now.interfaces.size(); ++i)
            if (!m_match.interfaces[i]) AddInterface(std::nullopt, i, false);
    }

    void AddInterface(std::optional<std::size_t> before, std::optional<std::size_t> now, bool isWhole) {
        const ModelInterface none;
        const ModelInterface& old = before ? m_before.interfaces[*before] : none;
        const ModelInterface& recent = now ? m_now.interfaces[*now] : none;
        if (before) m_ofBefore.interfaces[*before] = m_result.interfaces.size();
        if (now) m_ofNow.interfaces[*now] = m_result.interfaces.size();
        VidNumbering numbering;
        numbering.Take(old);
        numbering.Take(recent);
        ModelInterface& result = m_result.interfaces.emplace_back();
        result.InterfaceID = old.InterfaceID;
        result.Name = now ? recent.Name : old.Name;
        result.place = recent.place;
        for (const auto& [known, given] : ValuesInOrder(before, now, isWhole)) {
            if (known) m_ofBefore.values[*before][*known] = result.values.size();
            if (given) m_ofNow.values[*now][*given] = result.values.size();
            ModelValue& value =
                result.values.emplace_back(given ? recent.values[*given] : old.values[*known]);
            if (value.child) value.child = (given ? m_ofNow : m_ofBefore).objects[*value.child];
            value.ValueID = known ? old.values[*known].ValueID : repository::ValueId();
            if (!value.isNumbered) value.VID = known ? old.values[*known].VID : numbering.Next();
            value.isNumbered = true;
        }
    }

    using ValuePair = std::pair<std::optional<std::size_t>, std::optional<std::size_t>>;  ///< before, now

    /// The values of an interface as the model has them; others that stay, behind those they stood behind.
    std::vector<ValuePair> ValuesInOrder(std::optional<std::size_t> before, std::optional<std::size_t> now,
                                         bool isWhole) {
        std::vector<ValuePair> order;
        std::unordered_set<std::size_t> paired;
        for (std::size_t i = 0; now && i < m_now.interfaces[*now].values.size(); ++i) {
            const std::optional<std::size_t> old = before ? m_match.values[*now][i] : std::nullopt;
            order.emplace_back(old, i);
            if (old) paired.insert(*old);
        }
        for (std::size_t i = 0; before && i < m_before.interfaces[*before].values.size(); ++i) {
            if (paired.contains(i) || (!isWhole && !IsOthersKey({*before, i}))) continue;
            auto place = order.end();
            while (place != order.begin() && (!(place - 1)->first || *(place - 1)->first > i))
                --place;
            order.insert(place, {i, std::nullopt});
        }
        return order;
    }

    /// Whether an object refers by the value to one that the model says nothing of.
    bool IsOthersKey(const ModelValueRef& ref) {
        if (m_othersKeys.empty()) {
            m_othersKeys.resize(m_before.interfaces.size());
            for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
                if (!m_ofBefore.objects[i]) continue;
                for (const ModelForeignKey& key : m_before.objects[i].foreignKeys)
                    if (IsOthers(key)) m_othersKeys[key.value.interface].insert(key.value.value);
            }
        }
        return m_othersKeys[ref.interface].contains(ref.value);
    }

    void PlaceNew(std::size_t index) {
        ModelObject& object = m_result.objects[*m_ofNow.objects[index]] = m_ofNow.Of(m_now.objects[index]);
        object.ObjectID = {};
        if (!m_match.objects[index]) return;
        const ModelObject& before = m_before.objects[*m_match.objects[index]];
        object.ObjectID = before.ObjectID;
        for (const ModelForeignKey& key : before.foreignKeys) {
            const std::optional<ModelForeignKey> kept = IsOthers(key) ? m_ofBefore.Of(key) : std::nullopt;
            if (!kept) continue;
            object.foreignKeys.push_back(*kept);
            if (std::ranges::find(object.interfaces, kept->value.interface) == object.interfaces.end())
                object.interfaces.push_back(kept->value.interface);
        }
    }

    /// Values of foreign keys whose parents are gone, in objects that stay for others.
    void DropUnusedKeys() {
        std::vector<std::unordered_set<std::size_t>> unused(m_result.interfaces.size());
        for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
            if (!m_isKept[i]) continue;
            for (const ModelForeignKey& key : m_before.objects[i].foreignKeys) {
                const std::optional<ModelValueRef> value = m_ofBefore.Of(key.value);
                if (!value) continue;
                const ModelInterface& interface = m_result.interfaces[value->interface];
                if (IsKeyValue(interface, interface.values[value->value]))
                    unused[value->interface].insert(value->value);
            }
        }
        for (const ModelObject& object : m_result.objects) {
            for (const ModelPrimaryKey& key : object.primaryKeys)
                unused[key.value.interface].erase(key.value.value);
            for (const ModelForeignKey& key : object.foreignKeys)
                unused[key.value.interface].erase(key.value.value);
        }
        for (std::size_t i = 0; i < unused.size(); ++i)
            if (!unused[i].empty()) DropValues(i, unused[i]);
    }

    void DropValues(std::size_t interface, const std::unordered_set<std::size_t>& gone) {
        std::vector<ModelValue> stay;
        std::vector<std::size_t> placeOf;
        std::vector<ModelValue>& values = m_result.interfaces[interface].values;
        for (std::size_t i = 0; i < values.size(); ++i) {
            placeOf.push_back(stay.size());
            if (!gone.contains(i)) stay.push_back(std::move(values[i]));
        }
        values = std::move(stay);
        const auto move = [&](ModelValueRef& ref) {
            if (ref.interface == interface) ref.value = placeOf[ref.value];
        };
        for (ModelObject& object : m_result.objects) {
            for (ModelPrimaryKey& key : object.primaryKeys)
                move(key.value);
            for (ModelForeignKey& key : object.foreignKeys) {
                move(key.value);
                move(key.key);
            }
        }
    }

    void MergeDefinitions() {
        std::unordered_set<std::string> placed;
        const auto replacement = [&](const std::string& storage) {
            return std::ranges::find(m_now.definitions, storage, &ModelDefinition::storage);
        };
        for (const ModelDefinition& before : m_before.definitions) {
            const auto now = replacement(before.storage);
            if (!IsReplaced(before)) {
                m_result.definitions.push_back({before.storage, *m_ofBefore.objects[before.root], {}});
            } else if (now != m_now.definitions.end() && placed.insert(before.storage).second) {
                AddDefinition(*now);
            }
        }
        for (const ModelDefinition& now : m_now.definitions)
            if (placed.insert(now.storage).second) AddDefinition(now);
    }

    void AddDefinition(const ModelDefinition& now) {
        m_result.definitions.push_back({now.storage, *m_ofNow.objects[now.root], now.place});
    }

    const Model& m_before;
    const Model& m_now;
    std::unordered_set<std::string> m_replaced;  ///< storage names
    std::vector<bool> m_isLoose;                 ///< objects of before that no definition has
    std::vector<bool> m_isKept;                  ///< objects of before that stay without being the model's
    std::vector<std::unordered_set<std::size_t>> m_othersKeys;  ///< values of before, by interface
    ModelMatch m_match;
    Places m_ofBefore;
    Places m_ofNow;
    Model m_result;
};

}  // namespace

void RefuseGuid(const Model& model, const ModelObject& object, const std::string& owner) {
    throw automation::Error(automation::InvalidProcedureCall,
                            PlaceText(model, object.place, "guid") + "the repository's object " +
                                automation::Quoted(owner) + " already has the guid " + object.Guid +
                                "; nothing was imported.");
}

Model MergeModel(const Model& before, const Model& model, std::span<const std::string> removed) {
    return Merger(before, model, removed).Merge();
}

}  // namespace korvex::cli
