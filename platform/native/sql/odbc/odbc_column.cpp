#include "platform/native/sql/odbc/odbc_column.h"

#include "automation/text.h"
#include "platform/native/sql/column_value.h"
#include "platform/native/sql/odbc/odbc_date.h"
#include "platform/native/sql/odbc/odbc_value.h"

#include <algorithm>
#include <cstring>
#include <string>

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

struct Form {
    SQLSMALLINT cType = 0;
    std::size_t capacity = 0;  ///< 0: not bound
};

/// For a text of so many characters, most of which take one unit.
Form TextForm(std::size_t characters, bool narrow) noexcept {
    const std::size_t most = characters == 0 ? LongestBound : std::min(characters, LongestBound);
    if (narrow) return {SQL_C_CHAR, most + TerminatorOf(SQL_C_CHAR)};
    return {SQL_C_WCHAR, most * sizeof(char16_t) + TerminatorOf(SQL_C_WCHAR)};
}

Form FormOf(const ColumnInfo& column, bool narrow) noexcept {
    switch (column.type) {
        case ColumnType::TinyInt:
        case ColumnType::SmallInt:
        case ColumnType::Integer:
        case ColumnType::BigInt:
            return {SQL_C_SBIGINT, sizeof(std::int64_t)};
        case ColumnType::Boolean:
            return {SQL_C_BIT, sizeof(unsigned char)};
        case ColumnType::Single:
        case ColumnType::Double:
            return {SQL_C_DOUBLE, sizeof(double)};
        case ColumnType::Date:
            return {SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
        case ColumnType::Currency:
        case ColumnType::Decimal:
            return TextForm(64, narrow);
        case ColumnType::Char:
        case ColumnType::VarChar:
        case ColumnType::Unknown:
            return TextForm(column.size, narrow);
        case ColumnType::Binary:
            return {SQL_C_BINARY,
                    column.size == 0 ? LongestBound : std::min<std::size_t>(column.size, LongestBound)};
        case ColumnType::LongText:
        case ColumnType::LongBinary:
            break;
    }
    return {};
}

}  // namespace

void OdbcColumn::Bind(const OdbcHandle& statement, const OdbcDialect& dialect) {
    const Form form = FormOf(*m_info, dialect.narrowTexts);
    if (form.capacity == 0) return;
    m_cType = form.cType;
    m_capacity = form.capacity;
    m_buffer = std::make_unique<std::byte[]>(m_capacity);
    CheckOdbc(SQLBindCol(statement.Get(), m_index, m_cType, m_buffer.get(), static_cast<SQLLEN>(m_capacity),
                         &m_length),
              statement, dialect);
}

Variant OdbcColumn::Value(const OdbcHandle& statement, const OdbcDialect& dialect) {
    if (IsBound() && !IsCutOff()) return BoundValue();
    Read(statement, dialect);
    return *m_read;
}

void OdbcColumn::Read(const OdbcHandle& statement, const OdbcDialect& dialect) {
    if (!m_read) m_read = OdbcValueReader(statement, dialect, m_index).Read(*m_info);
}

bool OdbcColumn::IsCutOff() const noexcept {
    const bool hasFixedSize = m_cType != SQL_C_CHAR && m_cType != SQL_C_WCHAR && m_cType != SQL_C_BINARY;
    if (m_length == SQL_NULL_DATA || hasFixedSize) return false;
    return m_length < 0 || static_cast<std::size_t>(m_length) > m_capacity - TerminatorOf(m_cType);
}

template <class T>
T OdbcColumn::Content() const noexcept {
    T content{};
    std::memcpy(&content, m_buffer.get(), sizeof content);
    return content;
}

Variant OdbcColumn::BoundValue() const {
    if (m_length == SQL_NULL_DATA) return Variant::Null();
    const auto length = static_cast<std::size_t>(m_length);
    switch (m_cType) {
        case SQL_C_SBIGINT:
            return FromInteger(Content<std::int64_t>(), *m_info);
        case SQL_C_BIT:
            return Content<unsigned char>() != 0;
        case SQL_C_DOUBLE:
            return FromReal(Content<double>(), *m_info);
        case SQL_C_TYPE_TIMESTAMP:
            return FromTimestamp(Content<SQL_TIMESTAMP_STRUCT>());
        case SQL_C_BINARY: {
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(m_buffer.get());
            return automation::Bytes(bytes, bytes + length);
        }
        default: {
            std::string text = Text(length);
            const bool isNumber = m_info->type == ColumnType::Currency || m_info->type == ColumnType::Decimal;
            return isNumber ? NumberFromText(text, *m_info) : Variant(std::move(text));
        }
    }
}

std::string OdbcColumn::Text(std::size_t length) const {
    if (m_cType == SQL_C_CHAR) return {reinterpret_cast<const char*>(m_buffer.get()), length};
    return automation::ToUtf8({reinterpret_cast<const char16_t*>(m_buffer.get()), length / sizeof(char16_t)});
}

}  // namespace korvex::native::sql
