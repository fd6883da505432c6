#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/session.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace korvex::native::sql {

using Row = std::vector<automation::Variant>;

/// A column of a cursor and its new value, in the form of ForColumn.
struct Change {
    std::size_t column;
    automation::Variant value;
};

/// How one stored row is found again: the columns of its table that identify it, with their values.
struct RowIdentity {
    std::vector<std::string> columns;
    Row values;
    bool unique = true;  ///< a key; otherwise all columns, which several rows may share
};

/// Writes rows of the one base table behind a cursor's columns, by INSERT and UPDATE statements of its own.
class RowWriter {
  public:
    /// NotUpdatable when the columns come from no table or from several.
    RowWriter(Session& session, std::shared_ptr<const RowShape> shape);

    const TableInfo& Table() const noexcept { return *m_table; }

    /// The identity of a row read from the database: the key, when the cursor has all of its columns, else
    /// all columns that can be compared.
    RowIdentity Identify(const Row& row) const;
    /// Adds a row; gives its identity, engine-given key included. Nothing when it cannot be found again.
    std::optional<RowIdentity> Insert(std::span<const Change> changes);
    /// Changes the one row of that identity; RecordChanged when there is none, or more than one.
    void Update(const RowIdentity& identity, std::span<const Change> changes);
    /// Reads the cursor's columns of a row; expressions stay Null. Nothing when the row is gone.
    std::optional<Row> Read(const RowIdentity& identity);

  private:
    const ColumnInfo& Column(std::size_t index) const { return m_shape->columns[index]; }
    std::string InsertText(std::span<const Change> changes, bool returning) const;
    std::optional<RowIdentity> NewIdentity(std::span<const Change> changes, StatementLease& insert,
                                           std::string_view text);
    automation::Variant NewKey(std::string_view insertText);
    void AppendName(std::string& text, std::string_view name) const;
    void AppendTable(std::string& text) const;
    void AppendWhere(std::string& text, const RowIdentity& identity) const;
    void BindIdentity(StatementLease& statement, std::size_t first, const RowIdentity& identity) const;
    void RequireSingle(const RowIdentity& identity);

    Session& m_session;
    std::shared_ptr<const RowShape> m_shape;
    std::shared_ptr<const TableInfo> m_table;
};

}  // namespace korvex::native::sql
