#pragma once

#include "scriptgen/table_model.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the columns of a table are in each dialect, for people who read.
namespace korvex::scriptgen {

/// A column as its table has it: the type with what numbers it, and the default, "" for none or Null.
struct ColumnInDialect {
    std::string type;
    std::string defaultText;

    bool operator==(const ColumnInDialect&) const = default;
};

struct ColumnsInDialect {
    std::vector<ColumnInDialect> columns;  ///< those of the table, in their order; none with a failure
    std::string failure;                   ///< why the dialect does not take the table
};

/// The published dialects and those of the engines, with their names for people; those that agree most stand
/// side by side.
std::span<const std::string_view> DialectTitles() noexcept;

/// The columns of a table in each of these dialects.
std::vector<ColumnsInDialect> DescribeInDialects(const DescribedTable& table);

}  // namespace korvex::scriptgen
