#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace korvex::repository {

/// The table base names handed out so far. Names are compared exactly, case included.
class NameList {
  public:
    bool IsNameTaken(const std::string& name) const { return m_names.contains(name); }

    /// `name`, or when it is taken `name` with the first free number from 2 on; adds what it gives. Overflow
    /// (6) when that number leaves 16 bits.
    std::string MakeUniqueName(std::string_view name);

  private:
    std::unordered_set<std::string> m_names;
    /// Last number given to a base name. Names are never taken out, so no lower one is free again.
    std::unordered_map<std::string, std::int16_t> m_lastNumbers;
};

}  // namespace korvex::repository
