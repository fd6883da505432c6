#pragma once

#include "automation/variant.h"

#include <string>
#include <string_view>

/// The statements of the persistence steps: plain concatenation, sent as composed. Names go in as they are,
/// so that quoted ones work; what the engine does not take does not open.
namespace korvex::persistence {

/// How the key clause stands in a statement; each member keeps its own spelling.
enum class KeyClause { Tight, Spaced };  ///< "Key=1", "Key = 1"

std::string SelectAll(std::string_view table);
/// A key is a number, also where it is a text that converts to one; TypeMismatch (13) for anything else.
/// Empty and Null stand there as nothing.
std::string SelectWhere(std::string_view table, std::string_view keyColumn, const automation::Variant& key,
                        KeyClause clause = KeyClause::Tight);
std::string DeleteWhere(std::string_view table, std::string_view keyColumn, const automation::Variant& key);

}  // namespace korvex::persistence
