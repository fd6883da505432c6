#pragma once

#include "repository/names.h"

#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// Name of a procedure: the base with the suffix of its kind, the base losing its front when both together
/// would be too long. The suffixes: AR and AD read and delete all rows, R and D those of a key, C inserts
/// and U updates a row.
inline std::string ProcedureName(std::string_view base, std::string_view suffix) {
    std::string name = repository::LimitNameLength(base, static_cast<std::int16_t>(suffix.size()));
    name += suffix;
    return name;
}

}  // namespace korvex::scriptgen
