#include "scriptgen/migration/rename_order.h"

#include "automation/text.h"

#include <algorithm>
#include <set>

namespace korvex::scriptgen {

using automation::ToUpperAscii;

namespace {

class RenameOrder {
  public:
    explicit RenameOrder(std::span<const NamedThing> things) {
        for (const NamedThing& thing : things) {
            m_taken.insert(ToUpperAscii(thing.before));
            m_reserved.insert(ToUpperAscii(thing.now));
        }
        for (std::size_t i = 0; i < things.size(); ++i)
            if (things[i].isRenamed || things[i].makesRoom)
                m_wanted.push_back({things[i].before, things[i].isRenamed ? things[i].now : FreeName(), i});
    }

    std::vector<NameChange> Order() {
        while (!m_wanted.empty()) {
            const auto possible = std::ranges::find_if(m_wanted, [&](const NameChange& change) {
                return !m_taken.contains(ToUpperAscii(change.to));
            });
            if (possible != m_wanted.end()) {
                Rename(*possible);
                m_wanted.erase(possible);
            } else {
                NameChange& first = m_wanted.front();
                const std::string free = FreeName();
                Rename({first.from, free, first.thing});
                first.from = free;
            }
        }
        return std::move(m_ordered);
    }

  private:
    void Rename(const NameChange& change) {
        m_taken.erase(ToUpperAscii(change.from));
        m_taken.insert(ToUpperAscii(change.to));
        m_ordered.push_back(change);
    }
    std::string FreeName() {
        for (int number = 1;; ++number) {
            std::string name = "korvex_" + std::to_string(number);
            const std::string folded = ToUpperAscii(name);
            if (!m_taken.contains(folded) && m_reserved.insert(folded).second) return name;
        }
    }

    std::set<std::string> m_taken;
    std::set<std::string> m_reserved;
    std::vector<NameChange> m_wanted;
    std::vector<NameChange> m_ordered;
};

}  // namespace

std::vector<NameChange> OrderRenames(std::span<const NamedThing> things) {
    return RenameOrder(things).Order();
}

}  // namespace korvex::scriptgen
