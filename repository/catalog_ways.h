#pragma once

#include "repository/catalog.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The ways along which a catalog's objects stand beneath each other.
namespace korvex::repository {

/// The names along a way on which an object beneath one of `roots` is its own ancestor ("Order > Customer >
/// Order"), or nothing; then `finished` has what is beneath them once, each object behind all beneath it.
std::optional<std::string> FindOwnAncestor(const Catalog& catalog, const std::vector<ObjectId>& roots,
                                           std::vector<ObjectId>& finished);

/// The objects of the definitions of a storage name (of all when it is empty), and along how many ways a walk
/// reaches each; a number that would be too large is the largest one. OutOfStackSpace (28) for an object that
/// is its own ancestor.
std::unordered_map<ObjectId, std::int64_t> CountWays(const Catalog& catalog, std::string_view storageName);

}  // namespace korvex::repository
