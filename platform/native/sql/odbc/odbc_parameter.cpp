#include "platform/native/sql/odbc/odbc_parameter.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/native/sql/odbc/odbc_date.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <type_traits>

namespace korvex::native::sql {
namespace {

using automation::Variant;

/// From here on text and bytes go as long data, in characters or bytes.
constexpr std::size_t LongDataFrom = 4000;

/// Most sizes become the same one, few others come up.
std::size_t Rounded(std::size_t size) noexcept { return std::max(std::bit_ceil(size), std::size_t{64}); }

/// The size that a driver is told for a value: the same for most, so that it need not be told anew, and never
/// more than a parameter of that type may have while the value is not long data.
SQLULEN SteadySize(std::size_t size) noexcept {
    return size > LongDataFrom ? size : std::min(Rounded(size), LongDataFrom);
}

/// Copies a value into a buffer that stays in its place while values are not longer than before.
template <class Text>
void Keep(Text& buffer, std::basic_string_view<typename Text::value_type> value) {
    if (buffer.capacity() < value.size()) buffer.reserve(Rounded(value.size()));
    buffer.assign(value);
}

bool IsLongColumn(const ColumnInfo* column) noexcept { return column != nullptr && IsLong(column->type); }

struct NullType {
    ColumnType column;
    SQLSMALLINT sql;
};

constexpr NullType NullTypes[] = {
    {ColumnType::Boolean, SQL_BIT},      {ColumnType::TinyInt, SQL_INTEGER},
    {ColumnType::SmallInt, SQL_INTEGER}, {ColumnType::Integer, SQL_INTEGER},
    {ColumnType::BigInt, SQL_BIGINT},    {ColumnType::Single, SQL_DOUBLE},
    {ColumnType::Double, SQL_DOUBLE},    {ColumnType::Currency, SQL_DECIMAL},
    {ColumnType::Decimal, SQL_DECIMAL},  {ColumnType::Date, SQL_TYPE_TIMESTAMP},
    {ColumnType::Binary, SQL_VARBINARY}, {ColumnType::LongBinary, SQL_LONGVARBINARY},
};

SQLSMALLINT NullTypeFor(const ColumnInfo* column) noexcept {
    const auto* known = column == nullptr ? std::end(NullTypes)
                                          : std::ranges::find(NullTypes, column->type, &NullType::column);
    return known == std::end(NullTypes) ? SQLSMALLINT{SQL_VARCHAR} : known->sql;
}

}  // namespace

void OdbcParameter::Assign(const Variant& value, const ColumnInfo* column, bool narrowText) {
    std::visit(
        [&](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, bool>) {
                AssignBoolean(held, column);
            } else if constexpr (std::is_integral_v<T>) {
                AssignInteger(held);
            } else if constexpr (std::is_floating_point_v<T>) {
                AssignReal(static_cast<double>(held));
            } else if constexpr (std::is_same_v<T, automation::Currency>) {
                AssignCurrency(held);
            } else if constexpr (std::is_same_v<T, automation::Date>) {
                AssignDate(held);
            } else if constexpr (std::is_same_v<T, std::string>) {
                narrowText ? AssignNarrowText(held, column) : AssignText(held, column);
            } else if constexpr (std::is_same_v<T, automation::Bytes>) {
                AssignBytes(held, column);
            } else {
                AssignNull(column);
            }
        },
        value.Value());
}

SQLRETURN OdbcParameter::Bind(SQLHSTMT statement, SQLUSMALLINT index) {
    if (m_bound == m_form) return SQL_SUCCESS;
    m_bound.reset();
    const SQLRETURN result = SQLBindParameter(statement, index, SQL_PARAM_INPUT, m_form.cType, m_form.sqlType,
                                              m_form.size, m_form.digits, m_form.data, 0, &m_length);
    if (SQL_SUCCEEDED(result)) m_bound = m_form;
    return result;
}

void OdbcParameter::Describe(SQLSMALLINT cType, SQLSMALLINT sqlType, void* data, SQLLEN length, SQLULEN size,
                             SQLSMALLINT digits) noexcept {
    m_form = {.cType = cType,
              .sqlType = sqlType,
              .size = size,
              .digits = digits,
              .data = data,
              .length = cType == SQL_C_BINARY ? length : 0};
    m_length = length;
}

/// Null fits whatever form the parameter has.
void OdbcParameter::AssignNull(const ColumnInfo* column) {
    if (m_bound) {
        m_form = *m_bound;
        m_length = SQL_NULL_DATA;
    } else {
        Describe(SQL_C_CHAR, NullTypeFor(column), nullptr, SQL_NULL_DATA, 1);
    }
}

/// True is -1 in a number column, as automation has it.
void OdbcParameter::AssignBoolean(bool value, const ColumnInfo* column) {
    if (column == nullptr || column->type != ColumnType::Boolean) return AssignInteger(value ? -1 : 0);
    m_bit = value ? 1 : 0;
    Describe(SQL_C_BIT, SQL_BIT, &m_bit, 1, 1);
}

/// Not every driver takes numbers of 64 bits.
void OdbcParameter::AssignInteger(std::int64_t value) {
    m_long = static_cast<SQLINTEGER>(value);
    if (m_long == value) return Describe(SQL_C_SLONG, SQL_INTEGER, &m_long, sizeof m_long, 10);
    m_integer = value;
    Describe(SQL_C_SBIGINT, SQL_BIGINT, &m_integer, sizeof m_integer, 19);
}

void OdbcParameter::AssignReal(double value) {
    m_real = value;
    Describe(SQL_C_DOUBLE, SQL_DOUBLE, &m_real, sizeof m_real, 15);
}

void OdbcParameter::AssignCurrency(automation::Currency value) {
    Keep(m_narrow, automation::ToString(value));
    Describe(SQL_C_CHAR, SQL_DECIMAL, m_narrow.data(), static_cast<SQLLEN>(m_narrow.size()), 19, 4);
}

void OdbcParameter::AssignDate(automation::Date value) {
    m_timestamp = ToTimestamp(value);
    Describe(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, &m_timestamp, sizeof m_timestamp, 23, 3);
}

void OdbcParameter::AssignText(const std::string& value, const ColumnInfo* column) {
    Keep(m_wide, automation::ToUtf16(value));
    DescribeText(m_wide, SQL_C_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR, column);
}

void OdbcParameter::AssignNarrowText(const std::string& value, const ColumnInfo* column) {
    Keep(m_narrow, std::string_view(value));
    DescribeText(m_narrow, SQL_C_CHAR, SQL_VARCHAR, SQL_LONGVARCHAR, column);
}

void OdbcParameter::AssignBytes(const automation::Bytes& value, const ColumnInfo* column) {
    Keep(m_narrow, std::string_view(reinterpret_cast<const char*>(value.data()), value.size()));
    DescribeText(m_narrow, SQL_C_BINARY, SQL_VARBINARY, SQL_LONGVARBINARY, column);
}

template <class Text>
void OdbcParameter::DescribeText(Text& value, SQLSMALLINT cType, SQLSMALLINT shortType, SQLSMALLINT longType,
                                 const ColumnInfo* column) noexcept {
    const std::size_t size = value.size();
    const bool isLong = IsLongColumn(column) || size > LongDataFrom;
    Describe(cType, isLong ? longType : shortType, value.data(),
             static_cast<SQLLEN>(size * sizeof(typename Text::value_type)), SteadySize(size));
}

}  // namespace korvex::native::sql
