#pragma once

#include "platform/native/sql/column.h"
#include "platform/native/sql/traits.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

/// How the rows behind a result's columns are written: their one table, and the pieces of its statements.
/// Made once for a shape and shared by all cursors that have it.
class WritePlan {
  public:
    /// NotUpdatable when the columns come from no table or from several.
    static const TableName& BaseTable(const RowShape& shape);

    WritePlan(const EngineTraits& traits, std::shared_ptr<const RowShape> shape,
              std::shared_ptr<const TableInfo> table);

    const RowShape& Shape() const noexcept { return *m_shape; }
    const ColumnInfo& Column(std::size_t index) const noexcept { return m_shape->columns[index]; }
    const TableInfo& Table() const noexcept { return *m_table; }
    /// Positions of the primary key's columns; nothing for a table without a key, or when the columns lack a
    /// part of it.
    const std::optional<std::vector<std::size_t>>& KeyColumns() const noexcept { return m_keyColumns; }
    /// The first column that shows a column of the table.
    std::optional<std::size_t> PositionOf(std::string_view tableColumn) const noexcept;

    const std::string& QuotedTable() const noexcept { return m_quotedTable; }
    const std::string& QuotedName(std::size_t index) const noexcept { return m_quotedNames[index]; }
    /// INSERT of the columns at these positions.
    const std::string& InsertText(std::span<const std::size_t> columns) const;
    /// UPDATE of the columns at these positions, without its condition.
    const std::string& UpdateText(std::span<const std::size_t> columns) const;
    /// What asks for the key of the row inserted last (NewKeySource::Query, SameBatch and Sequence).
    std::string NewKeyQuery() const;

  private:
    std::string ComposeInsert(std::span<const std::size_t> columns) const;
    std::string ComposeUpdate(std::span<const std::size_t> columns) const;
    std::string ReturningText() const;

    const EngineTraits& m_traits;
    std::shared_ptr<const RowShape> m_shape;
    std::shared_ptr<const TableInfo> m_table;
    std::optional<std::vector<std::size_t>> m_keyColumns;
    std::string m_quotedTable;
    std::vector<std::string> m_quotedNames;
    /// The statement composed last: one host mostly sets the same columns.
    struct ComposedText {
        std::vector<std::size_t> columns;
        std::string text;

        bool IsFor(std::span<const std::size_t> wanted) const noexcept;
    };
    mutable ComposedText m_insert;
    mutable ComposedText m_update;
};

}  // namespace korvex::native::sql
