#pragma once

#include "repository/catalog.h"
#include "repository/definition_rows.h"
#include "scriptgen/column.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The tables of a definition as the scripts make them, described before any text is written.
namespace korvex::scriptgen {

/// A column that refers to a column of another table.
struct ForeignKey {
    std::string FieldName;
    repository::ObjectId FKObjectID = {};
    std::string Table;      ///< of the object referred to; "" when it has none
    std::string KeyField;   ///< the column referred to; "" when it is none of a described table
    bool IsInRun = false;   ///< the table referred to is among those described
    std::string Name = {};  ///< of the constraint in a database; "" for the name that the dialect gives it
};

struct TableIndex {
    std::string Name;
    std::vector<std::string> Columns;
};

/// An index or a trigger of a table of a database that stands, where that tells its statement.
struct TableDependent {
    std::string Name;
    std::string Text;
};

/// Where an object stands: the object that holds it (0 for a root) and the value that it is held by: its
/// name (the storage name for a root, "" for an element of a collection), number and interface, as in Column.
struct TablePlace {
    repository::ObjectId ParentID = {};
    std::string Value;
    std::string Interface = {};
    std::int32_t VID = 0;
    bool VIDIsGiven = false;
};

struct DescribedTable {
    repository::ObjectId ObjectID = {};  ///< the object whose records the table holds
    std::string Name;
    std::vector<Column> Columns;  ///< as the published scripts have them; TypeSize is for the engine's
    std::vector<std::string> PrimaryKey;  ///< its columns in key order
    std::vector<ForeignKey> ForeignKeys;  ///< in column order
    /// The objects that hold this one, in the order of the walk, each once; none for a root.
    std::vector<repository::ObjectId> Parents;
    std::vector<TableIndex> Indexes;    ///< on an engine: but for that of the primary key
    std::vector<std::string> Triggers;  ///< on an engine: their names
    std::vector<TableDependent> Dependents;

    // What tells the object from others when two definitions are compared (DescribeState).
    std::string ObjectName;
    std::string Guid;
    std::vector<TablePlace> Places;
};

/// A table's name as it is compared: in capitals where `folds`.
std::string FoldedName(const std::string& name, bool folds);
/// By name, that of a column in any case; nullptr for none.
const DescribedTable* FindTable(std::span<const DescribedTable> tables, std::string_view name, bool folds);
const Column* FindColumn(const DescribedTable& table, std::string_view name);
/// The reference of a column.
const ForeignKey* FindForeignKey(const DescribedTable& table, std::string_view column);

/// The tables of every data definition of that storage name (of all when it is empty), in the order of the
/// scripts; one that several ways lead to stands where the first of them meets it. The keys must be up to
/// date (CreateRelationship, RelatedCatalog). OutOfStackSpace (28) for an object that is its own ancestor.
std::vector<DescribedTable> DescribeTables(repository::DefinitionRows& rows, std::string_view storageName);

/// The same for any catalogue: keys and names are brought up to date in memory, so they are those of this
/// storage name and prefix, whatever was scripted before.
std::vector<DescribedTable> DescribeDefinition(const repository::Catalog& catalog,
                                               std::string_view storageName, std::string_view sFKPrefix);

}  // namespace korvex::scriptgen
