#pragma once

#include <span>
#include <string>
#include <vector>

namespace korvex::scriptgen {

struct NameChange {
    std::string from;
    std::string to;  ///< "" for any free name
};

/// The renames, in any order and in chains and circles, one after the other so that every new name is free
/// when it is given; more than one for a name in a circle. `taken`: the names that are there, and others that
/// a free name must not be. Names are the same in any case.
std::vector<NameChange> OrderRenames(std::vector<NameChange> wanted, std::span<const std::string> taken,
                                     std::span<const std::string> reserved);

}  // namespace korvex::scriptgen
