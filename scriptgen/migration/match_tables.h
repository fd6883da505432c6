#pragma once

#include "scriptgen/table_model.h"

#include <span>
#include <string>
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

/// Pairs the tables of both models: in their new order, then those that are gone. An object is its guid where
/// that is unique on both sides, else its name where that is, else its place; tables of a database that
/// stands are their names. Keys match by the objects that they belong to; other columns by the number of
/// their value within its interface, where that says more than a position, else by name. InvalidProcedureCall
/// (5) for a rename that matches nothing, or several things.
std::vector<TablePair> MatchTables(std::span<const DescribedTable> before,
                                   std::span<const DescribedTable> now, std::span<const NamedRename> renames,
                                   bool foldsTableNames);

}  // namespace korvex::scriptgen
