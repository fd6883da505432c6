#include "repository/name_list.h"

#include "automation/error.h"

#include <limits>

namespace korvex::repository {

std::string NameList::MakeUniqueName(std::string_view name) {
    std::string candidate(name);
    if (IsNameTaken(candidate)) {
        std::int16_t& number = m_lastNumbers.try_emplace(candidate, std::int16_t{1}).first->second;
        do {
            if (number == std::numeric_limits<std::int16_t>::max()) {
                throw automation::Error(automation::Overflow,
                                        "Too many objects are named '" + std::string(name) +
                                            "': their table names have run out of numbers.");
            }
            ++number;
            candidate.assign(name).append(std::to_string(number));
        } while (IsNameTaken(candidate));
    }
    m_names.insert(candidate);
    return candidate;
}

}  // namespace korvex::repository
