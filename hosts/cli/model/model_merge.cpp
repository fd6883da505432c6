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
            if (!value.vid) continue;
            m_taken.insert(*value.vid);
            if (*value.vid <= repository::LowestKeyVid) m_last = std::max(m_last, *value.vid);
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

class Merger {
  public:
    Merger(const StoredModel& stored, const Model& now, std::span<const std::string> removed)
        : m_stored(stored), m_before(stored.model), m_now(now) {
        m_replaced.insert(removed.begin(), removed.end());
        for (const ModelDefinition& definition : now.definitions)
            m_replaced.insert(definition.storage);
    }

    StoredModel Merge() {
        m_match = MatchModels(m_before, Scope(), m_now);
        FindWhatStays();
        RefuseTakenGuids();
        m_result.model.file = m_now.file;
        PlaceObjects();
        PlaceInterfaces();
        for (std::size_t i = 0; i < m_before.objects.size(); ++i)
            if (m_isKept[i]) FillKept(i);
        for (std::size_t i = 0; i < m_now.objects.size(); ++i)
            FillNew(i);
        DropUnusedKeys();
        MergeDefinitions();
        return std::move(m_result);
    }

  private:
    using Map = std::vector<std::optional<std::size_t>>;

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
            if (m_isKept[i] && !m_before.objects[i].guid.empty()) guids.emplace(m_before.objects[i].guid, i);
        for (std::size_t i = 0; i < m_now.objects.size(); ++i) {
            const ModelObject& object = m_now.objects[i];
            const std::optional<std::size_t> before = m_match.objects[i];
            const auto taken = guids.find(object.guid);
            if (taken == guids.end() || (before && m_before.objects[*before].guid == object.guid)) continue;
            throw automation::Error(automation::InvalidProcedureCall,
                                    PlaceText(m_now, object.place, "guid") + "the repository's object " +
                                        automation::Quoted(m_before.objects[taken->second].name) +
                                        " already has the guid " + object.guid + "; nothing was imported.");
        }
    }

    /// Objects of before keep their order, new ones stand behind.
    void PlaceObjects() {
        m_objectOfNow.resize(m_now.objects.size());
        m_objectOfBefore.resize(m_before.objects.size());
        Map nowOf(m_before.objects.size());
        for (std::size_t i = 0; i < m_now.objects.size(); ++i)
            if (m_match.objects[i]) nowOf[*m_match.objects[i]] = i;
        for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
            if (!m_isKept[i] && !nowOf[i]) continue;
            m_objectOfBefore[i] = m_result.model.objects.size();
            if (nowOf[i]) m_objectOfNow[*nowOf[i]] = m_objectOfBefore[i];
            m_result.model.objects.emplace_back();
            m_result.ids.objects.push_back(m_stored.ids.objects[i]);
        }
        for (std::optional<std::size_t>& place : m_objectOfNow) {
            if (place) continue;
            place = m_result.model.objects.size();
            m_result.model.objects.emplace_back();
            m_result.ids.objects.push_back(repository::NoObject);
        }
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
            if (!m_objectOfBefore[i]) continue;
            for (const ModelForeignKey& key : m_before.objects[i].foreignKeys)
                if (IsOthers(key))
                    kept[key.value.interface] = std::max(kept[key.value.interface], Kept::OthersKeys);
        }
        return kept;
    }

    /// A reference to an object that the model says nothing of.
    bool IsOthers(const ModelForeignKey& key) const { return m_isKept[key.object]; }

    void PlaceInterfaces() {
        m_interfaceOfNow.resize(m_now.interfaces.size());
        m_valuesOfNow.resize(m_now.interfaces.size());
        m_interfaceOfBefore.resize(m_before.interfaces.size());
        m_valuesOfBefore.resize(m_before.interfaces.size());
        Map nowOf(m_before.interfaces.size());
        for (std::size_t i = 0; i < m_now.interfaces.size(); ++i)
            if (m_match.interfaces[i]) nowOf[*m_match.interfaces[i]] = i;
        const std::vector<Kept> kept = KeptInterfaces();
        for (std::size_t i = 0; i < m_before.interfaces.size(); ++i)
            if (kept[i] != Kept::Nothing || nowOf[i])
                AddInterface(i, nowOf[i], !nowOf[i] && kept[i] == Kept::All);
        for (std::size_t i = 0; i < m_now.interfaces.size(); ++i)
            if (!m_match.interfaces[i]) AddInterface(std::nullopt, i, false);
    }

    void AddInterface(std::optional<std::size_t> before, std::optional<std::size_t> now, bool isWhole) {
        const std::size_t position = m_result.model.interfaces.size();
        ModelInterface& result = m_result.model.interfaces.emplace_back();
        std::vector<repository::ValueId>& ids = m_result.ids.values.emplace_back();
        m_result.ids.interfaces.push_back(before ? m_stored.ids.interfaces[*before]
                                                 : repository::InterfaceId());
        VidNumbering numbering;
        if (before) {
            m_interfaceOfBefore[*before] = position;
            m_valuesOfBefore[*before].resize(m_before.interfaces[*before].values.size());
            numbering.Take(m_before.interfaces[*before]);
        }
        if (now) {
            m_interfaceOfNow[*now] = position;
            m_valuesOfNow[*now].resize(m_now.interfaces[*now].values.size());
            numbering.Take(m_now.interfaces[*now]);
        }
        const ModelInterface& source = now ? m_now.interfaces[*now] : m_before.interfaces[*before];
        result.name = source.name;
        result.place = source.place;
        for (const auto& [old, recent] : ValuesInOrder(before, now, isWhole)) {
            const ModelValue* known = old ? &m_before.interfaces[*before].values[*old] : nullptr;
            if (known != nullptr) m_valuesOfBefore[*before][*old] = result.values.size();
            ids.push_back(known != nullptr ? m_stored.ids.values[*before][*old] : repository::ValueId());
            if (!recent) {
                ModelValue& value = result.values.emplace_back(*known);
                if (value.child) value.child = m_objectOfBefore[*value.child];
                continue;
            }
            const std::optional<std::int32_t> given = m_now.interfaces[*now].values[*recent].vid;
            AddValue(result, *now, *recent,
                     given              ? *given
                     : known != nullptr ? known->vid.value_or(0)
                                        : numbering.Next());
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

    void AddValue(ModelInterface& result, std::size_t interface, std::size_t index, std::int32_t vid) {
        m_valuesOfNow[interface][index] = result.values.size();
        ModelValue& value = result.values.emplace_back(m_now.interfaces[interface].values[index]);
        if (!value.vid) value.vid = vid;
        if (value.child) value.child = m_objectOfNow[*value.child];
    }

    /// Whether an object refers by the value to one that the model says nothing of.
    bool IsOthersKey(const ModelValueRef& ref) {
        if (m_othersKeys.empty()) {
            m_othersKeys.resize(m_before.interfaces.size());
            for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
                if (!m_objectOfBefore[i]) continue;
                for (const ModelForeignKey& key : m_before.objects[i].foreignKeys)
                    if (IsOthers(key)) m_othersKeys[key.value.interface].insert(key.value.value);
            }
        }
        return m_othersKeys[ref.interface].contains(ref.value);
    }

    std::optional<ModelValueRef> OfBefore(const ModelValueRef& ref) const {
        const std::optional<std::size_t> interface = m_interfaceOfBefore[ref.interface];
        const std::optional<std::size_t> value =
            interface ? m_valuesOfBefore[ref.interface][ref.value] : std::nullopt;
        return value ? std::optional(ModelValueRef{*interface, *value}) : std::nullopt;
    }
    ModelValueRef OfNow(const ModelValueRef& ref) const {
        return {*m_interfaceOfNow[ref.interface], *m_valuesOfNow[ref.interface][ref.value]};
    }

    void KeepForeignKey(ModelObject& object, const ModelForeignKey& key) const {
        const std::optional<ModelValueRef> value = OfBefore(key.value);
        const std::optional<ModelValueRef> target = OfBefore(key.key);
        if (!value || !target || !m_objectOfBefore[key.object]) return;
        object.foreignKeys.push_back({*value, *m_objectOfBefore[key.object], *target, key.guid, {}});
    }

    /// An object with what it is made of at its new positions; its keys stay.
    static ModelObject Moved(ModelObject object, const Map& objects, const Map& interfaces) {
        if (object.element) object.element = objects[*object.element];
        for (std::size_t& interface : object.interfaces)
            interface = *interfaces[interface];
        return object;
    }

    /// An object that the model says nothing of, as far as what it refers to is still there.
    void FillKept(std::size_t index) {
        const ModelObject& before = m_before.objects[index];
        ModelObject object = Moved(before, m_objectOfBefore, m_interfaceOfBefore);
        object.primaryKeys.clear();
        for (const ModelPrimaryKey& key : before.primaryKeys)
            if (const auto value = OfBefore(key.value)) object.primaryKeys.push_back({*value, key.seq, {}});
        object.foreignKeys.clear();
        for (const ModelForeignKey& key : before.foreignKeys)
            KeepForeignKey(object, key);
        m_result.model.objects[*m_objectOfBefore[index]] = std::move(object);
    }

    void FillNew(std::size_t index) {
        ModelObject object = Moved(m_now.objects[index], m_objectOfNow, m_interfaceOfNow);
        for (ModelPrimaryKey& key : object.primaryKeys)
            key.value = OfNow(key.value);
        for (ModelForeignKey& key : object.foreignKeys)
            key = {OfNow(key.value), *m_objectOfNow[key.object], OfNow(key.key), key.guid, key.place};
        if (m_match.objects[index]) KeepOthersKeys(object, m_before.objects[*m_match.objects[index]]);
        m_result.model.objects[*m_objectOfNow[index]] = std::move(object);
    }

    void KeepOthersKeys(ModelObject& object, const ModelObject& before) const {
        for (const ModelForeignKey& key : before.foreignKeys) {
            if (!IsOthers(key)) continue;
            const std::size_t count = object.foreignKeys.size();
            KeepForeignKey(object, key);
            if (object.foreignKeys.size() == count) continue;
            const std::size_t interface = object.foreignKeys.back().value.interface;
            if (std::ranges::find(object.interfaces, interface) == object.interfaces.end())
                object.interfaces.push_back(interface);
        }
    }

    /// Values of foreign keys whose parents are gone, in objects that stay for others.
    void DropUnusedKeys() {
        std::vector<std::unordered_set<std::size_t>> used(m_result.model.interfaces.size());
        for (const ModelObject& object : m_result.model.objects) {
            for (const ModelPrimaryKey& key : object.primaryKeys)
                used[key.value.interface].insert(key.value.value);
            for (const ModelForeignKey& key : object.foreignKeys)
                used[key.value.interface].insert(key.value.value);
        }
        std::vector<std::vector<std::size_t>> gone(m_result.model.interfaces.size());
        for (std::size_t i = 0; i < m_before.objects.size(); ++i) {
            if (!m_isKept[i]) continue;
            for (const ModelForeignKey& key : m_before.objects[i].foreignKeys) {
                const std::optional<ModelValueRef> value = OfBefore(key.value);
                if (!value || used[value->interface].contains(value->value)) continue;
                const ModelInterface& interface = m_result.model.interfaces[value->interface];
                if (IsKeyValue(interface, interface.values[value->value]))
                    gone[value->interface].push_back(value->value);
            }
        }
        for (std::size_t i = 0; i < gone.size(); ++i)
            if (!gone[i].empty()) DropValues(i, std::move(gone[i]));
    }

    void DropValues(std::size_t interface, std::vector<std::size_t> gone) {
        std::ranges::sort(gone);
        gone.erase(std::unique(gone.begin(), gone.end()), gone.end());
        for (auto value = gone.rbegin(); value != gone.rend(); ++value) {
            const auto offset = static_cast<std::ptrdiff_t>(*value);
            std::vector<ModelValue>& values = m_result.model.interfaces[interface].values;
            values.erase(values.begin() + offset);
            m_result.ids.values[interface].erase(m_result.ids.values[interface].begin() + offset);
        }
        const auto move = [&](ModelValueRef& ref) {
            if (ref.interface != interface) return;
            ref.value -= static_cast<std::size_t>(
                std::ranges::count_if(gone, [&](std::size_t value) { return value < ref.value; }));
        };
        for (ModelObject& object : m_result.model.objects) {
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
                m_result.model.definitions.push_back({before.storage, *m_objectOfBefore[before.root], {}});
            } else if (now != m_now.definitions.end() && placed.insert(before.storage).second) {
                AddDefinition(*now);
            }
        }
        for (const ModelDefinition& now : m_now.definitions)
            if (placed.insert(now.storage).second) AddDefinition(now);
    }

    void AddDefinition(const ModelDefinition& now) {
        m_result.model.definitions.push_back({now.storage, *m_objectOfNow[now.root], now.place});
    }

    const StoredModel& m_stored;
    const Model& m_before;
    const Model& m_now;
    std::unordered_set<std::string> m_replaced;  ///< storage names
    std::vector<bool> m_isLoose;                 ///< objects of before that no definition has
    std::vector<bool> m_isKept;                  ///< objects of before that stay without being the model's
    std::vector<std::unordered_set<std::size_t>> m_othersKeys;  ///< values of before, by interface
    ModelMatch m_match;
    // Positions in the result, where there is one.
    Map m_objectOfBefore;
    Map m_objectOfNow;
    Map m_interfaceOfBefore;
    Map m_interfaceOfNow;
    std::vector<Map> m_valuesOfBefore;
    std::vector<Map> m_valuesOfNow;
    StoredModel m_result;
};

}  // namespace

StoredModel MergeModel(const StoredModel& before, const Model& model, std::span<const std::string> removed) {
    return Merger(before, model, removed).Merge();
}

}  // namespace korvex::cli
