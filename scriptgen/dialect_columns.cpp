#include "scriptgen/dialect_columns.h"

#include "automation/error.h"
#include "scriptgen/dialect.h"
#include "scriptgen/engine_dialect.h"

#include <array>

namespace korvex::scriptgen {

namespace {

template <class AnyDialect>
ColumnsInDialect Described(const DescribedTable& table, const AnyDialect& dialect) {
    ColumnsInDialect result;
    try {
        const DescribedTable described = dialect.Tables(std::span(&table, 1)).front();
        for (const Column& column : described.Columns)
            result.columns.push_back({dialect.ColumnType(described, column), column.DefaultText});
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
    for (const Dialect* dialect : {&SqlServerDialect(), &SybaseDialect(), &OracleDialect()})
        all.push_back(Described(table, *dialect));
    for (const EngineDialect* engine : AllEngineDialects())
        all.push_back(Described(table, *engine));
    return all;
}

}  // namespace korvex::scriptgen
