#pragma once

#include "scriptgen/engine_dialect.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvex::scriptgen {

/// What is not as it should be at a table.
enum class TableAspect : std::uint8_t {
    Table,       ///< not there
    Column,      ///< not there, or not in the definition
    Type,        ///< of a column, its length included
    Number,      ///< a column is numbered, or is not
    Key,         ///< the primary key
    Index,       ///< not there
    ForeignKey,  ///< not there, or another
    Trigger,     ///< not there
};

struct TableDifference {
    TableAspect aspect = TableAspect::Table;
    std::string table;  ///< as the definition spells it
    std::string name;   ///< of the column, the index or the trigger
    std::string text;   ///< for a person: "tOrder.Total is float, not decimal(19,4)"
    /// What can be added to what is there, which may stay as it is; nothing for what would have to change.
    std::optional<EngineThing> missing = {};
};

/// Where the tables that are there differ from those that are wanted, in the order of these; tables that
/// nobody wants are left aside. Both are as one engine describes them (EngineDialect::Tables,
/// ReadLiveTables). Names of columns are the same in any case, those of tables where `foldsTableNames` says
/// so; indexes and references are told by their columns. Where a table referred to is not in the run, a
/// reference to it may be there or not.
std::vector<TableDifference> CompareTables(std::span<const DescribedTable> wanted,
                                           std::span<const DescribedTable> actual, bool foldsTableNames);

}  // namespace korvex::scriptgen
