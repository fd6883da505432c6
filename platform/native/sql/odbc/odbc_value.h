#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/odbc/odbc_dialect.h"

#include <optional>
#include <string>

namespace korvex::native::sql {

/// A number that came as text; what is no number stays text.
automation::Variant NumberFromText(const std::string& text, const ColumnInfo& column);

/// Reads one value of a fetched row that was not bound.
class OdbcValueReader {
  public:
    OdbcValueReader(const OdbcHandle& statement, const OdbcDialect& dialect, SQLUSMALLINT column)
        : m_statement(statement), m_dialect(dialect), m_column(column) {}

    automation::Variant Read(const ColumnInfo& column);

  private:
    /// Whether a value of fixed size was there; false for Null.
    bool ReadFixed(SQLSMALLINT cType, void* target, SQLLEN size);
    /// Reads long or short data in as few calls as its size allows; nothing for Null.
    template <class Unit>
    std::optional<std::basic_string<Unit>> ReadChunks(SQLSMALLINT cType);
    std::optional<std::string> ReadText();
    automation::Variant ReadBytes();
    automation::Variant ReadBoolean(const ColumnInfo& column);
    automation::Variant ReadDate(const ColumnInfo& column);

    const OdbcHandle& m_statement;
    const OdbcDialect& m_dialect;
    SQLUSMALLINT m_column;
};

}  // namespace korvex::native::sql
