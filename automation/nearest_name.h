#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace korvex::automation {

struct NearName {
    std::string_view name;     ///< empty when there are no candidates
    std::size_t distance = 0;  ///< letters to insert, drop or replace
};

/// The candidate that differs least from `text`, case left aside; the first of several.
NearName NearestName(std::string_view text, std::span<const std::string_view> candidates);

/// "; did you mean "NAME"?" for the candidate that `text` was probably meant to be: the nearest, when at most
/// a third of its letters differ. Empty when none is near.
std::string DidYouMean(std::string_view text, std::span<const std::string_view> candidates);

}  // namespace korvex::automation
