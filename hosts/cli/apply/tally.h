#pragma once

#include "hosts/cli/apply/apply_plan.h"

#include <nlohmann/json_fwd.hpp>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace korvex::cli {

/// Counts what a run of scripts did.
class Tally {
  public:
    void Add(const ApplyStep& step) noexcept;

    /// For people: "2 tables and 1 index created"; none when nothing was done.
    std::vector<std::string> Lines() const;
    /// For machines: members "created" and "dropped", each with a count for each kind of thing, "others" and
    /// "skipped".
    void Write(nlohmann::ordered_json& document) const;

  private:
    std::array<std::array<std::size_t, ThingCount>, 2> m_counts{};  ///< of what was made, and dropped
    std::size_t m_others = 0;
    std::size_t m_repeats = 0;
};

}  // namespace korvex::cli
