#include "scriptgen/dialect.h"

#include "automation/error.h"
#include "automation/text.h"
#include "scriptgen/engine_dialects.h"
#include "scriptgen/oracle_tables.h"
#include "scriptgen/sql_server_tables.h"

#include <algorithm>

namespace korvex::scriptgen {

const Dialect* FindDialect(ScriptType type) noexcept {
    static const SqlServerDialect sqlServer;
    static const OracleDialect oracle;
    static const SybaseDialect sybase;
    switch (type) {
        case ScriptType::SqlServer:
            return &sqlServer;
        case ScriptType::Oracle:
            return &oracle;
        case ScriptType::Sybase:
            return &sybase;
        case ScriptType::None:
            break;
    }
    return nullptr;
}

std::span<const EngineDialect* const> AllEngineDialects() noexcept {
    static const SqliteDialect sqlite;
    static const MariaDbDialect mariaDb;
    static const PostgreSqlDialect postgreSql;
    static const EngineDialect* const all[] = {&sqlite, &mariaDb, &postgreSql};
    return all;
}

const EngineDialect& EngineDialectOf(std::string_view name) {
    const auto all = AllEngineDialects();
    const auto found = std::ranges::find(all, name, &EngineDialect::Name);
    if (found != all.end()) return **found;
    throw automation::Error(automation::InvalidProcedureCall,
                            "There is no dialect for the engine " + automation::Quoted(name) + ".");
}

}  // namespace korvex::scriptgen
