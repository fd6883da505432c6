#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/odbc/odbc_handle.h"

#include <cstdint>
#include <string>

namespace korvex::native::sql {

/// A bound parameter, in the form in which the driver reads it when the statement is executed. Stays where it
/// is from Assign to then.
class OdbcParameter {
  public:
    /// Takes a value, for a column or (null) for a comparison.
    void Assign(const automation::Variant& value, const ColumnInfo* column);
    /// Binds it to the parameter `index` (one-based) of a statement.
    SQLRETURN Bind(SQLHSTMT statement, SQLUSMALLINT index);

  private:
    void AssignNull(const ColumnInfo* column);
    void AssignBoolean(bool value, const ColumnInfo* column);
    void AssignInteger(std::int64_t value);
    void AssignReal(double value);
    void AssignCurrency(automation::Currency value);
    void AssignDate(automation::Date value);
    void AssignText(const std::string& value, const ColumnInfo* column);
    void AssignBytes(const automation::Bytes& value, const ColumnInfo* column);
    void Describe(SQLSMALLINT cType, SQLSMALLINT sqlType, void* data, SQLLEN length, SQLULEN size);

    SQLSMALLINT m_cType = SQL_C_CHAR;
    SQLSMALLINT m_sqlType = SQL_VARCHAR;
    SQLULEN m_size = 1;
    SQLSMALLINT m_digits = 0;
    void* m_data = nullptr;
    SQLLEN m_length = SQL_NULL_DATA;
    SQLINTEGER m_long = 0;
    std::int64_t m_integer = 0;
    unsigned char m_bit = 0;
    double m_real = 0;
    SQL_TIMESTAMP_STRUCT m_timestamp{};
    std::u16string m_wide;
    std::string m_narrow;
};

}  // namespace korvex::native::sql
