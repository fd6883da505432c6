#pragma once

#include "platform/native/sql/row_writer.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

/// The rows that were added through a recordset, in the order added. What was not set of them is read from
/// the database when somebody asks for it.
class AddedRows {
  public:
    std::size_t Count() const noexcept { return m_rows.size(); }
    void Clear() noexcept { m_rows.clear(); }

    /// Stores a row of these values, which it takes over.
    void Add(RowWriter& writer, Changes& changes);
    automation::Variant Value(std::size_t row, std::size_t column, RowWriter& writer);
    /// NotUpdatable where the row cannot be found again.
    const RowIdentity& IdentityOf(std::size_t row) const;
    /// A value that was stored in the row's column `name` of the table.
    void Replace(std::size_t row, std::size_t column, std::string_view name,
                 const automation::Variant& value);

    /// Tells which rows of a statement that is executed now are among these: it gives them as well, somewhere
    /// among the others. Where they cannot be known there, they are left to the statement alone.
    std::function<bool(const Row&)> Recognizer(RowWriter& writer);

  private:
    struct AddedRow {
        Row values;  ///< Missing for what is still to be read from the database
        std::optional<RowIdentity> identity;
    };

    std::vector<AddedRow> m_rows;
};

}  // namespace korvex::native::sql
