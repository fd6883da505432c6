#pragma once

#include "platform/native/sql/sqlite/sqlite_shapes.h"
#include "platform/native/sql/statement.h"

#include <sqlite3.h>

#include <memory>
#include <string_view>

namespace korvex::native::sql {

class SqliteStatement final : public Statement {
  public:
    /// Prepares `text`; SecondStatement when another one follows. `shapes` outlives the statement.
    SqliteStatement(sqlite3* database, SqliteShapes& shapes, std::string_view text);

    const std::shared_ptr<const RowShape>& Shape() noexcept override { return m_shape; }
    std::size_t ParameterCount() const noexcept override { return m_parameterCount; }
    bool Writes() noexcept override { return m_writes; }
    void Bind(std::size_t index, const automation::Variant& value, const ColumnInfo* column) override;
    void Execute() override;
    bool Fetch() override;
    automation::Variant Value(std::size_t column) override;
    void Keep(KeptRow& row) override;
    std::int64_t AffectedRows() const noexcept override { return m_affectedRows; }
    void Reset() noexcept override;

  private:
    bool Step();
    Cell CellAt(int index) const;
    int RepreparedCount() const noexcept;

    sqlite3* m_database;
    SqliteShapes& m_shapes;
    std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> m_statement{nullptr, &sqlite3_finalize};
    std::shared_ptr<const RowShape> m_shape;
    std::size_t m_parameterCount = 0;
    bool m_writes = false;
    bool m_firstRowReady = false;
    bool m_finished = true;
    int m_reprepared = 0;
    std::int64_t m_affectedRows = 0;
};

}  // namespace korvex::native::sql
