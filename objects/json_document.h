#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::objects {

/// A JSON text as read: members in their order, numbers with all their digits. The values stand in one list,
/// however deep the text is nested.
class JsonDocument {
  public:
    enum class Kind : std::uint8_t { Null, Boolean, Number, Text, Array, Object };

    struct Value {
        Kind kind = Kind::Null;
        bool boolean = false;
        std::string text;                        ///< of a text; of a number as it is written
        std::vector<std::string> names = {};     ///< of an object's members
        std::vector<std::size_t> children = {};  ///< items of an array, values of an object's members
    };

    /// InvalidProcedureCall (5) for text that is no JSON and for a member that stands twice in an object,
    /// naming line and column.
    explicit JsonDocument(std::string_view text);

    const Value& Root() const { return m_values.front(); }
    const Value& At(std::size_t position) const { return m_values[position]; }

  private:
    class Reader;
    std::vector<Value> m_values;
};

/// "a text", "an array" ...
std::string_view KindName(JsonDocument::Kind kind);

}  // namespace korvex::objects
