#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/odbc/odbc_dialect.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace korvex::native::sql {

/// One column of a statement's result. Short values are fetched into a buffer of the column's own, all of a
/// row in one call; long ones are read when somebody asks for them. Stays where it is while it is bound.
class OdbcColumn {
  public:
    /// `index` is one-based; `info` outlives the column.
    OdbcColumn(SQLUSMALLINT index, const ColumnInfo& info) : m_index(index), m_info(&info) {}

    /// Gives the driver the buffer, for values that are short.
    void Bind(const OdbcHandle& statement, const OdbcDialect& dialect);
    /// Forgets the value of the row before.
    void StartRow() noexcept { m_read.reset(); }
    /// Reads the value of a column that is not bound; a second time it does nothing.
    void Read(const OdbcHandle& statement, const OdbcDialect& dialect);
    /// The value of the current row.
    automation::Variant Value(const OdbcHandle& statement, const OdbcDialect& dialect);

  private:
    bool IsBound() const noexcept { return m_buffer != nullptr; }
    bool IsCutOff() const noexcept;
    automation::Variant BoundValue() const;
    std::string Text(std::size_t length) const;
    template <class T>
    T Content() const noexcept;

    SQLUSMALLINT m_index;
    const ColumnInfo* m_info;
    SQLSMALLINT m_cType = 0;
    std::size_t m_capacity = 0;  ///< bytes of the buffer
    std::unique_ptr<std::byte[]> m_buffer;
    SQLLEN m_length = 0;                        ///< of the value fetched, or SQL_NULL_DATA
    std::optional<automation::Variant> m_read;  ///< drivers give a value that is not bound only once
};

}  // namespace korvex::native::sql
