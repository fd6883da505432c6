#include "automation/text.h"
#include "hosts/cli/check/check.h"

#include <span>
#include <unordered_map>

namespace korvex::cli {

namespace {

// Each word stands in the list of all who reserve it.
// clang-format off
constexpr std::string_view EverywhereWords[] = {
    "ADD", "ALL", "ALTER", "AND", "ANY", "AS", "ASC", "BETWEEN", "BY", "CHECK", "CREATE", "CURRENT",
    "DEFAULT", "DELETE", "DESC", "DISTINCT", "DROP", "ELSE", "EXISTS", "FOR", "FROM", "GRANT", "GROUP",
    "HAVING", "IN", "INDEX", "INSERT", "INTERSECT", "INTO", "IS", "LIKE", "NOT", "NULL", "OF", "ON",
    "OPTION", "OR", "ORDER", "PUBLIC", "REVOKE", "SELECT", "SET", "TABLE", "TO", "TRIGGER", "UNION",
    "UNIQUE", "UPDATE", "USER", "VALUES", "VIEW", "WHERE", "WITH"};

constexpr std::string_view MsSqlOracleWords[] = {
    "COLUMN", "FILE", "THEN"};

constexpr std::string_view MsSqlSybaseWords[] = {
    "AUTHORIZATION", "BEGIN", "BREAK", "BROWSE", "BULK", "CASCADE", "CASE", "CHECKPOINT", "CLOSE",
    "CLUSTERED", "COALESCE", "COMMIT", "COMPUTE", "CONSTRAINT", "CONTINUE", "CONVERT", "CURSOR",
    "DATABASE", "DBCC", "DEALLOCATE", "DECLARE", "DISK", "DUMP", "END", "ERRLVL", "ESCAPE", "EXCEPT",
    "EXEC", "EXECUTE", "EXIT", "EXTERNAL", "FETCH", "FILLFACTOR", "FOREIGN", "FUNCTION", "GOTO",
    "HOLDLOCK", "IDENTITY", "IF", "JOIN", "KEY", "KILL", "LINENO", "LOAD", "NATIONAL", "NONCLUSTERED",
    "NULLIF", "OFF", "OFFSETS", "OPEN", "OVER", "PLAN", "PRIMARY", "PRINT", "PROC", "PROCEDURE",
    "RAISERROR", "READ", "READTEXT", "RECONFIGURE", "REFERENCES", "REPLICATION", "RETURN", "ROLLBACK",
    "ROWCOUNT", "RULE", "SAVE", "SCHEMA", "SETUSER", "SHUTDOWN", "SOME", "STATISTICS", "TEXTSIZE", "TRAN",
    "TRANSACTION", "TRUNCATE", "TSEQUAL", "USE", "VARYING", "WAITFOR", "WHEN", "WHILE", "WRITETEXT"};

constexpr std::string_view OracleSybaseWords[] = {
    "CONNECT", "EXCLUSIVE", "LEVEL", "LOCK", "MODIFY", "ONLINE", "ROWS"};

constexpr std::string_view MsSqlWords[] = {
    "BACKUP", "COLLATE", "CONTAINS", "CONTAINSTABLE", "CROSS", "CURRENT_DATE", "CURRENT_TIME",
    "CURRENT_TIMESTAMP", "CURRENT_USER", "DENY", "DISTRIBUTED", "DOUBLE", "FREETEXT", "FREETEXTTABLE",
    "FULL", "IDENTITYCOL", "IDENTITY_INSERT", "INNER", "LEFT", "MERGE", "NOCHECK", "OPENDATASOURCE",
    "OPENQUERY", "OPENROWSET", "OPENXML", "OUTER", "PERCENT", "PIVOT", "PRECISION", "RESTORE", "RESTRICT",
    "REVERT", "RIGHT", "ROWGUIDCOL", "SECURITYAUDIT", "SESSION_USER", "SYSTEM_USER", "TABLESAMPLE", "TOP",
    "UNPIVOT", "UPDATETEXT"};

constexpr std::string_view OracleWords[] = {
    "ACCESS", "AUDIT", "CHAR", "CLUSTER", "COMMENT", "COMPRESS", "DATE", "DECIMAL", "FLOAT", "IDENTIFIED",
    "IMMEDIATE", "INCREMENT", "INITIAL", "INTEGER", "LONG", "MAXEXTENTS", "MINUS", "MLSLABEL", "MODE",
    "NOAUDIT", "NOCOMPRESS", "NOWAIT", "NUMBER", "OFFLINE", "PCTFREE", "PRIOR", "RAW", "RENAME",
    "RESOURCE", "ROW", "ROWID", "ROWNUM", "SESSION", "SHARE", "SIZE", "SMALLINT", "START", "SUCCESSFUL",
    "SYNONYM", "SYSDATE", "UID", "VALIDATE", "VARCHAR", "VARCHAR2", "WHENEVER"};

constexpr std::string_view SybaseWords[] = {
    "ARITH_OVERFLOW", "AT", "AVG", "CHAR_CONVERT", "CONFIRM", "CONTROLROW", "COUNT", "DECRYPT",
    "DETERMINISTIC", "DUMMY", "ENCRYPT", "ENDTRAN", "ERRORDATA", "ERROREXIT", "EXP_ROW_SIZE", "FUNC",
    "IDENTITY_GAP", "IDENTITY_START", "INOUT", "INSENSITIVE", "INSTALL", "ISOLATION", "JAR", "MAX",
    "MAX_ROWS_PER_PAGE", "MIN", "MIRROR", "MIRROREXIT", "NEW", "NOHOLDLOCK", "NUMERIC_TRUNCATION", "ONCE",
    "ONLY", "OUT", "OUTPUT", "PARTITION", "PERM", "PERMANENT", "PREPARE", "PRIVILEGES", "PROCESSEXIT",
    "PROXY_TABLE", "QUIESCE", "READPAST", "REMOVE", "REORG", "REPLACE", "RESERVEPAGEGAP", "RETURNS",
    "ROLE", "SCROLL", "SEMI_SENSITIVE", "SHARED", "STRINGSIZE", "STRIPE", "SUM", "SYB_IDENTITY",
    "SYB_RESTREE", "SYB_TERMINATE", "TEMP", "TEMPORARY", "TRACEFILE", "UNPARTITION", "USER_OPTION",
    "USING", "WORK", "XMLEXTRACT", "XMLPARSE", "XMLTABLE", "XMLTEST", "XMLVALIDATE"};
// clang-format on

struct DialectWords {
    std::string_view dialects;
    std::span<const std::string_view> words;
};

constexpr DialectWords Groups[] = {
    {"MS SQL, Oracle, Sybase", EverywhereWords},
    {"MS SQL, Oracle", MsSqlOracleWords},
    {"MS SQL, Sybase", MsSqlSybaseWords},
    {"Oracle, Sybase", OracleSybaseWords},
    {"MS SQL", MsSqlWords},
    {"Oracle", OracleWords},
    {"Sybase", SybaseWords},
};

}  // namespace

std::string_view ReservedBy(std::string_view name) {
    static const auto owners = [] {
        std::unordered_map<std::string_view, std::string_view> dialectsOf;
        for (const auto& [dialects, words] : Groups)
            for (const std::string_view word : words)
                dialectsOf.emplace(word, dialects);
        return dialectsOf;
    }();
    const auto found = owners.find(automation::ToUpperAscii(name));
    return found == owners.end() ? std::string_view() : found->second;
}

}  // namespace korvex::cli
