#include "platform/native/ado/field.h"

#include "automation/text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>

namespace korvex::native::ado_engine {

namespace {

using sql::ColumnType;

constexpr std::int32_t NoLimit = std::numeric_limits<std::int32_t>::max();

struct TypeFacts {
    ColumnType column;
    ado::DataType field;
    std::int32_t size;  ///< DefinedSize; 0 where the column declares it
};

/// In the order of ColumnType. The sizes of Decimal, Date and Unknown are those of the structures in which
/// OLE DB hands them over.
constexpr TypeFacts Facts[] = {
    {ColumnType::Unknown, ado::adVariant, 16},        {ColumnType::Boolean, ado::adBoolean, 2},
    {ColumnType::TinyInt, ado::adUnsignedTinyInt, 1}, {ColumnType::SmallInt, ado::adSmallInt, 2},
    {ColumnType::Integer, ado::adInteger, 4},         {ColumnType::BigInt, ado::adBigInt, 8},
    {ColumnType::Single, ado::adSingle, 4},           {ColumnType::Double, ado::adDouble, 8},
    {ColumnType::Currency, ado::adCurrency, 8},       {ColumnType::Decimal, ado::adNumeric, 19},
    {ColumnType::Date, ado::adDBTimeStamp, 16},       {ColumnType::Char, ado::adChar, 0},
    {ColumnType::VarChar, ado::adVarChar, 0},         {ColumnType::LongText, ado::adLongVarChar, NoLimit},
    {ColumnType::Binary, ado::adVarBinary, 0},        {ColumnType::LongBinary, ado::adLongVarBinary, NoLimit},
};

constexpr const TypeFacts& FactsOf(ColumnType type) noexcept { return Facts[static_cast<std::size_t>(type)]; }
static_assert(std::size(Facts) == static_cast<std::size_t>(ColumnType::LongBinary) + 1);
static_assert(std::ranges::all_of(Facts,
                                  [](const TypeFacts& facts) { return &facts == &FactsOf(facts.column); }));

std::int32_t Clamp(std::size_t size) noexcept {
    return static_cast<std::int32_t>(std::min(size, static_cast<std::size_t>(NoLimit)));
}

}  // namespace

std::int32_t NativeField::Type() const { return FactsOf(Column().type).field; }

std::int32_t NativeField::DefinedSizeOf(const sql::ColumnInfo& column) noexcept {
    const std::int32_t size = FactsOf(column.type).size;
    if (size != 0) return size;
    return column.size == 0 ? NoLimit : Clamp(column.size);
}

std::int32_t NativeField::Attributes() const {
    const sql::ColumnInfo& column = Column();
    std::int32_t attributes = 0;
    if (m_rows->IsUpdatable() && !column.base.table.empty()) attributes |= ado::adFldUpdatable;
    if (column.nullable) attributes |= ado::adFldIsNullable;
    if (sql::IsLong(column.type)) attributes |= ado::adFldLong;
    return attributes;
}

std::int32_t NativeField::SizeOf(const automation::Variant& value, const sql::ColumnInfo& column) noexcept {
    if (value.IsNull() || value.IsEmpty()) return 0;
    if (const auto* text = value.If<std::string>()) return Clamp(automation::Length(*text));
    if (const auto* bytes = value.If<automation::Bytes>()) return Clamp(bytes->size());
    return DefinedSizeOf(column);
}

}  // namespace korvex::native::ado_engine
