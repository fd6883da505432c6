#pragma once

#include "hosts/cli/model/json_node.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// The names by which a model file's objects (or interfaces) refer to one another: an entry's "id", or its
/// name when it has none.
class References {
  public:
    /// `kind` is what complaints call an entry.
    explicit References(std::string_view kind) : m_kind(kind) {}

    /// Adds the entry written at `node`. An id that is taken is complained about.
    void Add(const JsonNode& node, const std::string& name, std::size_t index);

    /// The entry that the text at `node` refers to. Complains about an unknown one, naming the nearest, and
    /// about one that several entries share.
    std::size_t Resolve(const JsonNode& node) const;

  private:
    std::string_view m_kind;
    std::map<std::string, std::vector<std::size_t>> m_byName;
    std::map<std::string, std::string> m_ids;  ///< explicit ids with their place
};

}  // namespace korvex::cli
