#include "scriptgen/migration/rename_order.h"

#include "automation/text.h"

#include <algorithm>
#include <set>

namespace korvex::scriptgen {

using automation::ToUpperAscii;

namespace {

class RenameOrder {
  public:
    RenameOrder(std::span<const std::string> taken, std::span<const std::string> reserved) {
        for (const std::string& name : taken)
            m_taken.insert(ToUpperAscii(name));
        for (const std::string& name : reserved)
            m_reserved.insert(ToUpperAscii(name));
    }

    std::vector<NameChange> Order(std::vector<NameChange> wanted) {
        for (NameChange& change : wanted)
            if (change.to.empty()) change.to = FreeName();
        while (!wanted.empty()) {
            const auto possible = std::ranges::find_if(
                wanted, [&](const NameChange& change) { return !m_taken.contains(ToUpperAscii(change.to)); });
            if (possible != wanted.end()) {
                Rename(*possible);
                wanted.erase(possible);
            } else {
                const std::string free = FreeName();
                Rename({wanted.front().from, free});
                wanted.front().from = free;
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
    std::vector<NameChange> m_ordered;
};

}  // namespace

std::vector<NameChange> OrderRenames(std::vector<NameChange> wanted, std::span<const std::string> taken,
                                     std::span<const std::string> reserved) {
    return RenameOrder(taken, reserved).Order(std::move(wanted));
}

}  // namespace korvex::scriptgen
