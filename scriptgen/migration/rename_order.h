#pragma once

#include <span>
#include <string>
#include <vector>

namespace korvex::scriptgen {

/// Something that is called `before`, and `now` later; "" for what is not there.
struct NamedThing {
    std::string before, now;
    bool isRenamed = false;
    bool makesRoom = false;  ///< it goes, and another takes its name: any free name will do
};

struct NameChange {
    std::string from, to;
    std::size_t thing = 0;  ///< the position of what is renamed
};

/// The renames, in chains and circles, one after the other so that every new name is free when it is given;
/// more than one for a name in a circle. Names are the same in any case.
std::vector<NameChange> OrderRenames(std::span<const NamedThing> things);

}  // namespace korvex::scriptgen
