#include "platform/native/sql/odbc/odbc_dialect.h"

#include "automation/text.h"
#include "platform/native/sql/sqlite/sqlite_result.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <initializer_list>

namespace korvex::native::sql {
namespace {

struct StateMeaning {
    std::string_view state;  ///< a whole SQLSTATE, or its class
    ErrorKind kind;
};

/// Whole states before their classes. The second spelling of some is that of ODBC 2 drivers.
constexpr std::array StateMeanings = {
    StateMeaning{"42S02", ErrorKind::NoSuchTable},   StateMeaning{"S0002", ErrorKind::NoSuchTable},
    StateMeaning{"42P01", ErrorKind::NoSuchTable},   StateMeaning{"42S22", ErrorKind::NoSuchColumn},
    StateMeaning{"S0022", ErrorKind::NoSuchColumn},  StateMeaning{"42703", ErrorKind::NoSuchColumn},
    StateMeaning{"42S01", ErrorKind::TableExists},   StateMeaning{"S0001", ErrorKind::TableExists},
    StateMeaning{"42P07", ErrorKind::TableExists},   StateMeaning{"42501", ErrorKind::NoRights},
    StateMeaning{"28", ErrorKind::LoginRefused},     StateMeaning{"42000", ErrorKind::Syntax},
    StateMeaning{"37000", ErrorKind::Syntax},        StateMeaning{"42601", ErrorKind::Syntax},
    StateMeaning{"23505", ErrorKind::DuplicateKey},  StateMeaning{"23", ErrorKind::Constraint},
    StateMeaning{"22001", ErrorKind::ValueTooLarge}, StateMeaning{"22003", ErrorKind::ValueTooLarge},
    StateMeaning{"22", ErrorKind::WrongType},        StateMeaning{"25006", ErrorKind::ReadOnly},
    StateMeaning{"40001", ErrorKind::Locked},        StateMeaning{"40P01", ErrorKind::Locked},
    StateMeaning{"55P03", ErrorKind::Locked},        StateMeaning{"HYT00", ErrorKind::Locked},
    StateMeaning{"53100", ErrorKind::DiskFull},      StateMeaning{"08", ErrorKind::ConnectionLost},
    StateMeaning{"57P", ErrorKind::ConnectionLost},
};

ErrorKind RefineSqlite(const OdbcDiagnosis& diagnosis) {
    // The driver reports the engine's code, or no code at all; the text is the engine's.
    return ClassifySqliteError(diagnosis.nativeCode == 0 ? SQLITE_ERROR : diagnosis.nativeCode,
                               diagnosis.message);
}

ErrorKind RefineMariaDb(const OdbcDiagnosis& diagnosis) {
    switch (diagnosis.nativeCode) {
        case 1062:
            return ErrorKind::DuplicateKey;
        case 1146:
            return ErrorKind::NoSuchTable;
        case 1054:
            return ErrorKind::NoSuchColumn;
        case 1048:
        case 1364:
            return ErrorKind::Constraint;
        case 1044:  // the database, for the user
        case 1142:  // the table
        case 1143:  // the column
        case 1227:  // the operation
        case 1370:  // the procedure
            return ErrorKind::NoRights;
        case 1045:
            return ErrorKind::LoginRefused;
        case 1927:
        case 2006:
        case 2013:
        case 2055:
        case 5013:  // reading
        case 5014:  // writing
            return ErrorKind::ConnectionLost;
        case 1205:
        case 1213:
            return ErrorKind::Locked;
        case 1264:
        case 1406:
            return ErrorKind::ValueTooLarge;
        case 1366:
            return ErrorKind::WrongType;
        case 1290:
        case 1792:
            return ErrorKind::ReadOnly;
        case 1021:
            return ErrorKind::DiskFull;
        default:
            return ErrorKind::Other;
    }
}

ErrorKind RefineSqlServer(const OdbcDiagnosis& diagnosis) {
    switch (diagnosis.nativeCode) {
        case 229:  // the object
        case 230:  // the column
        case 262:  // a statement, in the database
        case 916:  // the database
            return ErrorKind::NoRights;
        case 18456:
            return ErrorKind::LoginRefused;
        case 2714:
            return ErrorKind::TableExists;
        default:
            return ErrorKind::Other;
    }
}

ErrorKind RefineSybase(const OdbcDiagnosis& diagnosis) {
    switch (diagnosis.nativeCode) {
        case 10330:  // the object
        case 10331:  // the column
        case 916:    // the database
            return ErrorKind::NoRights;
        case 2714:
            return ErrorKind::TableExists;
        default:
            return ErrorKind::Other;
    }
}

ErrorKind RefineOracle(const OdbcDiagnosis& diagnosis) {
    switch (diagnosis.nativeCode) {
        case 1031:
            return ErrorKind::NoRights;
        case 1017:
            return ErrorKind::LoginRefused;
        case 955:
            return ErrorKind::TableExists;
        default:
            return ErrorKind::Other;
    }
}

ErrorKind KindOf(const OdbcDiagnosis& diagnosis, const OdbcDialect& dialect) {
    if (dialect.refine != nullptr) {
        if (const ErrorKind kind = dialect.refine(diagnosis); kind != ErrorKind::Other) return kind;
    }
    const auto meaning = std::ranges::find_if(
        StateMeanings, [&](const StateMeaning& entry) { return diagnosis.state.starts_with(entry.state); });
    return meaning == StateMeanings.end() ? ErrorKind::Other : meaning->kind;
}

OdbcDialect Sqlite() {
    OdbcDialect dialect;
    dialect.traits.newKey = NewKeySource::Query;
    dialect.traits.newKeyQuery = "SELECT last_insert_rowid()";
    dialect.traits.rowIdName = "rowid";
    dialect.dynamicTypes = true;
    dialect.calls.areNarrow = true;
    dialect.traits.textsHoldNul = false;
    dialect.traits.transactionOutlivesFailure = true;
    dialect.refine = RefineSqlite;
    dialect.traits.comparesLongValues = true;
    return dialect;
}

OdbcDialect MariaDb() {
    OdbcDialect dialect;
    dialect.traits.newKey = NewKeySource::Returning;
    dialect.traits.emptyInsert = "() VALUES ()";
    dialect.traits.lexical.bracketNames = false;
    dialect.traits.lexical.backslashEscapes = true;
    dialect.traits.lexical.likeEscapes = true;
    dialect.traits.lexical.liftsTexts = true;
    dialect.traits.transactionOutlivesFailure = true;
    dialect.refine = RefineMariaDb;
    // Texts in another character set would lose what it does not hold; and a column that does not hold a
    // value must refuse it, whatever the server is set to. Oracle's language comes with a mode of its own.
    dialect.firstStatement =
        "SET character_set_client = utf8mb4, character_set_results = utf8mb4, collation_connection = "
        "IF(@@character_set_connection = 'utf8mb4', @@collation_connection, 'utf8mb4_general_ci'), "
        "sql_mode = IF(FIND_IN_SET('ORACLE', @@sql_mode), @@sql_mode, "
        "CONCAT_WS(',', NULLIF(@@sql_mode, ''), 'STRICT_TRANS_TABLES'))";
    dialect.narrowTexts = true;
    dialect.preparesLate = true;
    dialect.traits.comparesLongValues = true;
    return dialect;
}

OdbcDialect PostgreSql() {
    OdbcDialect dialect;
    dialect.traits.newKey = NewKeySource::Returning;
    dialect.traits.lexical.bracketNames = false;
    dialect.traits.lexical.dollarQuotes = true;
    dialect.traits.lexical.likeEscapes = true;
    dialect.traits.lexical.liftsTexts = true;
    dialect.traits.comparesLongValues = true;
    dialect.traits.lexical.exactLike = true;
    dialect.traits.textsHoldNul = false;
    // An updated row is stored anew, behind the others.
    dialect.rowOrderColumn = "ctid";
    dialect.preparesLate = true;
    dialect.keysQuery =
        "SELECT n.nspname, c.relname, a.attname FROM pg_class c LEFT JOIN pg_index i ON i.indrelid = c.oid "
        "AND i.indisprimary "
        "LEFT JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = ANY(i.indkey) "
        "JOIN pg_namespace n ON n.oid = c.relnamespace WHERE c.relkind IN ('r', 'p') AND "
        "pg_table_is_visible(c.oid) AND n.nspname NOT IN ('pg_catalog', 'information_schema') "
        "ORDER BY c.oid, a.attnum";
    // The driver sets a savepoint before each statement.
    dialect.traits.transactionOutlivesFailure = true;
    return dialect;
}

OdbcDialect SqlServer() {
    OdbcDialect dialect;
    dialect.traits.newKey = NewKeySource::SameBatch;
    dialect.traits.newKeyQuery = "SELECT SCOPE_IDENTITY()";
    dialect.refine = RefineSqlServer;
    return dialect;
}

OdbcDialect Sybase() {
    OdbcDialect dialect;
    dialect.traits.newKey = NewKeySource::SameBatch;
    dialect.traits.newKeyQuery = "SELECT @@IDENTITY";
    dialect.refine = RefineSybase;
    return dialect;
}

/// Keys are drawn by a trigger from the sequence "SEQ_" with the table's name, as the generated scripts have
/// it.
OdbcDialect Oracle() {
    OdbcDialect dialect;
    dialect.traits.newKey = NewKeySource::Sequence;
    dialect.traits.newKeyQuery = "SELECT {sequence}.CURRVAL FROM DUAL";
    dialect.traits.sequencePrefix = "SEQ_";
    dialect.refine = RefineOracle;
    dialect.traits.lexical.bracketNames = false;
    return dialect;
}

}  // namespace

OdbcDialect DialectOf(std::string_view engineName) {
    using automation::ContainsIgnoreCase;
    const auto isAnyOf = [engineName](std::initializer_list<std::string_view> names) {
        return std::ranges::any_of(
            names, [engineName](std::string_view name) { return ContainsIgnoreCase(engineName, name); });
    };
    if (isAnyOf({"sqlite"})) return Sqlite();
    if (isAnyOf({"mariadb", "mysql"})) return MariaDb();
    if (isAnyOf({"postgresql"})) return PostgreSql();
    if (isAnyOf({"microsoft sql server"})) return SqlServer();
    if (isAnyOf({"adaptive server", "sybase", "sql anywhere", "sql server"})) return Sybase();
    if (isAnyOf({"oracle"})) return Oracle();
    return {};
}

void RaiseOdbcError(const OdbcHandle& handle, const OdbcDialect& dialect) {
    const OdbcDiagnosis diagnosis = ReadDiagnosis(handle);
    throw EngineError(KindOf(diagnosis, dialect), diagnosis.nativeCode, diagnosis.message, dialect.source);
}

}  // namespace korvex::native::sql
