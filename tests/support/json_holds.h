#pragma once

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>

namespace korvex::tests {

/// Whether `whole` holds everything that `part` holds, in its places. A saved object does not have the values
/// that its columns gave instead of those that were not set; the loaded one has.
inline bool Holds(const nlohmann::json& whole, const nlohmann::json& part) {
    if (part.is_object() && whole.is_object()) {
        return std::ranges::all_of(part.items(), [&](const auto& member) {
            return whole.contains(member.key()) && Holds(whole[member.key()], member.value());
        });
    }
    if (!part.is_array() || !whole.is_array()) return whole == part;
    return std::ranges::equal(whole, part, [](const auto& a, const auto& b) { return Holds(a, b); });
}

inline bool Holds(const std::string& whole, const std::string& part) {
    return Holds(nlohmann::json::parse(whole), nlohmann::json::parse(part));
}

}  // namespace korvex::tests
