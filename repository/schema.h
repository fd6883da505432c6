#pragma once

#include "platform/dao.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The seven tables of a definition repository.
namespace korvex::repository {

struct SchemaColumn {
    std::string_view name;
    std::string_view type;  ///< declared type in a new repository file
};

struct SchemaTable {
    std::string_view name;
    std::span<const SchemaColumn> columns;
    std::string_view key;  ///< primary-key clause, or empty
};

/// All tables with all their columns, in the order in which they are created.
std::span<const SchemaTable> SchemaTables() noexcept;

/// The engines whose dialect the schema is known in.
enum class SchemaEngine : std::uint8_t {
    Embedded,
    MariaDb,
    PostgreSql,
    Private,  ///< Embedded for a copy that must take every row: no limit of length, no key beside numbers
};

/// The engine that a database is on, as it says itself; SQLite through ODBC is Embedded. Raises
/// InvalidProcedureCall (5) for any other.
SchemaEngine SchemaEngineOf(dao::Database& database);

/// The statements that make an empty repository: the tables, then one index for each look-up that no primary
/// key serves. What is there already is left as it is, so that a making that was cut off can go on.
std::vector<std::string> SchemaStatements(SchemaEngine engine = SchemaEngine::Embedded);

/// Makes the tables and indexes that a database lacks. Engine errors reach the caller.
void CreateSchema(dao::Database& database, SchemaEngine engine = SchemaEngine::Embedded);

/// A table, or a column of a table, that a database lacks.
struct SchemaGap {
    std::string table;
    std::string column;  ///< empty when the whole table is missing
};

/// What `database` lacks to be a repository; empty for a complete one. Reads no rows. Engine errors other
/// than a missing table or column reach the caller.
std::vector<SchemaGap> CheckSchema(dao::Database& database);

/// Raises that the repository of that name has gaps: TableNotFound (3078) or ItemNotFound (3265).
[[noreturn]] void RaiseGaps(std::span<const SchemaGap> gaps, std::string_view name);

/// "table tValues is missing" or "column tValues.VID is missing"; several joined with "; ".
std::string DescribeGaps(std::span<const SchemaGap> gaps);

}  // namespace korvex::repository
