#include "platform/native/sql/odbc/odbc_dialect.h"

#include "automation/text.h"
#include "platform/native/sql/sqlite/sqlite_error.h"

#include <algorithm>
#include <iterator>

namespace korvex::native::sql {
namespace {

struct StateMeaning {
    std::string_view state;  ///< a whole SQLSTATE, or its class
    ErrorKind kind;
};

/// Whole states before their classes. The second spelling of some is that of ODBC 2 drivers.
constexpr StateMeaning StateMeanings[] = {
    {"42S02", ErrorKind::NoSuchTable},   {"S0002", ErrorKind::NoSuchTable},
    {"42P01", ErrorKind::NoSuchTable},   {"42S22", ErrorKind::NoSuchColumn},
    {"S0022", ErrorKind::NoSuchColumn},  {"42703", ErrorKind::NoSuchColumn},
    {"42S01", ErrorKind::TableExists},   {"S0001", ErrorKind::TableExists},
    {"42P07", ErrorKind::TableExists},   {"42501", ErrorKind::NoRights},
    {"28", ErrorKind::LoginRefused},     {"42000", ErrorKind::Syntax},
    {"37000", ErrorKind::Syntax},        {"42601", ErrorKind::Syntax},
    {"23505", ErrorKind::DuplicateKey},  {"23", ErrorKind::Constraint},
    {"22001", ErrorKind::ValueTooLarge}, {"22003", ErrorKind::ValueTooLarge},
    {"22", ErrorKind::WrongType},        {"25006", ErrorKind::ReadOnly},
    {"40001", ErrorKind::Locked},        {"40P01", ErrorKind::Locked},
    {"55P03", ErrorKind::Locked},        {"HYT00", ErrorKind::Locked},
    {"53100", ErrorKind::DiskFull},      {"08", ErrorKind::ConnectionLost},
    {"57P", ErrorKind::ConnectionLost},
};

ErrorKind RefineSqlite(const OdbcDiagnosis& diagnosis) {
    // The driver reports the engine's code, or no code at all; the text is the engine's.
    return ClassifySqliteError(diagnosis.nativeCode == 0 ? SQLITE_ERROR : diagnosis.nativeCode,
                               diagnosis.message);
}

template <const auto& codes>
ErrorKind Refine(const OdbcDiagnosis& diagnosis) {
    return MeaningOf(diagnosis.nativeCode, codes);
}

constexpr CodeMeaning MariaDbCodes[] = {
    {1062, ErrorKind::DuplicateKey},
    {1146, ErrorKind::NoSuchTable},
    {1054, ErrorKind::NoSuchColumn},
    {1048, ErrorKind::Constraint},
    {1364, ErrorKind::Constraint},
    {1045, ErrorKind::LoginRefused},
    // To the database, the table, the column, the operation, the procedure.
    {1044, ErrorKind::NoRights},
    {1142, ErrorKind::NoRights},
    {1143, ErrorKind::NoRights},
    {1227, ErrorKind::NoRights},
    {1370, ErrorKind::NoRights},
    {1927, ErrorKind::ConnectionLost},
    {2006, ErrorKind::ConnectionLost},
    {2013, ErrorKind::ConnectionLost},
    {2055, ErrorKind::ConnectionLost},
    // While reading, while writing.
    {5013, ErrorKind::ConnectionLost},
    {5014, ErrorKind::ConnectionLost},
    {1205, ErrorKind::Locked},
    {1213, ErrorKind::Locked},
    {1264, ErrorKind::ValueTooLarge},
    {1406, ErrorKind::ValueTooLarge},
    {1366, ErrorKind::WrongType},
    {1290, ErrorKind::ReadOnly},
    {1792, ErrorKind::ReadOnly},
    {1021, ErrorKind::DiskFull},
};

constexpr CodeMeaning SqlServerCodes[] = {
    // To the object, the column, a statement in the database, the database.
    {229, ErrorKind::NoRights}, {230, ErrorKind::NoRights},       {262, ErrorKind::NoRights},
    {916, ErrorKind::NoRights}, {18456, ErrorKind::LoginRefused}, {2714, ErrorKind::TableExists},
};

constexpr CodeMeaning SybaseCodes[] = {
    // To the object, the column, the database.
    {10330, ErrorKind::NoRights},
    {10331, ErrorKind::NoRights},
    {916, ErrorKind::NoRights},
    {2714, ErrorKind::TableExists},
};

constexpr CodeMeaning OracleCodes[] = {
    {1031, ErrorKind::NoRights},
    {1017, ErrorKind::LoginRefused},
    {955, ErrorKind::TableExists},
};

ErrorKind KindOf(const OdbcDiagnosis& diagnosis, const OdbcDialect& dialect) {
    if (dialect.refine != nullptr) {
        if (const ErrorKind kind = dialect.refine(diagnosis); kind != ErrorKind::Other) return kind;
    }
    const auto* meaning = std::ranges::find_if(
        StateMeanings, [&](const StateMeaning& entry) { return diagnosis.state.starts_with(entry.state); });
    return meaning == std::end(StateMeanings) ? ErrorKind::Other : meaning->kind;
}

OdbcDialect Sqlite() {
    return {.traits = {.newKey = NewKeySource::Query,
                       .newKeyQuery = "SELECT last_insert_rowid()",
                       .rowIdName = "rowid",
                       .transactionOutlivesFailure = true,
                       .textsHoldNul = false,
                       .comparesLongValues = true},
            .dynamicTypes = true,
            .calls = {.areNarrow = true},
            .refine = RefineSqlite};
}

OdbcDialect MariaDb() {
    return {.traits = {.newKey = NewKeySource::Returning,
                       .emptyInsert = "() VALUES ()",
                       .transactionOutlivesFailure = true,
                       .comparesLongValues = true,
                       .lexical = {.bracketNames = false,
                                   .backslashEscapes = true,
                                   .likeEscapes = true,
                                   .liftsTexts = true}},
            // Texts in another character set would lose what it does not hold; and a column that does not
            // hold a value must refuse it, whatever the server is set to. Oracle's language comes with a mode
            // of its own.
            .firstStatement =
                "SET character_set_client = utf8mb4, character_set_results = utf8mb4, collation_connection = "
                "IF(@@character_set_connection = 'utf8mb4', @@collation_connection, 'utf8mb4_general_ci'), "
                "sql_mode = IF(FIND_IN_SET('ORACLE', @@sql_mode), @@sql_mode, "
                "CONCAT_WS(',', NULLIF(@@sql_mode, ''), 'STRICT_TRANS_TABLES'))",
            .narrowTexts = true,
            .preparesLate = true,
            .refine = Refine<MariaDbCodes>};
}

OdbcDialect PostgreSql() {
    return {
        .traits = {.newKey = NewKeySource::Returning,
                   .transactionOutlivesFailure = true,  // the driver sets a savepoint before each statement
                   .textsHoldNul = false,
                   .comparesLongValues = true,
                   .lexical = {.bracketNames = false,
                               .dollarQuotes = true,
                               .likeEscapes = true,
                               .exactLike = true,
                               .liftsTexts = true}},
        .rowOrderColumn = "ctid",  // an updated row is stored anew, behind the others
        .preparesLate = true,
        .keysQuery =
            "SELECT n.nspname, c.relname, a.attname FROM pg_class c LEFT JOIN pg_index i ON i.indrelid = c.oid "
            "AND i.indisprimary "
            "LEFT JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum = ANY(i.indkey) "
            "JOIN pg_namespace n ON n.oid = c.relnamespace WHERE c.relkind IN ('r', 'p') AND "
            "pg_table_is_visible(c.oid) AND n.nspname NOT IN ('pg_catalog', 'information_schema') "
            "ORDER BY c.oid, a.attnum"};
}

OdbcDialect SqlServer() {
    return {.traits = {.newKey = NewKeySource::SameBatch, .newKeyQuery = "SELECT SCOPE_IDENTITY()"},
            .refine = Refine<SqlServerCodes>};
}

OdbcDialect Sybase() {
    return {.traits = {.newKey = NewKeySource::SameBatch, .newKeyQuery = "SELECT @@IDENTITY"},
            .refine = Refine<SybaseCodes>};
}

/// Keys are drawn by a trigger from the sequence "SEQ_" with the table's name, as the generated scripts have
/// it.
OdbcDialect Oracle() {
    return {.traits = {.newKey = NewKeySource::Sequence,
                       .newKeyQuery = "SELECT {sequence}.CURRVAL FROM DUAL",
                       .sequencePrefix = "SEQ_",
                       .lexical = {.bracketNames = false}},
            .refine = Refine<OracleCodes>};
}

struct Engine {
    std::string_view name;  ///< a part of what the engine calls itself
    OdbcDialect (*dialect)();
};

/// The first one that fits counts.
constexpr Engine Engines[] = {
    {"sqlite", Sqlite},
    {"mariadb", MariaDb},
    {"mysql", MariaDb},
    {"postgresql", PostgreSql},
    {"microsoft sql server", SqlServer},
    {"adaptive server", Sybase},
    {"sybase", Sybase},
    {"sql anywhere", Sybase},
    {"sql server", Sybase},
    {"oracle", Oracle},
};

}  // namespace

OdbcDialect DialectOf(std::string_view engineName) {
    const auto* engine = std::ranges::find_if(Engines, [engineName](const Engine& known) {
        return automation::ContainsIgnoreCase(engineName, known.name);
    });
    return engine == std::end(Engines) ? OdbcDialect() : engine->dialect();
}

EngineError OdbcError(const OdbcHandle& handle, const OdbcDialect& dialect) {
    const OdbcDiagnosis diagnosis = ReadDiagnosis(handle);
    return {KindOf(diagnosis, dialect), diagnosis.message, dialect.source};
}

}  // namespace korvex::native::sql
