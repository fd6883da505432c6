#include "scriptgen/dialect.h"

#include "scriptgen/oracle_tables.h"
#include "scriptgen/sql_server_tables.h"

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

}  // namespace korvex::scriptgen
