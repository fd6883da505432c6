#pragma once

#include "platform/native/sql/session.h"
#include "platform/native/sql/sqlite/sqlite_shapes.h"

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvex::native::sql {

enum class SqliteMode : std::uint8_t {
    ReadWrite,  ///< an existing database
    ReadOnly,
    Create,     ///< an existing database, or a new one; an empty file is none yet
    CreateNew,  ///< a new database, also in the place of one without tables, as killed programs leave; else
                ///< CannotOpen when the name is taken
    Memory,     ///< a private database without a file
};

struct SqliteOptions {
    SqliteMode mode = SqliteMode::ReadWrite;
    /// Every commit reaches the disk before it returns. Without it the last ones may be lost when the power
    /// fails.
    bool fullSync = true;
    std::int32_t busyTimeoutMilliseconds = 5000;
    std::shared_ptr<Seam> seam;
};

/// The embedded engine. Opening checks that the file is a database: FileNotFound, CannotOpen, NotADatabase,
/// Locked. New files keep a write-ahead log; existing ones the journal they have.
class SqliteSession final : public Session {
  public:
    SqliteSession(std::string_view path, const SqliteOptions& options);
    ~SqliteSession() override;

    bool InTransaction() const noexcept override { return sqlite3_get_autocommit(m_database.get()) == 0; }
    std::int64_t LastRowId() const noexcept override { return sqlite3_last_insert_rowid(m_database.get()); }

  private:
    std::unique_ptr<Statement> DoPrepare(std::string_view text, StatementVerb kind) override;
    /// Takes the write lock at once: a transaction that began by reading could not wait for it later.
    void DoBegin() override { Run("BEGIN IMMEDIATE"); }
    void DoCommit() override { Run("COMMIT"); }
    void DoRollback() override;
    TableInfo DoDescribeTable(const TableName& name, const RowShape& shown) override;
    std::vector<std::string> DoListTables() override;
    void DoForgetDefinitions() noexcept override { m_shapes.Forget(); }

    void OpenFile(const std::string& file, const SqliteOptions& options);
    void Open(const std::string& path, SqliteMode mode);
    void Configure(const SqliteOptions& options, bool created);
    void Run(const char* text);
    bool IsEmpty();
    void MarkNumberedColumn(TableInfo& table);

    std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)> m_database{nullptr, &sqlite3_close_v2};
    SqliteShapes m_shapes;
    EngineTraits m_ownTraits{.newKey = NewKeySource::LastRowId,
                             .rowIdName = "rowid",
                             .transactionOutlivesFailure = true,
                             .comparesLongValues = true,
                             .lexical = {.liftsTexts = true}};
};

}  // namespace korvex::native::sql
