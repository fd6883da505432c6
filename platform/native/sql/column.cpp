#include "platform/native/sql/column.h"

#include "automation/nearest_name.h"
#include "automation/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <utility>

namespace korvex::native::sql {
namespace {

using automation::ContainsIgnoreCase;
using automation::EqualsIgnoreCase;

struct TypeName {
    std::string_view name;
    ColumnType type;
};

constexpr std::array TypeNames = {
    TypeName{"bit", ColumnType::Boolean},
    TypeName{"bool", ColumnType::Boolean},
    TypeName{"boolean", ColumnType::Boolean},
    TypeName{"yesno", ColumnType::Boolean},
    TypeName{"tinyint", ColumnType::TinyInt},
    TypeName{"byte", ColumnType::TinyInt},
    TypeName{"smallint", ColumnType::SmallInt},
    TypeName{"int2", ColumnType::SmallInt},
    TypeName{"short", ColumnType::SmallInt},
    TypeName{"long", ColumnType::LongText},
    TypeName{"counter", ColumnType::Integer},
    TypeName{"bigint", ColumnType::BigInt},
    TypeName{"int8", ColumnType::BigInt},
    TypeName{"real", ColumnType::Single},
    TypeName{"money", ColumnType::Currency},
    TypeName{"smallmoney", ColumnType::Currency},
    TypeName{"currency", ColumnType::Currency},
    TypeName{"numeric", ColumnType::Decimal},
    TypeName{"decimal", ColumnType::Decimal},
    TypeName{"number", ColumnType::Decimal},
    TypeName{"date", ColumnType::Date},
    TypeName{"datetime", ColumnType::Date},
    TypeName{"smalldatetime", ColumnType::Date},
    TypeName{"timestamp", ColumnType::Date},
    TypeName{"time", ColumnType::Date},
    TypeName{"char", ColumnType::Char},
    TypeName{"character", ColumnType::Char},
    TypeName{"nchar", ColumnType::Char},
    TypeName{"memo", ColumnType::LongText},
    TypeName{"guid", ColumnType::VarChar},
    TypeName{"uniqueidentifier", ColumnType::VarChar},
    TypeName{"image", ColumnType::LongBinary},
    TypeName{"oleobject", ColumnType::LongBinary},
    TypeName{"longbinary", ColumnType::LongBinary},
    TypeName{"long raw", ColumnType::LongBinary},
    TypeName{"binary", ColumnType::Binary},
    TypeName{"varbinary", ColumnType::Binary},
    TypeName{"raw", ColumnType::Binary},
};

/// For other names the embedded engine's own rule: parts of the name decide, in this order.
constexpr std::array TypeParts = {
    TypeName{"int", ColumnType::Integer},     TypeName{"char", ColumnType::VarChar},
    TypeName{"clob", ColumnType::LongText},   TypeName{"text", ColumnType::LongText},
    TypeName{"blob", ColumnType::LongBinary}, TypeName{"real", ColumnType::Double},
    TypeName{"floa", ColumnType::Double},     TypeName{"doub", ColumnType::Double},
};

ColumnType TypeOf(std::string_view name) noexcept {
    const auto exact = std::ranges::find_if(
        TypeNames, [&](const TypeName& entry) { return EqualsIgnoreCase(entry.name, name); });
    if (exact != TypeNames.end()) return exact->type;
    const auto part = std::ranges::find_if(
        TypeParts, [&](const TypeName& entry) { return ContainsIgnoreCase(name, entry.name); });
    return part == TypeParts.end() ? ColumnType::Unknown : part->type;
}

/// The number at the front of `text` behind blanks, which is cut off.
std::uint32_t TakeNumber(std::string_view& text) noexcept {
    const std::size_t start = text.find_first_of("0123456789");
    if (start == std::string_view::npos) return 0;
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data() + start, text.data() + text.size(), value);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc() ? value : 0;
}

/// A fixed number with the digits of a Currency is one, on engines that have no such type.
std::vector<ColumnInfo> WithCurrencies(std::vector<ColumnInfo> columns) {
    for (ColumnInfo& column : columns) {
        if (column.type == ColumnType::Decimal && column.size == 19 && column.scale == 4)
            column.type = ColumnType::Currency;
    }
    return columns;
}

/// The same for all spellings of a name, in whatever case.
std::uint32_t NameHash(std::string_view name) noexcept {
    auto hash = static_cast<std::uint32_t>(name.size());
    for (const char c : name)
        hash = hash * 31 + (static_cast<unsigned char>(c) | 0x20u);
    return hash ^ (hash >> 15);
}

std::vector<ColumnType> TypesOf(const std::vector<ColumnInfo>& columns) {
    std::vector<ColumnType> types;
    types.reserve(columns.size());
    for (const ColumnInfo& column : columns)
        types.push_back(column.type);
    return types;
}

}  // namespace

RowShape::RowShape(std::vector<ColumnInfo> described, bool isWholeTable)
    : columns(WithCurrencies(std::move(described))),
      types(TypesOf(columns)),
      isWholeTable(isWholeTable),
      m_slots(std::bit_ceil(columns.size() * 2 + 1)) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        Slot& slot = m_slots[SlotOf(columns[i].name)];
        if (slot.column != 0)
            m_hasEqualNames = true;
        else
            slot = {.hash = NameHash(columns[i].name), .column = static_cast<std::uint32_t>(i) + 1};
    }
}

std::string RowShape::DescribeMissing(std::string_view name) const {
    std::vector<std::string_view> names;
    for (const ColumnInfo& column : columns)
        names.emplace_back(column.name);
    return "The recordset has no field " + automation::Quoted(name) + automation::DidYouMean(name, names);
}

std::optional<std::size_t> RowShape::LookUp(std::string_view name) const noexcept {
    const std::uint32_t column = m_slots[SlotOf(name)].column;
    return column == 0 ? std::nullopt : std::optional<std::size_t>(column - 1);
}

std::size_t RowShape::SlotOf(std::string_view name) const noexcept {
    const std::size_t mask = m_slots.size() - 1;
    const std::uint32_t hash = NameHash(name);
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& slot = m_slots[i];
        if (slot.column == 0) return i;
        if (slot.hash == hash && EqualsIgnoreCase(columns[slot.column - 1].name, name)) return i;
    }
}

void ReadDeclaration(std::string_view declaration, ColumnInfo& column) {
    column.declaredType = declaration;
    const std::size_t open = declaration.find('(');
    column.type = TypeOf(automation::Trim(declaration.substr(0, open)));
    if (open != std::string_view::npos && column.type != ColumnType::Integer) {
        std::string_view arguments = declaration.substr(open + 1);
        column.size = TakeNumber(arguments);
        column.scale = TakeNumber(arguments);
    }
    // Without a limit, variable data is long data.
    if (column.size == 0 && column.type == ColumnType::VarChar) column.type = ColumnType::LongText;
    if (column.size == 0 && column.type == ColumnType::Binary) column.type = ColumnType::LongBinary;
}

}  // namespace korvex::native::sql
