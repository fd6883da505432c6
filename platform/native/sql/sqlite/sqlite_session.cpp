#include "platform/native/sql/sqlite/sqlite_session.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/native/sql/sqlite/sqlite_error.h"
#include "platform/native/sql/sqlite/sqlite_file.h"
#include "platform/native/sql/sqlite/sqlite_statement.h"

#include <cstdio>
#include <utility>

namespace korvex::native::sql {
namespace {

/// Removes a file that was made for a new database, unless the database came to be.
class NewFile {
  public:
    explicit NewFile(const std::string& path) : m_path(MakeDatabaseFile(path) ? path : "") {}
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (!m_path.empty()) std::remove(m_path.c_str());
    }
    void Keep() noexcept { m_path.clear(); }

  private:
    std::string m_path;
};

/// The failure to open a file, naming it.
[[noreturn]] void RaiseForFile(const std::string& path, const EngineError& error) {
    if (error.NativeCode() == SQLITE_READONLY_DIRECTORY) {
        throw EngineError(
            ErrorKind::CannotOpen,
            "The file keeps a write-ahead log beside itself, and no file can be made in its folder; "
            "ask for the right to write there, or have its owner do without the log "
            "(PRAGMA journal_mode = DELETE)",
            path);
    }
    const EngineError named(error.Kind(), error.what(), path);
    if (error.Kind() != ErrorKind::Locked) throw named;
    throw EngineError(ErrorKind::CannotOpen, DescribeFailure(named, {}), path);
}

}  // namespace

SqliteSession::SqliteSession(std::string_view path, const SqliteOptions& options)
    : Session(options.seam, m_ownTraits) {
    const std::string file(path);
    Check(CallKind::Connect, file);
    try {
        OpenFile(file, options);
    } catch (const EngineError& error) {
        RaiseForFile(file, error);
    }
}

void SqliteSession::OpenFile(const std::string& file, const SqliteOptions& options) {
    if (options.mode == SqliteMode::Memory) {
        Open(":memory:", options.mode);
        Configure(options, false);
        return;
    }
    if (file == ":memory:") {
        throw EngineError(ErrorKind::CannotOpen,
                          "This names a database in memory, which nobody could open again; name a file");
    }
    const bool mayCreate = options.mode == SqliteMode::Create || options.mode == SqliteMode::CreateNew;
    if (!mayCreate || !IsFileFree(file)) {
        RequireDatabaseFile(file);
        Open(file, options.mode);
        RequireDatabaseHeader(m_database.get(), file);
        Configure(options, false);
        if (options.mode == SqliteMode::CreateNew && !IsEmpty())
            throw EngineError(ErrorKind::CannotOpen, "The file exists, it holds a database");
        return;
    }
    NewFile newFile(file);
    Open(file, options.mode);
    Configure(options, true);
    newFile.Keep();
}

SqliteSession::~SqliteSession() { CloseAll(); }

void SqliteSession::Open(const std::string& path, SqliteMode mode) {
    const int flags = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (mode == SqliteMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
    m_database.reset(database);
    CheckSqlite(database, code);
}

/// Sets the connection up, which reads the file and so finds out whether it is a database.
void SqliteSession::Configure(const SqliteOptions& options, bool created) {
    sqlite3* database = m_database.get();
    sqlite3_busy_timeout(database, options.busyTimeoutMilliseconds);
    // A misspelt column name in double quotes is an error, not a text.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    // A file from elsewhere must not bring code along or be turned inside out.
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
    // A plan does not depend on what is bound: a text matched with "like" would have every execution planned
    // anew.
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
    if (created) Run("PRAGMA journal_mode = WAL");
    // In KiB: a definition of thousands of objects stays in memory while it is brought up to date.
    Run("PRAGMA cache_size = -16000");
    Run(options.fullSync ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    Run("SELECT count(*) FROM sqlite_schema");
}

void SqliteSession::Run(const char* text) {
    CheckSqlite(m_database.get(), sqlite3_exec(m_database.get(), text, nullptr, nullptr, nullptr));
}

/// Whether the database holds nothing at all.
bool SqliteSession::IsEmpty() {
    SqliteStatement query(m_database.get(), m_shapes, "SELECT 1 FROM sqlite_schema LIMIT 1");
    query.Execute();
    return !query.Fetch();
}

std::unique_ptr<Statement> SqliteSession::DoPrepare(std::string_view text, StatementVerb) {
    return std::make_unique<SqliteStatement>(m_database.get(), m_shapes, text);
}

void SqliteSession::DoRollback() {
    // A full disk or an I/O error has rolled back already.
    if (InTransaction()) Run("ROLLBACK");
}

TableInfo SqliteSession::DoDescribeTable(const TableName& name, const RowShape& /*shown*/) {
    SqliteStatement query(m_database.get(), m_shapes,
                          "SELECT name, pk FROM pragma_table_xinfo(?, ?) WHERE hidden <> 1");
    const automation::Variant table = name.table;
    const automation::Variant schema = name.schema.empty() ? "main" : name.schema;
    query.Bind(0, table, nullptr);
    query.Bind(1, schema, nullptr);
    query.Execute();
    TableInfo info{.name = name, .columns = {}};
    std::size_t keyColumns = 0;
    while (query.Fetch()) {
        TableColumn& column = info.columns.emplace_back();
        column.name = automation::ToString(query.Value(0));
        column.key = automation::ToLong(query.Value(1)) > 0;
        if (column.key) ++keyColumns;
    }
    if (keyColumns == 1) MarkNumberedColumn(info);
    return info;
}

std::vector<std::string> SqliteSession::DoListTables() {
    SqliteStatement query(m_database.get(), m_shapes,
                          "SELECT name FROM sqlite_schema WHERE type IN ('table', 'view')");
    query.Execute();
    std::vector<std::string> names;
    while (query.Fetch())
        names.push_back(automation::ToString(query.Value(0)));
    return names;
}

/// The engine numbers the key that is its row number: asked for that, it names the key column.
void SqliteSession::MarkNumberedColumn(TableInfo& table) {
    const std::string from = m_traits.QuoteBeside(table.name, table.name.table);
    try {
        SqliteStatement query(m_database.get(), m_shapes, "SELECT " + m_traits.rowIdName + " FROM " + from);
        const std::string& origin = query.Shape()->columns.front().baseColumn;
        for (TableColumn& column : table.columns) {
            if (column.key && automation::EqualsIgnoreCase(column.name, origin)) column.autoNumber = true;
        }
    } catch (const EngineError& error) {
        // A table without row numbers.
        if (error.Kind() != ErrorKind::NoSuchColumn) throw;
    }
}

}  // namespace korvex::native::sql
