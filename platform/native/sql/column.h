#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

/// What a column holds, by its declaration; decides how values come back and what may be put in.
enum class ColumnType : std::uint8_t {
    Unknown,  ///< not declared (an expression): each value has its own type
    Boolean,
    TinyInt,
    SmallInt,
    Integer,
    BigInt,
    Single,
    Double,
    Currency,
    Decimal,
    Date,
    Char,      ///< text of fixed length
    VarChar,   ///< text up to `size` characters
    LongText,  ///< text without a declared limit
    Binary,    ///< bytes up to `size`
    LongBinary,
};

struct TableName {
    std::string catalog;
    std::string schema;
    std::string table;  ///< empty: no base table

    friend bool operator==(const TableName&, const TableName&) = default;
};

/// One column of a result, as described at prepare.
struct ColumnInfo {
    std::string name;
    ColumnType type = ColumnType::Unknown;
    std::uint32_t size = 0;  ///< characters for text, bytes for binary, digits for Decimal; 0: no limit known
    std::uint32_t scale = 0;
    bool nullable = true;
    std::string declaredType;  ///< as the engine reports it ("varchar(40)")
    TableName base;            ///< the table behind the column, through views and aliases
    std::string baseColumn;    ///< empty for an expression
    bool autoNumber = false;   ///< the engine numbers new rows here, where the driver says so by itself

    /// "table.column", as a message names it.
    std::string Place() const { return base.table.empty() ? name : base.table + "." + name; }
};

/// The columns of a result. Made once and shared by all results that have them, so that what is worked out
/// here is not worked out for each row.
class RowShape {
  public:
    /// `isWholeTable`: they are all the columns of one table, in its order.
    explicit RowShape(std::vector<ColumnInfo> described, bool isWholeTable = false);

    /// Position of the column of that name, in any case; the first one when several bear it. A caller that
    /// goes through the columns in their order finds them sooner when it says where it expects the next.
    std::optional<std::size_t> Find(std::string_view name, std::size_t expected = 0) const noexcept {
        for (std::size_t column = expected; column < columns.size() && !m_hasEqualNames; --column) {
            if (columns[column].name == name) return column;
            if (column != expected) break;  // nor is it the one before, asked for again
        }
        return LookUp(name);
    }
    /// Says that there is no such column, and which is near.
    std::string DescribeMissing(std::string_view name) const;

    const std::vector<ColumnInfo> columns;
    /// Their types, close together: asked for with each value.
    const std::vector<ColumnType> types;
    const bool isWholeTable;

  private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t column = 0;  ///< its position plus one; 0 in a free slot
    };
    std::optional<std::size_t> LookUp(std::string_view name) const noexcept;
    /// Where the first column of that name stands, or would stand.
    std::size_t SlotOf(std::string_view name) const noexcept;

    /// Each column stands at the slot of its name's hash, or at the next one that was free. A power of two in
    /// size, and at least half free.
    std::vector<Slot> m_slots;
    bool m_hasEqualNames = false;
};

/// One column of a base table.
struct TableColumn {
    std::string name;
    bool key = false;         ///< belongs to the primary key
    bool autoNumber = false;  ///< the engine numbers new rows here
};

/// A base table, as far as writing its rows needs it.
struct TableInfo {
    TableName name;
    std::vector<TableColumn> columns;

    bool HasKey() const noexcept { return std::ranges::any_of(columns, &TableColumn::key); }
    bool HasAutoNumber() const noexcept { return std::ranges::any_of(columns, &TableColumn::autoNumber); }
};

/// Reads a declared type ("varchar(40)", "int", "double precision", "image"): type, size and scale of
/// `column`.
void ReadDeclaration(std::string_view declaration, ColumnInfo& column);

constexpr bool IsText(ColumnType type) noexcept {
    return type == ColumnType::Char || type == ColumnType::VarChar || type == ColumnType::LongText;
}
constexpr bool IsBinary(ColumnType type) noexcept {
    return type == ColumnType::Binary || type == ColumnType::LongBinary;
}
/// Long columns are read and written in chunks, and never compared.
constexpr bool IsLong(ColumnType type) noexcept {
    return type == ColumnType::LongText || type == ColumnType::LongBinary;
}

}  // namespace korvex::native::sql
