#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::repository {

/// How the key columns of one run are called.
class KeyNames {
  public:
    /// InvalidProcedureCall (5) for a prefix that holds a single quote or leaves no room for a key column.
    explicit KeyNames(std::string_view sFKPrefix);

    /// Column of the own key of an object of that name.
    std::string KeyColumn(std::string_view objectName) const;
    /// Column by which the objects beneath another refer to its key column.
    std::string ForeignKeyColumn(std::string_view keyColumn) const {
        return std::string(m_sFKPrefix).append(keyColumn);
    }

  private:
    std::string m_sFKPrefix;
    std::int16_t m_prefixLength = 0;
};

}  // namespace korvex::repository
