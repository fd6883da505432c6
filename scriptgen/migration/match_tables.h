#pragma once

#include "scriptgen/table_model.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Which tables and columns of two models are the same, whatever they are called.
namespace korvex::scriptgen {

/// Said by a person: a table, or "table.column", and its new name, in the same form.
struct NamedRename {
    std::string before;
    std::string now;
};

/// One of both may be missing: the column, or the table, is new or gone.
struct ColumnPair {
    const Column* before = nullptr;
    const Column* now = nullptr;
};
struct TablePair {
    const DescribedTable* before = nullptr;
    const DescribedTable* now = nullptr;
    std::vector<ColumnPair> columns;  ///< in their new order, then those that are gone
};

/// The column of that name, in any case; nullptr for none.
const Column* FindColumn(const DescribedTable& table, std::string_view name);
/// The reference of a column; nullptr for none.
const ForeignKey* FindForeignKey(const DescribedTable& table, std::string_view column);

/// Pairs the tables of both models: in their new order, then those that are gone. Objects and values are told
/// as MatchDefinitions tells them, those of a database that stands by their names. InvalidProcedureCall (5)
/// for a rename that matches nothing, or several things.
std::vector<TablePair> MatchTables(std::span<const DescribedTable> before,
                                   std::span<const DescribedTable> now, std::span<const NamedRename> renames,
                                   bool foldsTableNames);

}  // namespace korvex::scriptgen
