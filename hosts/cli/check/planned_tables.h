#pragma once

#include "repository/catalog.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// A column that a table will have after the next CreateRelationship.
struct PlannedColumn {
    std::string name;
    std::string origin;                           ///< in words: "value Street", "the own key"
    const repository::ValueRow* value = nullptr;  ///< nothing for keys and added columns
    bool isKey = false;                           ///< the own key
    std::int32_t parentID = 0;                    ///< for a foreign key: the object referred to
};

/// The table that an object will have.
struct PlannedTable {
    const repository::ObjectRow* object = nullptr;
    std::string name;
    std::int32_t visits = 0;  ///< times that the walk reaches it; its text stands as often in the scripts
    std::vector<std::int32_t> parents;  ///< distinct, in the order of the walk
    std::vector<PlannedColumn> columns;
};

/// The tables of one definition, in walk order.
struct PlannedDefinition {
    std::string storage;
    std::vector<PlannedTable> tables;
    bool isCutOff = false;  ///< the walk takes too many steps to be followed to its end
};

/// What CreateRelationship will make of one definition. The graph beneath its root must hold no cycle.
PlannedDefinition PlanDefinition(const repository::Catalog& catalog, const repository::DataDefRow& dataDef,
                                 std::string_view fkPrefix);

}  // namespace korvex::cli
