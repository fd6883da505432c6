#include "platform/native/sql/odbc/odbc_parameter.h"

#include "automation/convert.h"
#include "automation/date_text.h"
#include "automation/text.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>
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

/// To the millisecond.
SQL_TIMESTAMP_STRUCT ToTimestamp(automation::Date date) {
    const automation::Moment moment = automation::ToMoment(date);
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day day(midnight);
    const std::chrono::hh_mm_ss clock(moment - midnight);
    SQL_TIMESTAMP_STRUCT timestamp{};
    timestamp.year = static_cast<SQLSMALLINT>(static_cast<int>(day.year()));
    timestamp.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(day.month()));
    timestamp.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(day.day()));
    timestamp.hour = static_cast<SQLUSMALLINT>(clock.hours().count());
    timestamp.minute = static_cast<SQLUSMALLINT>(clock.minutes().count());
    timestamp.second = static_cast<SQLUSMALLINT>(clock.seconds().count());
    timestamp.fraction = static_cast<SQLUINTEGER>(std::chrono::nanoseconds(clock.subseconds()).count());
    return timestamp;
}

}  // namespace

void OdbcParameter::Assign(const Variant& value, const ColumnInfo* column, bool narrowText) {
    std::visit(
        [&](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, bool>) {
                // True is -1 in a number column, as automation has it.
                if (column == nullptr || column->type != ColumnType::Boolean)
                    AssignInteger(held ? -1 : 0);
                else
                    AssignFixed<unsigned char>(held, SQL_C_BIT, SQL_BIT, 1);
            } else if constexpr (std::is_integral_v<T>) {
                AssignInteger(held);
            } else if constexpr (std::is_floating_point_v<T>) {
                AssignFixed<double>(held, SQL_C_DOUBLE, SQL_DOUBLE, 15);
            } else if constexpr (std::is_same_v<T, automation::Currency>) {
                Keep(m_narrow, automation::ToString(held));
                Describe(SQL_C_CHAR, SQL_DECIMAL, m_narrow.data(), static_cast<SQLLEN>(m_narrow.size()), 19,
                         4);
            } else if constexpr (std::is_same_v<T, automation::Date>) {
                AssignFixed(ToTimestamp(held), SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 23, 3);
            } else if constexpr (std::is_same_v<T, std::string>) {
                if (narrowText)
                    AssignText(m_narrow, std::string_view(held), SQL_C_CHAR, SQL_VARCHAR, SQL_LONGVARCHAR,
                               column);
                else
                    AssignText(m_wide, automation::ToUtf16(held), SQL_C_WCHAR, SQL_WVARCHAR, SQL_WLONGVARCHAR,
                               column);
            } else if constexpr (std::is_same_v<T, automation::Bytes>) {
                const std::string_view bytes(reinterpret_cast<const char*>(held.data()), held.size());
                AssignText(m_narrow, bytes, SQL_C_BINARY, SQL_VARBINARY, SQL_LONGVARBINARY, column);
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

/// Not every driver takes numbers of 64 bits.
void OdbcParameter::AssignInteger(std::int64_t value) {
    const auto narrow = static_cast<SQLINTEGER>(value);
    if (narrow == value) return AssignFixed(narrow, SQL_C_SLONG, SQL_INTEGER, 10);
    AssignFixed(value, SQL_C_SBIGINT, SQL_BIGINT, 19);
}

template <class Number>
void OdbcParameter::AssignFixed(const Number& value, SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size,
                                SQLSMALLINT digits) noexcept {
    static_assert(sizeof value <= sizeof m_fixed);
    std::memcpy(&m_fixed, &value, sizeof value);
    Describe(cType, sqlType, &m_fixed, sizeof value, size, digits);
}

template <class Text>
void OdbcParameter::AssignText(Text& buffer, std::basic_string_view<typename Text::value_type> value,
                               SQLSMALLINT cType, SQLSMALLINT shortType, SQLSMALLINT longType,
                               const ColumnInfo* column) {
    Keep(buffer, value);
    const bool isLong = IsLongColumn(column) || value.size() > LongDataFrom;
    Describe(cType, isLong ? longType : shortType, buffer.data(),
             static_cast<SQLLEN>(value.size() * sizeof(typename Text::value_type)), SteadySize(value.size()));
}

}  // namespace korvex::native::sql
