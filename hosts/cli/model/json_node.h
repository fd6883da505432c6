#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// The JSON document in a file; // and /* */ comments are skipped. Raises FileNotFoundError,
/// PathFileAccessError (75) for a file that can not be read, and InvalidProcedureCall (5) for text that is no
/// JSON, naming file, line and column, and for a member that stands twice in one object, naming its path.
nlohmann::json ReadJsonFile(const std::string& path);

/// A value of a JSON document together with its place, so that every complaint about it can name the place.
/// All complaints are InvalidProcedureCall (5): "orders.json: objects[2].values[0].type: ...".
class JsonNode {
  public:
    JsonNode(const nlohmann::json& value, const std::string& file, std::string path = {})
        : m_value(&value), m_file(&file), m_path(std::move(path)) {}

    [[noreturn]] void Fail(const std::string& complaint) const;

    bool IsObject() const noexcept { return m_value->is_object(); }
    bool IsText() const noexcept { return m_value->is_string(); }
    bool IsNumber() const noexcept { return m_value->is_number(); }
    const std::string& Path() const noexcept { return m_path; }

    /// Complains unless this is an object with none but these members; for an unknown one the nearest of them
    /// is named.
    void ExpectMembers(std::initializer_list<std::string_view> known) const;

    bool Has(std::string_view member) const { return m_value->contains(member); }
    /// The member of that name; complains when there is none.
    JsonNode At(std::string_view member) const;
    /// The items of an array that is a member; none where there is no such member.
    std::vector<JsonNode> ItemsOf(std::string_view member) const;

    /// A text, and one that is not empty.
    std::string Text() const;
    std::string NonEmptyText() const;
    bool Flag() const;
    /// A whole number within these bounds.
    std::int32_t Whole(std::int32_t least, std::int32_t most) const;
    /// A text as it stands, a number in its shortest form, a flag as 1 or 0.
    std::string Scalar() const;

    /// The same for a member that may be left out.
    std::string TextOr(std::string_view member, std::string_view absent) const;
    bool FlagOr(std::string_view member, bool absent) const;
    std::string ScalarOr(std::string_view member, std::string_view absent) const;

  private:
    const char* KindName() const;

    const nlohmann::json* m_value;
    const std::string* m_file;
    std::string m_path;  ///< empty for the document itself
};

}  // namespace korvex::cli
