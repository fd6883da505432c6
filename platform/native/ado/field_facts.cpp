#include "platform/native/ado/field_facts.h"

#include "automation/text.h"
#include "platform/ado.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace korvex::native::ado_engine {

namespace {

using sql::ColumnType;

constexpr std::int32_t NoLimit = std::numeric_limits<std::int32_t>::max();

/// Sizes that OLE DB gives the structures in which it hands these types over.
constexpr std::int32_t NumericBytes = 19;
constexpr std::int32_t TimeStampBytes = 16;
constexpr std::int32_t VariantBytes = 16;

std::int32_t Clamp(std::size_t size) noexcept {
    return static_cast<std::int32_t>(std::min(size, static_cast<std::size_t>(NoLimit)));
}

}  // namespace

std::int32_t FieldType(const sql::ColumnInfo& column) noexcept {
    switch (column.type) {
        case ColumnType::Boolean:
            return ado::adBoolean;
        case ColumnType::TinyInt:
            return ado::adUnsignedTinyInt;
        case ColumnType::SmallInt:
            return ado::adSmallInt;
        case ColumnType::Integer:
            return ado::adInteger;
        case ColumnType::BigInt:
            return ado::adBigInt;
        case ColumnType::Single:
            return ado::adSingle;
        case ColumnType::Double:
            return ado::adDouble;
        case ColumnType::Currency:
            return ado::adCurrency;
        case ColumnType::Decimal:
            return ado::adNumeric;
        case ColumnType::Date:
            return ado::adDBTimeStamp;
        case ColumnType::Char:
            return ado::adChar;
        case ColumnType::VarChar:
            return ado::adVarChar;
        case ColumnType::LongText:
            return ado::adLongVarChar;
        case ColumnType::Binary:
            return ado::adVarBinary;
        case ColumnType::LongBinary:
            return ado::adLongVarBinary;
        case ColumnType::Unknown:
            break;
    }
    return ado::adVariant;
}

std::int32_t FieldDefinedSize(const sql::ColumnInfo& column) noexcept {
    switch (column.type) {
        case ColumnType::TinyInt:
            return 1;
        case ColumnType::Boolean:
        case ColumnType::SmallInt:
            return 2;
        case ColumnType::Integer:
        case ColumnType::Single:
            return 4;
        case ColumnType::BigInt:
        case ColumnType::Double:
        case ColumnType::Currency:
            return 8;
        case ColumnType::Decimal:
            return NumericBytes;
        case ColumnType::Date:
            return TimeStampBytes;
        case ColumnType::Char:
        case ColumnType::VarChar:
        case ColumnType::Binary:
            return column.size == 0 ? NoLimit : Clamp(column.size);
        case ColumnType::LongText:
        case ColumnType::LongBinary:
            return NoLimit;
        case ColumnType::Unknown:
            break;
    }
    return VariantBytes;
}

std::int32_t FieldAttributes(const sql::ColumnInfo& column, bool isUpdatable) noexcept {
    std::int32_t attributes = 0;
    if (isUpdatable && !column.base.table.empty()) attributes |= ado::adFldUpdatable;
    if (column.nullable) attributes |= ado::adFldIsNullable;
    if (sql::IsLong(column.type)) attributes |= ado::adFldLong;
    return attributes;
}

std::int32_t FieldActualSize(const automation::Variant& value, const sql::ColumnInfo& column) noexcept {
    if (value.IsNull() || value.IsEmpty()) return 0;
    if (const auto* text = value.If<std::string>()) return Clamp(automation::Length(*text));
    if (const auto* bytes = value.If<automation::Bytes>()) return Clamp(bytes->size());
    return FieldDefinedSize(column);
}

}  // namespace korvex::native::ado_engine
