#include "platform/native/sql/odbc/odbc_column.h"

#include "automation/convert.h"
#include "automation/date_text.h"
#include "automation/error.h"
#include "automation/text.h"
#include "platform/native/sql/column_value.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

namespace korvex::native::sql {
namespace {

using automation::Variant;

/// Longer texts and bytes are rare: a value that does not fit is read again.
constexpr std::size_t LongestBound = 512;

/// The bytes behind the end of a text.
std::size_t TerminatorOf(SQLSMALLINT cType) noexcept {
    if (cType == SQL_C_WCHAR) return sizeof(char16_t);
    return cType == SQL_C_CHAR ? 1 : 0;
}

bool HasFixedSize(SQLSMALLINT cType) noexcept {
    return cType != SQL_C_CHAR && cType != SQL_C_WCHAR && cType != SQL_C_BINARY;
}

/// What values of a column are asked for as. A number, a date or a Boolean of a column that may hold anything
/// is a text first.
SQLSMALLINT CTypeOf(ColumnType type, const OdbcDialect& dialect) noexcept {
    if (type == ColumnType::Single || type == ColumnType::Double) return SQL_C_DOUBLE;
    if (IsBinary(type)) return SQL_C_BINARY;
    const SQLSMALLINT text = dialect.narrowTexts ? SQL_C_CHAR : SQL_C_WCHAR;
    if (dialect.dynamicTypes) return text;
    switch (type) {
        case ColumnType::TinyInt:
        case ColumnType::SmallInt:
        case ColumnType::Integer:
        case ColumnType::BigInt:
            return SQL_C_SBIGINT;
        case ColumnType::Boolean:
            return SQL_C_BIT;
        case ColumnType::Date:
            return SQL_C_TYPE_TIMESTAMP;
        default:
            return text;
    }
}

/// The bytes that most values of a column take in that form; 0 when they are long.
std::size_t CapacityOf(const ColumnInfo& column, SQLSMALLINT cType) noexcept {
    if (cType == SQL_C_BIT) return sizeof(unsigned char);
    if (cType == SQL_C_TYPE_TIMESTAMP) return sizeof(SQL_TIMESTAMP_STRUCT);
    if (HasFixedSize(cType)) return sizeof(std::int64_t);
    if (IsLong(column.type)) return 0;
    const bool isNumber = column.type == ColumnType::Currency || column.type == ColumnType::Decimal;
    const std::size_t declared = isNumber ? 64 : column.size;
    const std::size_t units = declared == 0 ? LongestBound : std::min(declared, LongestBound);
    const std::size_t terminator = TerminatorOf(cType);
    return units * std::max<std::size_t>(terminator, 1) + terminator;
}

std::optional<std::int64_t> ParseInteger(std::string_view text) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

/// A number that came as text; what is no number stays text.
Variant NumberFromText(const std::string& text, const ColumnInfo& column) {
    const std::string_view trimmed = automation::Trim(text);
    if (column.type == ColumnType::Currency) {
        try {
            return automation::ToCurrency(trimmed);
        } catch (const automation::Error&) {
            // More than a Currency holds is a number all the same.
        }
    }
    if (const auto whole = ParseInteger(trimmed)) return FromInteger(*whole, column);
    try {
        return FromReal(automation::ParseNumber(trimmed), column);
    } catch (const automation::Error&) {
        return text;
    }
}

Variant BooleanFromText(const std::string& text, const ColumnInfo& column) {
    if (automation::EqualsIgnoreCase(text, "true") || automation::EqualsIgnoreCase(text, "t")) return true;
    if (automation::EqualsIgnoreCase(text, "false") || automation::EqualsIgnoreCase(text, "f")) return false;
    return NumberFromText(text, column);
}

Variant DateFromText(const std::string& text, const ColumnInfo& column) {
    if (const auto number = ParseInteger(text)) return FromInteger(*number, column);
    return FromText(text, column);
}

Variant ValueOfText(std::string text, const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::TinyInt:
        case ColumnType::SmallInt:
        case ColumnType::Integer:
        case ColumnType::BigInt:
        case ColumnType::Currency:
        case ColumnType::Decimal:
            return NumberFromText(text, column);
        case ColumnType::Boolean:
            return BooleanFromText(text, column);
        case ColumnType::Date:
            return DateFromText(text, column);
        default:
            return text;
    }
}

/// To the millisecond.
automation::Date FromTimestamp(const SQL_TIMESTAMP_STRUCT& timestamp) {
    const std::chrono::sys_days day = std::chrono::year{timestamp.year} / timestamp.month / timestamp.day;
    return automation::FromMoment(
        day + std::chrono::hours(timestamp.hour) + std::chrono::minutes(timestamp.minute) +
        std::chrono::seconds(timestamp.second) +
        std::chrono::floor<std::chrono::milliseconds>(std::chrono::nanoseconds(timestamp.fraction)));
}

template <class T>
T Content(std::string_view data) noexcept {
    T content{};
    std::memcpy(&content, data.data(), sizeof content);
    return content;
}

}  // namespace

OdbcColumn::OdbcColumn(const OdbcHandle& statement, const OdbcDialect& dialect, SQLUSMALLINT index,
                       const ColumnInfo& info)
    : m_statement(statement),
      m_dialect(dialect),
      m_index(index),
      m_info(&info),
      m_cType(CTypeOf(info.type, dialect)),
      m_capacity(CapacityOf(info, m_cType)) {}

void OdbcColumn::Bind() {
    if (m_capacity == 0) return;
    m_buffer = std::make_unique<std::byte[]>(m_capacity);
    CheckOdbc(SQLBindCol(m_statement.Get(), m_index, m_cType, m_buffer.get(), static_cast<SQLLEN>(m_capacity),
                         &m_length),
              m_statement, m_dialect);
}

Variant OdbcColumn::Value() {
    if (m_buffer != nullptr && !IsCutOff()) {
        if (m_length == SQL_NULL_DATA) return Variant::Null();
        return FromData({reinterpret_cast<const char*>(m_buffer.get()), static_cast<std::size_t>(m_length)});
    }
    Read();
    return *m_read;
}

void OdbcColumn::Read() {
    if (m_read) return;
    std::string data;
    if (!ReadData(data))
        m_read = Variant::Null();
    else  // a long text that is UTF-8 already is not copied
        m_read = m_cType == SQL_C_CHAR ? ValueOfText(std::move(data), *m_info) : FromData(data);
}

bool OdbcColumn::IsCutOff() const noexcept {
    if (m_length == SQL_NULL_DATA || HasFixedSize(m_cType)) return false;
    return m_length < 0 || static_cast<std::size_t>(m_length) > m_capacity - TerminatorOf(m_cType);
}

/// Reads long or short data in as few calls as its size allows; false for Null.
bool OdbcColumn::ReadData(std::string& data) const {
    const bool isFixed = HasFixedSize(m_cType);
    // Text ends in a zero, also in a part of it.
    const std::size_t terminator = TerminatorOf(m_cType);
    std::size_t room = isFixed ? m_capacity : 512 * std::max<std::size_t>(terminator, 1);
    for (;;) {
        const std::size_t start = data.size();
        data.resize(start + room);
        SQLLEN indicator = 0;
        const SQLRETURN result = SQLGetData(m_statement.Get(), m_index, m_cType, data.data() + start,
                                            static_cast<SQLLEN>(room), &indicator);
        if (result == SQL_NO_DATA && !isFixed) {
            data.resize(start);
            return true;
        }
        CheckOdbc(result, m_statement, m_dialect);
        if (indicator == SQL_NULL_DATA) return false;
        if (isFixed) return true;
        const bool sizeKnown = indicator >= 0;
        const std::size_t left = sizeKnown ? static_cast<std::size_t>(indicator) : 0;
        if (result == SQL_SUCCESS && sizeKnown) {
            data.resize(start + std::min(left, room));
            return true;
        }
        // Cut off: what came fills the room but for the terminating zero.
        data.resize(start + room - terminator);
        room = sizeKnown && left > room - terminator ? left - (room - terminator) + terminator : room * 2;
    }
}

Variant OdbcColumn::FromData(std::string_view data) const {
    switch (m_cType) {
        case SQL_C_SBIGINT:
            return FromInteger(Content<std::int64_t>(data), *m_info);
        case SQL_C_BIT:
            return Content<unsigned char>(data) != 0;
        case SQL_C_DOUBLE:
            return FromReal(Content<double>(data), *m_info);
        case SQL_C_TYPE_TIMESTAMP:
            return FromTimestamp(Content<SQL_TIMESTAMP_STRUCT>(data));
        case SQL_C_BINARY:
            return automation::Bytes(data.begin(), data.end());
        case SQL_C_WCHAR:
            return ValueOfText(automation::ToUtf8({reinterpret_cast<const char16_t*>(data.data()),
                                                   data.size() / sizeof(char16_t)}),
                               *m_info);
        default:
            return ValueOfText(std::string(data), *m_info);
    }
}

}  // namespace korvex::native::sql
