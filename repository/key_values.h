#pragma once

#include "repository/definition_rows.h"
#include "repository/names.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace korvex::repository {

/// Key values are numbered apart from the values that users model: above LowestKeyVid and below
/// HighestKeyVid, the first one LowestKeyVid + 1. Where these are used up, any free number does.
inline constexpr std::int32_t LowestKeyVid = 10000;
inline constexpr std::int32_t HighestKeyVid = 20000;

constexpr bool IsKeyVid(std::int32_t vid) noexcept { return vid > LowestKeyVid && vid < HighestKeyVid; }

/// Whether a value of that number, in an interface of that name, was written as a key. A number alone says
/// nothing: users may number their values as they like.
inline bool IsKeyValue(std::int32_t vid, std::string_view interfaceName) {
    return IsKeyVid(vid) && IsKeyInterfaceName(interfaceName);
}

/// A key value as its row in tValues tells it: a 32-bit integer that is stored in a column of its own name.
struct KeyValue {
    InterfaceId interfaceID = {};
    std::string name;
    std::string caption;
    std::string description;
    bool isAutoNumber = false;
};

/// The rows of key values in tValues.
class KeyValues {
  public:
    explicit KeyValues(DefinitionRows& rows) : m_rows(rows) {}

    /// The value of that name in the key's interface: at EOF when there is none, nullptr when the query
    /// failed.
    DefinitionRows::Rows Open(const KeyValue& key) { return m_rows.NamedValue(key.name, key.interfaceID); }

    /// Adds the key's row through `values`; gives its ValueID.
    ValueId Add(dao::Recordset& values, const KeyValue& key);
    /// Makes the current row of `values` the key's; gives its ValueID.
    ValueId Edit(dao::Recordset& values, const KeyValue& key);
    /// Makes the key's a value that was written for it under another name. False, with nothing changed, when
    /// the value is gone or was not written as such a key.
    bool Rename(ValueId valueID, const KeyValue& key);

  private:
    /// Where the numbering of an interface's keys stands.
    struct Numbering {
        std::int32_t last = LowestKeyVid;        ///< highest one of the range that its objects have
        std::int32_t next = LowestKeyVid + 1;    ///< where the search for a free one goes on
        std::unordered_set<std::int32_t> taken;  ///< in the interface itself, once that search began
    };

    std::int32_t NextVid(const KeyValue& key);
    std::int32_t NextFreeVid(Numbering& numbering, const KeyValue& key);
    bool IsKeyInterface(InterfaceId interfaceID);

    DefinitionRows& m_rows;
    std::unordered_map<InterfaceId, Numbering> m_numberings;  ///< by interface
};

}  // namespace korvex::repository
