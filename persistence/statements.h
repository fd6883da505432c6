#pragma once

#include "automation/variant.h"

#include <string>
#include <string_view>

/// The statements of the persistence steps: plain concatenation, sent as composed. Names go in as they are,
/// so that quoted ones work; what the engine does not take does not open.
namespace korvex::persistence {

/// How the key clause stands in a statement; each member keeps its own spelling.
enum class KeyClause { Tight, Spaced };  ///< "Key=1", "Key = 1"

/// Text of a key for a statement: a number, also where the key is a text that converts to one. TypeMismatch
/// (13) for anything else. Empty and Null give "".
std::string KeyLiteral(const automation::Variant& key);

std::string SelectAll(std::string_view table);
std::string SelectWhere(std::string_view table, std::string_view keyColumn, const automation::Variant& key,
                        KeyClause clause = KeyClause::Tight);
std::string DeleteWhere(std::string_view table, std::string_view keyColumn, const automation::Variant& key);

}  // namespace korvex::persistence
