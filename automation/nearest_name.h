#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace korvex::automation {

struct NearName {
    std::string_view name;     ///< empty when there are no candidates
    std::size_t distance = 0;  ///< letters to insert, drop or replace
};

/// The candidate that differs least from `text`, case left aside; the first of several.
NearName NearestName(std::string_view text, std::span<const std::string_view> candidates);

}  // namespace korvex::automation
