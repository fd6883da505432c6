#include "repository/key_names.h"

#include "automation/error.h"
#include "automation/text.h"
#include "repository/names.h"

namespace korvex::repository {

using automation::Error;
using automation::InvalidProcedureCall;

namespace {

/// A key column keeps at least "ID" and one unit of the object's name.
constexpr std::size_t ShortestKeyColumn = 3;

}  // namespace

KeyNames::KeyNames(std::string_view sFKPrefix) : m_sFKPrefix(sFKPrefix) {
    const std::size_t length = automation::Length(sFKPrefix);
    const std::size_t longest = static_cast<std::size_t>(MaxNameLength) - ShortestKeyColumn;
    if (length > longest) {
        throw Error(InvalidProcedureCall, "The foreign-key prefix '" + m_sFKPrefix + "' has " +
                                              std::to_string(length) + " characters; at most " +
                                              std::to_string(longest) + " leave room for the name of a key.");
    }
    if (sFKPrefix.find('\'') != std::string_view::npos) {
        throw Error(InvalidProcedureCall,
                    "The foreign-key prefix \"" + m_sFKPrefix + "\" holds a single quote.");
    }
    m_prefixLength = static_cast<std::int16_t>(length);
}

std::string KeyNames::KeyColumn(std::string_view objectName) const {
    return KeyColumnName(objectName, m_prefixLength);
}

}  // namespace korvex::repository
