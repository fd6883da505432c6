#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"
#include "platform/native/sql/odbc/odbc_handle.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::native::sql {

/// A bound parameter, in the form in which the driver reads it when the statement is executed. Stays where it
/// is from Assign to then.
class OdbcParameter {
  public:
    /// Takes a value, for a column or (null) for a comparison; its text as UTF-8 or UTF-16.
    void Assign(const automation::Variant& value, const ColumnInfo* column, bool narrowText);
    /// Binds it to the parameter `index` (one-based) of a statement; does nothing when it is bound already
    /// and only its value is another one.
    SQLRETURN Bind(SQLHSTMT statement, SQLUSMALLINT index);

  private:
    void AssignNull(const ColumnInfo* column);
    void AssignInteger(std::int64_t value);
    template <class Number>
    void AssignFixed(const Number& value, SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size,
                     SQLSMALLINT digits = 0) noexcept;
    /// Texts and bytes: `shortType`, or `longType` for a long column or value.
    template <class Text>
    void AssignText(Text& buffer, std::basic_string_view<typename Text::value_type> value, SQLSMALLINT cType,
                    SQLSMALLINT shortType, SQLSMALLINT longType, const ColumnInfo* column);
    void Describe(SQLSMALLINT cType, SQLSMALLINT sqlType, void* data, SQLLEN length, SQLULEN size,
                  SQLSMALLINT digits = 0) noexcept;

    /// What a driver is told of a parameter once.
    struct Form {
        SQLSMALLINT cType = SQL_C_CHAR;
        SQLSMALLINT sqlType = SQL_VARCHAR;
        SQLULEN size = 1;
        SQLSMALLINT digits = 0;
        void* data = nullptr;
        /// Of bytes: one driver takes their number when they are bound, not when the statement is executed.
        SQLLEN length = 0;

        friend bool operator==(const Form&, const Form&) = default;
    };
    Form m_form;
    std::optional<Form> m_bound;
    /// The value's, which the driver reads with it.
    SQLLEN m_length = SQL_NULL_DATA;
    alignas(std::int64_t) SQL_TIMESTAMP_STRUCT m_fixed{};  ///< any value of fixed size: this is the largest
    std::u16string m_wide;
    std::string m_narrow;
};

}  // namespace korvex::native::sql
