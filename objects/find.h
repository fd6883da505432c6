#pragma once

#include "objects/definition.h"
#include "platform/ado.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Stored objects found again by their values.
namespace korvex::objects {

/// How a stored value is compared. Those that have no value meet IsNull only.
enum class Comparison : std::uint8_t {
    Equal,           ///< `=`
    NotEqual,        ///< `<>`
    Less,            ///< `<`
    LessOrEqual,     ///< `<=`
    Greater,         ///< `>`
    GreaterOrEqual,  ///< `>=`
    Like,  ///< `like`: "%" stands for any text and "_" for one character; small and capital letters of ASCII
           ///< are equal
    IsNull,     ///< `is null`; it has no operand
    IsNotNull,  ///< `is not null`; it has no operand
};

/// One comparison of a stored value. A value of a child object is named by its way ("Customer.Rating"); the
/// condition then holds where such a child is stored.
struct Condition {
    std::string value;                          ///< name of the value, or the way to it
    Comparison comparison = Comparison::Equal;  ///< how it is compared
    std::string operand;  ///< as in JSON: 4, 3.5, true, 2026-11-22; a text stands without quotes
};

/// "Customer.Rating > 3", "Notes is not null", "Name = O'Neill": what stands behind the operator and one
/// blank is the operand as it is. InvalidProcedureCall (5) for a text without an operator.
/// @param text a value or the way to one, an operator (`=`, `<>`, `<`, `<=`, `>`, `>=`, `like`, `is null`,
///     `is not null`), an operand
/// @return the condition; whether there is such a value is for Find to say
Condition ReadCondition(std::string_view text);

/// What to look for, and what to tell of it.
struct Search {
    std::vector<Condition> where = {};  ///< all of them hold
    std::vector<std::string> fields =
        {};                     ///< values to give, children's too; none: key and values of the root
    std::string order = {};     ///< a value; records without it stand last. Else by key
    bool isDescending = false;  ///< the order turned round
    std::optional<std::size_t> limit = {};  ///< at most so many objects
};

/// One stored object that was found.
struct FoundObject {
    std::int32_t key = 0;                     ///< for clsCRUD::DbGetData
    std::vector<automation::Variant> values;  ///< in the order of FoundObjects::Names
};

/// The stored objects that a search finds, each once. Their rows are read as they are asked for.
class FoundObjects {
  public:
    /// The ways of the fields, as the definition spells them.
    const std::vector<std::string>& Names() const noexcept { return m_names; }
    /// The next object; nothing behind the last one.
    std::optional<FoundObject> Next();

  private:
    friend FoundObjects Find(Definition& definition, const std::shared_ptr<ado::Connection>& connection,
                             const Search& search);
    FoundObjects() = default;

    std::vector<std::string> m_names;
    std::vector<automation::VarType> m_types;
    std::shared_ptr<ado::Recordset> m_rows;
    std::optional<std::size_t> m_limit;
};

/// Finds stored objects of a definition with one statement. How texts compare and sort is the engine's
/// business, but for Like. MemberNotFound (438) for a value that the definition does not know, with the
/// nearest that it does; InvalidProcedureCall (5) for one that is not stored or cannot be compared;
/// TypeMismatch (13) and Overflow (6) for an operand that is no value of its type; adErrFeatureNotAvailable
/// on a provider that binds no values. Engine errors reach the caller.
/// @param definition of the objects to find
/// @param connection an open connection (clsCRUD::DbConn)
/// @param search what to look for
/// @return the objects, which keep the recordset open until they are read or gone
FoundObjects Find(Definition& definition, const std::shared_ptr<ado::Connection>& connection,
                  const Search& search);

}  // namespace korvex::objects
