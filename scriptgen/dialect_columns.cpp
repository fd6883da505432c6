#include "scriptgen/dialect_columns.h"

#include "automation/error.h"
#include "scriptgen/dialect.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/published_alter.h"

#include <array>

namespace korvex::scriptgen {

namespace {

/// `describe` gives the table as the dialect has it, `type` the type of one of its columns.
template <class Describe, class Type>
ColumnsInDialect Described(const DescribedTable& table, Describe describe, Type type) {
    ColumnsInDialect result;
    try {
        const DescribedTable described = describe(std::span(&table, 1)).front();
        for (const Column& column : described.Columns)
            result.columns.push_back({type(described, column), column.DefaultText});
    } catch (const automation::Error& error) {
        result.columns.clear();
        result.failure = error.Description();
    }
    return result;
}

}  // namespace

std::span<const std::string_view> DialectTitles() noexcept {
    static constexpr std::array<std::string_view, 6> titles = {"MS SQL", "Sybase",  "Oracle",
                                                               "SQLite", "MariaDB", "PostgreSQL"};
    return titles;
}

std::vector<ColumnsInDialect> DescribeInDialects(const DescribedTable& table) {
    std::vector<ColumnsInDialect> all;
    all.reserve(DialectTitles().size());
    for (const Dialect* dialect : {&SqlServerDialect(), &SybaseDialect(), &OracleDialect()}) {
        all.push_back(Described(
            table,
            [dialect](std::span<const DescribedTable> tables) { return PublishedTables(*dialect, tables); },
            [dialect](const DescribedTable&, const Column& column) { return dialect->ColumnType(column); }));
    }
    for (const EngineDialect* engine : AllEngineDialects()) {
        all.push_back(Described(
            table, [engine](std::span<const DescribedTable> tables) { return engine->Tables(tables); },
            [engine](const DescribedTable& described, const Column& column) {
                return engine->ColumnType(described, column);
            }));
    }
    return all;
}

}  // namespace korvex::scriptgen
