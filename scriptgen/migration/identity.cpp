#include "scriptgen/migration/identity.h"

#include "automation/text.h"
#include "repository/names.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <unordered_map>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;

namespace {

using Positions = std::vector<std::size_t>;

Positions AllOf(std::size_t count) {
    Positions positions(count);
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    return positions;
}

/// The entries of one kind that were found to be the same.
class Pairs {
  public:
    Pairs(std::size_t before, const IdentityMatch::Positions& given, std::size_t now)
        : m_beforeOf(given), m_nowOf(before) {
        m_beforeOf.resize(now);
        for (std::size_t i = 0; i < given.size(); ++i)
            if (given[i]) m_nowOf[*given[i]] = i;
    }

    /// False where one of both has its pair.
    bool Add(std::size_t before, std::size_t now) {
        if (m_beforeOf[now] || m_nowOf[before]) return false;
        m_beforeOf[now] = before;
        m_nowOf[before] = now;
        return true;
    }
    const IdentityMatch::Positions& BeforeOf() const noexcept { return m_beforeOf; }
    bool IsFree(bool isNow, std::size_t position) const {
        return isNow ? !m_beforeOf[position] : !m_nowOf[position];
    }

  private:
    IdentityMatch::Positions m_beforeOf, m_nowOf;
};

std::string InterfaceRole(const ObjectIdentity& object, const std::string& name) {
    if (EqualsIgnoreCase(name, object.name)) return "=";
    return EqualsIgnoreCase(name, repository::KeyInterfaceName(object.name)) ? "=keys" : name;
}

class Matcher {
  public:
    Matcher(const DefinitionIdentity& before, const DefinitionIdentity& now, const IdentityMatch& given)
        : m_before(before),
          m_now(now),
          m_objects(before.objects.size(), given.objects, now.objects.size()),
          m_interfaces(before.interfaces.size(), {}, now.interfaces.size()),
          m_values(before.values.size(), given.values, now.values.size()),
          m_isDone(now.interfaces.size()) {
        for (std::size_t i = 0; i < given.objects.size(); ++i)
            if (given.objects[i]) m_waiting.push_back(i);
    }

    IdentityMatch Match() {
        MatchObjects([](const ObjectIdentity& object) { return object.guid; });
        MatchObjects([](const ObjectIdentity& object) { return object.isNamed ? object.name : ""; });
        for (const auto& [storage, root] : m_now.roots)
            for (const auto& [other, before] : m_before.roots)
                if (storage == other) AddObjects(before, root);
        for (std::size_t i = 0; i < m_waiting.size(); ++i)  // pairing goes on adding to it
            MatchBeneath(m_waiting[i]);
        // A reference is known by both objects.
        for (const std::size_t now : m_waiting)
            MatchReferences(m_before.objects[BeforeOf(now)], m_now.objects[now]);
        MatchUnusedInterfaces();
        return {m_objects.BeforeOf(), m_interfaces.BeforeOf(), m_values.BeforeOf()};
    }

  private:
    std::size_t BeforeOf(std::size_t object) const { return *m_objects.BeforeOf()[object]; }

    void AddObjects(std::size_t before, std::size_t now) {
        if (m_objects.Add(before, now)) m_waiting.push_back(now);
    }

    /// Calls `add` with the free positions of both sides that alone have a key in common. A key is one that
    /// says something: not "", not 0.
    template <class KeyOf, class Add>
    void PairUnique(const Pairs& pairs, const Positions& before, const Positions& now, KeyOf keyOf, Add add) {
        const auto unique = [&](bool isNow) {
            std::map<decltype(keyOf(m_now, 0)), std::optional<std::size_t>> found;
            for (const std::size_t position : isNow ? now : before) {
                const auto key = keyOf(isNow ? m_now : m_before, position);
                if (!pairs.IsFree(isNow, position) || key == decltype(key){}) continue;
                const auto [entry, isFirst] = found.try_emplace(key, position);
                if (!isFirst) entry->second.reset();
            }
            return found;
        };
        const auto known = unique(false);
        for (const auto& [key, position] : unique(true))
            if (const auto same = known.find(key); position && same != known.end() && same->second)
                add(*same->second, *position);
    }

    template <class TextOf>
    void MatchObjects(TextOf textOf) {
        PairUnique(
            m_objects, AllOf(m_before.objects.size()), AllOf(m_now.objects.size()),
            [&](const DefinitionIdentity& side, std::size_t i) -> std::string {
                return textOf(side.objects[i]);
            },
            [this](std::size_t before, std::size_t now) { AddObjects(before, now); });
    }

    /// Pairs the interfaces and values of an object that has its pair, and what stands in the same place.
    void MatchBeneath(std::size_t index) {
        const ObjectIdentity& now = m_now.objects[index];
        const ObjectIdentity& before = m_before.objects[BeforeOf(index)];
        for (std::size_t i = 0; i < std::min(before.keys.size(), now.keys.size()); ++i)
            m_values.Add(before.keys[i], now.keys[i]);
        const auto addInterfaces = [this](std::size_t b, std::size_t n) { m_interfaces.Add(b, n); };
        PairUnique(
            m_interfaces, before.interfaces, now.interfaces,
            [&](const DefinitionIdentity& side, std::size_t i) {
                return InterfaceRole(&side == &m_now ? now : before, side.interfaces[i].name);
            },
            addInterfaces);
        const auto isLeft = [](const DefinitionIdentity&, std::size_t) { return true; };
        PairUnique(m_interfaces, before.interfaces, now.interfaces, isLeft, addInterfaces);
        for (const std::size_t interface_ : now.interfaces)
            MatchValues(interface_);
        if (before.element && now.element) AddObjects(*before.element, *now.element);
    }

    void MatchValues(std::size_t index) {
        const std::optional<std::size_t> same = m_interfaces.BeforeOf()[index];
        if (!same || m_isDone[index]) return;
        m_isDone[index] = true;
        const InterfaceIdentity& before = m_before.interfaces[*same];
        const InterfaceIdentity& now = m_now.interfaces[index];
        const auto add = [this](std::size_t b, std::size_t n) { m_values.Add(b, n); };
        if (!NumbersArePlaces(before, now))
            PairUnique(
                m_values, before.values, now.values,
                [](const DefinitionIdentity& side, std::size_t i) {
                    return side.values[i].isKey ? 0 : side.values[i].number;
                },
                add);
        PairUnique(
            m_values, before.values, now.values,
            [](const DefinitionIdentity& side, std::size_t i) {
                return side.values[i].isKey ? std::string() : side.values[i].name;
            },
            add);
        for (const std::size_t value : now.values) {
            const std::optional<std::size_t> pair = m_values.BeforeOf()[value];
            if (pair && m_before.values[*pair].child && m_now.values[value].child)
                AddObjects(*m_before.values[*pair].child, *m_now.values[value].child);
        }
    }

    /// Numbers that a definition did not give count its values from 1: a value put before others moves them.
    /// Where names say so, and one side counts, its numbers tell nothing.
    bool NumbersArePlaces(const InterfaceIdentity& before, const InterfaceIdentity& now) const {
        if (!before.countsOnly && !now.countsOnly) return false;
        std::unordered_map<std::string, const ValueIdentity*> named;
        for (const std::size_t value : before.values)
            named.emplace(m_before.values[value].name, &m_before.values[value]);
        return std::ranges::any_of(now.values, [&](std::size_t position) {
            const ValueIdentity& value = m_now.values[position];
            const auto other = named.find(value.name);
            return other != named.end() && !other->second->isGiven && !value.isGiven && !value.isKey &&
                   !other->second->isKey && other->second->number > 0 && value.number > 0 &&
                   other->second->number != value.number;
        });
    }

    void MatchReferences(const ObjectIdentity& before, const ObjectIdentity& now) {
        const auto match = [&](bool byName) {
            std::unordered_map<std::size_t, std::size_t> targets[2];
            Positions keys[2];
            for (const auto& [value, target] : before.references) {
                targets[0].emplace(value, target + 1);
                keys[0].push_back(value);
            }
            for (const auto& [value, target] : now.references) {
                const std::optional<std::size_t> same = m_objects.BeforeOf()[target];
                if (!same) continue;
                targets[1].emplace(value, *same + 1);
                keys[1].push_back(value);
            }
            PairUnique(
                m_values, keys[0], keys[1],
                [&](const DefinitionIdentity& side, std::size_t i) {
                    return std::pair(targets[&side == &m_now ? 1 : 0].at(i),
                                     byName ? side.values[i].name : std::string());
                },
                [this](std::size_t b, std::size_t n) { m_values.Add(b, n); });
        };
        match(true);
        match(false);
    }

    void MatchUnusedInterfaces() {
        const auto unused = [](const DefinitionIdentity& side) {
            Positions positions = AllOf(side.interfaces.size());
            std::vector<bool> isUsed(positions.size());
            for (const ObjectIdentity& object : side.objects)
                for (const std::size_t interface_ : object.interfaces)
                    isUsed[interface_] = true;
            std::erase_if(positions, [&](std::size_t i) { return isUsed[i]; });
            return positions;
        };
        PairUnique(
            m_interfaces, unused(m_before), unused(m_now),
            [](const DefinitionIdentity& side, std::size_t i) { return side.interfaces[i].name; },
            [this](std::size_t before, std::size_t now) {
                m_interfaces.Add(before, now);
                MatchValues(now);
            });
    }

    const DefinitionIdentity& m_before;
    const DefinitionIdentity& m_now;
    Pairs m_objects, m_interfaces, m_values;
    Positions m_waiting;         ///< paired objects of now
    std::vector<bool> m_isDone;  ///< interfaces of now whose values are paired
};

}  // namespace

IdentityMatch MatchDefinitions(const DefinitionIdentity& before, const DefinitionIdentity& now,
                               const IdentityMatch& given) {
    return Matcher(before, now, given).Match();
}

}  // namespace korvex::scriptgen
