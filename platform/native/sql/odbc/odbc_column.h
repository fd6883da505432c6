#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/odbc/odbc_dialect.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::native::sql {

/// One column of a statement's result. Short values are fetched into a buffer of the column's own, all of a
/// row in one call, when it is bound; others are read when somebody asks for them. Stays where it is while it
/// is bound.
class OdbcColumn {
  public:
    /// `index` is one-based; the others outlive the column.
    OdbcColumn(const OdbcHandle& statement, const OdbcDialect& dialect, SQLUSMALLINT index,
               const ColumnInfo& info);

    /// Gives the driver the buffer, for values that are short.
    void Bind();
    /// Forgets the value of the row before.
    void StartRow() noexcept { m_read.reset(); }
    /// Reads the value of a column that is not bound; a second time it does nothing.
    void Read();
    /// The value of the current row.
    automation::Variant Value();

  private:
    bool IsCutOff() const noexcept;
    bool ReadData(std::string& data) const;
    automation::Variant FromData(std::string_view data) const;

    const OdbcHandle& m_statement;
    const OdbcDialect& m_dialect;
    SQLUSMALLINT m_index;
    const ColumnInfo* m_info;
    SQLSMALLINT m_cType;     ///< as what the driver gives the values
    std::size_t m_capacity;  ///< bytes of the buffer; 0 for values that are long
    std::unique_ptr<std::byte[]> m_buffer;
    SQLLEN m_length = 0;                        ///< of the value fetched, or SQL_NULL_DATA
    std::optional<automation::Variant> m_read;  ///< drivers give a value that is not bound only once
};

}  // namespace korvex::native::sql
