#pragma once

#include "scriptgen/column.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// What the emitters ask about the columns of a table as a whole.
namespace korvex::scriptgen {

bool HasPrimaryKey(std::span<const Column> columns) noexcept;

/// Names of the key columns in key order. Key columns whose sequence lies outside 0 to the number of columns
/// are left out.
std::vector<std::string> PrimaryKeyColumns(std::span<const Column> columns);

/// The objects that the foreign-key columns reference, in column order. An object whose digits occur within
/// the ones listed before it (2 after 12) counts as listed.
std::vector<repository::ObjectId> GetForeignKeyTargets(std::span<const Column> columns);

}  // namespace korvex::scriptgen
