#include "hosts/cli/model/model_match.h"

#include "repository/key_values.h"
#include "repository/names.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

namespace korvex::cli {

namespace {

using Positions = std::vector<std::size_t>;

/// The position of each text or number that stands once among `positions`.
template <class Key, class KeyOf>
std::map<Key, std::size_t> Unique(const Positions& positions, KeyOf keyOf) {
    std::map<Key, std::size_t> found;
    std::map<Key, int> uses;
    for (const std::size_t position : positions) {
        const std::optional<Key> key = keyOf(position);
        if (key && ++uses[*key] == 1) found.emplace(*key, position);
    }
    std::erase_if(found, [&](const auto& entry) { return uses[entry.first] > 1; });
    return found;
}

/// Calls `pair` with the positions of both sides that have one key in common.
template <class Key, class BeforeKey, class NowKey, class Pair>
void PairUnique(const Positions& before, BeforeKey beforeKey, const Positions& now, NowKey nowKey,
                Pair pair) {
    const std::map<Key, std::size_t> known = Unique<Key>(before, beforeKey);
    for (const auto& [key, position] : Unique<Key>(now, nowKey))
        if (const auto same = known.find(key); same != known.end()) pair(same->second, position);
}

std::optional<std::string> Text(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

/// What tells an interface from the others of its object; the object's own ones follow its name.
std::string InterfaceRole(const Model& model, const ModelObject& object, std::size_t interface) {
    const std::string& name = model.interfaces[interface].name;
    if (name == object.name) return "=";
    return name == repository::KeyInterfaceName(object.name) ? "=keys" : name;
}

class Matcher {
  public:
    Matcher(const Model& before, const std::vector<bool>& inScope, const Model& now)
        : m_before(before), m_inScope(inScope), m_now(now) {
        m_match.objects.resize(now.objects.size());
        m_match.interfaces.resize(now.interfaces.size());
        m_match.values.resize(now.interfaces.size());
        m_nowOfObject.resize(before.objects.size());
        m_nowOfInterface.resize(before.interfaces.size());
    }

    ModelMatch Match() {
        MatchGuids();
        MatchNames();
        MatchRoots();
        for (std::size_t i = 0; i < m_waiting.size(); ++i)  // pairing goes on adding to it
            MatchBeneath(m_waiting[i]);
        // A foreign key is known by both objects.
        for (const std::size_t now : m_waiting)
            PairKeys(m_before.objects[*m_match.objects[now]], m_now.objects[now]);
        MatchUnusedInterfaces();
        return std::move(m_match);
    }

  private:
    void PairObjects(std::size_t before, std::size_t now) {
        if (m_match.objects[now] || m_nowOfObject[before]) return;
        m_match.objects[now] = before;
        m_nowOfObject[before] = now;
        m_waiting.push_back(now);
    }

    static Positions Free(const ModelMatch::Positions& taken) {
        Positions free;
        for (std::size_t i = 0; i < taken.size(); ++i)
            if (!taken[i]) free.push_back(i);
        return free;
    }

    void MatchGuids() {
        PairUnique<std::string>(
            Free(m_nowOfObject), [this](std::size_t i) { return Text(m_before.objects[i].guid); },
            Free(m_match.objects), [this](std::size_t i) { return Text(m_now.objects[i].guid); },
            [this](std::size_t before, std::size_t now) { PairObjects(before, now); });
    }

    void MatchNames() {
        PairUnique<std::string>(
            Free(m_nowOfObject),
            [this](std::size_t i) { return m_inScope[i] ? Text(m_before.objects[i].name) : std::nullopt; },
            Free(m_match.objects), [this](std::size_t i) { return Text(m_now.objects[i].name); },
            [this](std::size_t before, std::size_t now) { PairObjects(before, now); });
    }

    void MatchRoots() {
        for (const ModelDefinition& now : m_now.definitions)
            for (const ModelDefinition& before : m_before.definitions)
                if (before.storage == now.storage) PairObjects(before.root, now.root);
    }

    /// Pairs the interfaces and values of an object that has its pair, and what stands in the same place.
    void MatchBeneath(std::size_t nowIndex) {
        const ModelObject& now = m_now.objects[nowIndex];
        const ModelObject& before = m_before.objects[*m_match.objects[nowIndex]];
        PairUnique<std::string>(
            before.interfaces, [&](std::size_t i) { return Text(InterfaceRole(m_before, before, i)); },
            now.interfaces, [&](std::size_t i) { return Text(InterfaceRole(m_now, now, i)); },
            [&](std::size_t b, std::size_t n) { PairInterfaces(b, n); });
        PairLastInterfaces(before, now);
        for (const std::size_t interface : now.interfaces)
            PairValues(interface);
        if (before.element && now.element) PairObjects(*before.element, *now.element);
    }

    void PairInterfaces(std::size_t before, std::size_t now) {
        if (m_match.interfaces[now] || m_nowOfInterface[before]) return;
        m_match.interfaces[now] = before;
        m_nowOfInterface[before] = now;
        m_match.values[now].resize(m_now.interfaces[now].values.size());
    }

    /// The only one of each side that is left was renamed.
    void PairLastInterfaces(const ModelObject& before, const ModelObject& now) {
        Positions left[2];
        for (const std::size_t i : before.interfaces)
            if (!m_nowOfInterface[i]) left[0].push_back(i);
        for (const std::size_t i : now.interfaces)
            if (!m_match.interfaces[i]) left[1].push_back(i);
        if (left[0].size() == 1 && left[1].size() == 1) PairInterfaces(left[0].front(), left[1].front());
    }

    bool IsKey(const Model& model, const ModelValueRef& ref) const {
        const ModelInterface& interface = model.interfaces[ref.interface];
        return IsKeyValue(interface, interface.values[ref.value]);
    }

    void PairKeyValues(const ModelValueRef& before, const ModelValueRef& now) {
        if (m_match.interfaces[now.interface] != before.interface) return;
        if (!IsKey(m_before, before) || !IsKey(m_now, now)) return;
        ModelMatch::Positions& pairs = m_match.values[now.interface];
        if (!pairs[now.value] && std::ranges::find(pairs, before.value) == pairs.end())
            pairs[now.value] = before.value;
    }

    void PairKeys(const ModelObject& before, const ModelObject& now) {
        if (before.primaryKeys.size() == 1 && now.primaryKeys.size() == 1)
            PairKeyValues(before.primaryKeys.front().value, now.primaryKeys.front().value);
        std::unordered_map<std::size_t, const ModelForeignKey*> keys;  // by the object referred to
        for (const ModelForeignKey& key : before.foreignKeys)
            keys.emplace(key.object, &key);
        for (const ModelForeignKey& key : now.foreignKeys) {
            const std::optional<std::size_t> target = m_match.objects[key.object];
            const auto same = target ? keys.find(*target) : keys.end();
            if (same != keys.end()) PairKeyValues(same->second->value, key.value);
        }
    }

    void PairValues(std::size_t nowIndex) {
        if (!m_match.interfaces[nowIndex] || !m_done.insert(nowIndex).second) return;
        const ModelInterface& now = m_now.interfaces[nowIndex];
        const ModelInterface& before = m_before.interfaces[*m_match.interfaces[nowIndex]];
        ModelMatch::Positions& pairs = m_match.values[nowIndex];
        ModelMatch::Positions taken(before.values.size());
        for (std::size_t i = 0; i < pairs.size(); ++i)
            if (pairs[i]) taken[*pairs[i]] = i;
        const auto pair = [&](std::size_t b, std::size_t n) {
            pairs[n] = b;
            taken[b] = n;
        };
        const auto number = [](const ModelInterface& interface) {
            return [&interface](std::size_t i) {
                const ModelValue& value = interface.values[i];
                return IsKeyValue(interface, value) ? std::nullopt : value.vid;
            };
        };
        const auto name = [](const ModelInterface& interface) {
            return [&interface](std::size_t i) {
                const ModelValue& value = interface.values[i];
                return IsKeyValue(interface, value) ? std::nullopt : std::optional(value.name);
            };
        };
        PairUnique<std::int32_t>(Free(taken), number(before), Free(pairs), number(now), pair);
        PairUnique<std::string>(Free(taken), name(before), Free(pairs), name(now), pair);
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            if (!pairs[i]) continue;
            const std::optional<std::size_t> child = before.values[*pairs[i]].child;
            if (child && now.values[i].child) PairObjects(*child, *now.values[i].child);
        }
    }

    void MatchUnusedInterfaces() {
        const auto unused = [](const Model& model) {
            std::vector<bool> isUsed(model.interfaces.size());
            for (const ModelObject& object : model.objects)
                for (const std::size_t interface : object.interfaces)
                    isUsed[interface] = true;
            Positions positions;
            for (std::size_t i = 0; i < isUsed.size(); ++i)
                if (!isUsed[i]) positions.push_back(i);
            return positions;
        };
        PairUnique<std::string>(
            unused(m_before), [this](std::size_t i) { return Text(m_before.interfaces[i].name); },
            unused(m_now), [this](std::size_t i) { return Text(m_now.interfaces[i].name); },
            [this](std::size_t before, std::size_t now) {
                PairInterfaces(before, now);
                PairValues(now);
            });
    }

    const Model& m_before;
    const std::vector<bool>& m_inScope;
    const Model& m_now;
    ModelMatch m_match;
    ModelMatch::Positions m_nowOfObject;     ///< by position in m_before
    ModelMatch::Positions m_nowOfInterface;  ///< likewise
    Positions m_waiting;                     ///< paired objects of m_now
    std::set<std::size_t> m_done;            ///< interfaces whose values are paired
};

}  // namespace

bool IsKeyValue(const ModelInterface& interface, const ModelValue& value) {
    return value.vid && repository::IsKeyValue(*value.vid, interface.name);
}

ModelMatch MatchModels(const Model& before, const std::vector<bool>& inScope, const Model& now) {
    return Matcher(before, inScope, now).Match();
}

}  // namespace korvex::cli
