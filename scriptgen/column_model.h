#pragma once

#include "repository/definition_rows.h"
#include "scriptgen/column.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace korvex::scriptgen {

/// The columns of an object's table, which is named `table`: the stored values in the repository's order,
/// then the state columns of its kind; keys marked, TypeSize empty.
std::vector<Column> BuildTableFields(repository::DefinitionRows& rows, repository::ObjectId lObjectID,
                                     std::string_view table);

}  // namespace korvex::scriptgen
