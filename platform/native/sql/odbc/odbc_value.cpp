#include "platform/native/sql/odbc/odbc_value.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "platform/native/sql/column_value.h"
#include "platform/native/sql/odbc/odbc_date.h"

#include <algorithm>
#include <charconv>

namespace korvex::native::sql {
namespace {

using automation::Variant;

std::optional<std::int64_t> ParseInteger(std::string_view text) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

Variant BooleanFromText(const std::string& text, const ColumnInfo& column) {
    if (automation::EqualsIgnoreCase(text, "true") || automation::EqualsIgnoreCase(text, "t")) return true;
    if (automation::EqualsIgnoreCase(text, "false") || automation::EqualsIgnoreCase(text, "f")) return false;
    return NumberFromText(text, column);
}

}  // namespace

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

Variant OdbcValueReader::Read(const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::TinyInt:
        case ColumnType::SmallInt:
        case ColumnType::Integer:
        case ColumnType::BigInt:
            if (!m_dialect.dynamicTypes) {
                std::int64_t value = 0;
                if (!ReadFixed(SQL_C_SBIGINT, &value, sizeof value)) return Variant::Null();
                return FromInteger(value, column);
            }
            [[fallthrough]];
        case ColumnType::Currency:
        case ColumnType::Decimal: {
            const std::optional<std::string> text = ReadText();
            return text ? NumberFromText(*text, column) : Variant::Null();
        }
        case ColumnType::Boolean:
            return ReadBoolean(column);
        case ColumnType::Single:
        case ColumnType::Double: {
            double value = 0;
            if (!ReadFixed(SQL_C_DOUBLE, &value, sizeof value)) return Variant::Null();
            return FromReal(value, column);
        }
        case ColumnType::Date:
            return ReadDate(column);
        case ColumnType::Binary:
        case ColumnType::LongBinary:
            return ReadBytes();
        default: {
            std::optional<std::string> text = ReadText();
            return text ? Variant(std::move(*text)) : Variant::Null();
        }
    }
}

bool OdbcValueReader::ReadFixed(SQLSMALLINT cType, void* target, SQLLEN size) {
    SQLLEN indicator = 0;
    CheckOdbc(SQLGetData(m_statement.Get(), m_column, cType, target, size, &indicator), m_statement,
              m_dialect);
    return indicator != SQL_NULL_DATA;
}

template <class Unit>
std::optional<std::basic_string<Unit>> OdbcValueReader::ReadChunks(SQLSMALLINT cType) {
    // Text ends in a zero, also in a part of it.
    const std::size_t terminator = cType == SQL_C_BINARY ? 0 : 1;
    std::basic_string<Unit> data;
    std::size_t room = 512;
    for (;;) {
        const std::size_t start = data.size();
        data.resize(start + room);
        SQLLEN indicator = 0;
        const SQLRETURN result = SQLGetData(m_statement.Get(), m_column, cType, data.data() + start,
                                            static_cast<SQLLEN>(room * sizeof(Unit)), &indicator);
        if (result == SQL_NO_DATA) {
            data.resize(start);
            return data;
        }
        CheckOdbc(result, m_statement, m_dialect);
        if (indicator == SQL_NULL_DATA) return std::nullopt;
        const bool sizeKnown = indicator >= 0;
        const std::size_t left = sizeKnown ? static_cast<std::size_t>(indicator) / sizeof(Unit) : 0;
        if (result == SQL_SUCCESS && sizeKnown) {
            data.resize(start + std::min(left, room));
            return data;
        }
        // Cut off: what came fills the room but for the terminating zero.
        data.resize(start + room - terminator);
        room = sizeKnown && left > room - terminator ? left - (room - terminator) + terminator : room * 2;
    }
}

std::optional<std::string> OdbcValueReader::ReadText() {
    if (m_dialect.narrowTexts) return ReadChunks<char>(SQL_C_CHAR);
    const auto wide = ReadChunks<char16_t>(SQL_C_WCHAR);
    return wide ? std::optional(automation::ToUtf8(*wide)) : std::nullopt;
}

Variant OdbcValueReader::ReadBytes() {
    const auto data = ReadChunks<char>(SQL_C_BINARY);
    return data ? Variant(automation::Bytes(data->begin(), data->end())) : Variant::Null();
}

Variant OdbcValueReader::ReadBoolean(const ColumnInfo& column) {
    if (m_dialect.dynamicTypes) {
        const std::optional<std::string> text = ReadText();
        return text ? BooleanFromText(*text, column) : Variant::Null();
    }
    unsigned char value = 0;
    if (!ReadFixed(SQL_C_BIT, &value, sizeof value)) return Variant::Null();
    return value != 0;
}

Variant OdbcValueReader::ReadDate(const ColumnInfo& column) {
    if (m_dialect.dynamicTypes) {
        const std::optional<std::string> text = ReadText();
        if (!text) return Variant::Null();
        if (const auto number = ParseInteger(*text)) return FromInteger(*number, column);
        return FromText(*text, column);
    }
    SQL_TIMESTAMP_STRUCT timestamp{};
    if (!ReadFixed(SQL_C_TYPE_TIMESTAMP, &timestamp, sizeof timestamp)) return Variant::Null();
    return FromTimestamp(timestamp);
}

}  // namespace korvex::native::sql
