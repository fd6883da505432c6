#pragma once

#include "scriptgen/migration/column_types.h"
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

/// A column of a table that stays, with what happens to it. One of both may be missing: it is new or gone.
struct ColumnPlan {
    const Column* before = nullptr;
    const Column* now = nullptr;
    bool isRenamed = false;
    bool isRetyped = false;
    bool isNumberedAnew = false;  ///< it becomes numbered, or is no longer
    bool isDefaulted = false;     ///< its default changes
    Conversion conversion = {};   ///< of its type; as blocked where its values stand elsewhere from now on

    bool IsChanged() const noexcept { return isRetyped || isDefaulted || isNumberedAnew; }
};

struct TablePlan {
    const DescribedTable* before = nullptr;
    const DescribedTable* now = nullptr;
    std::vector<ColumnPlan> columns = {};  ///< in their new order, then those that are gone
    bool isRenamed = false;
    bool hasRenamedColumns = false;

    bool Stays() const noexcept { return before != nullptr && now != nullptr; }
};

/// Pairs the tables of both models: in their new order, then those that are gone; what happens to them is not
/// marked yet. Objects and values are told as MatchDefinitions tells them, those of a database that stands by
/// their names. InvalidProcedureCall (5) for a rename that matches nothing, or several things.
std::vector<TablePlan> MatchTables(std::span<const DescribedTable> before,
                                   std::span<const DescribedTable> now, std::span<const NamedRename> renames,
                                   bool foldsTableNames);

}  // namespace korvex::scriptgen
