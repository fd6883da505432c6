#pragma once

#include "automation/variant.h"
#include "platform/native/sql/column.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::native::sql {

using Row = std::vector<automation::Variant>;

/// A value as the engine holds it, before its column says what it is.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): one member of a union has a value.
struct Cell {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Bytes };

    Kind kind = Kind::Null;
    union {
        std::int64_t integer = 0;
        double real;
        const char* data;  ///< of Text and Bytes
    };
    std::size_t length = 0;  ///< of Text and Bytes

    std::string_view Data() const noexcept { return {data, length}; }
};

/// A Long when it fits, else a LongLong.
inline automation::Variant WholeNumber(std::int64_t value) {
    const auto narrow = static_cast<std::int32_t>(value);
    return narrow == value ? automation::Variant(narrow) : automation::Variant(value);
}

/// Its value in the form of the column's type.
automation::Variant FromCell(const Cell& cell, const ColumnInfo& column);
/// The same, at once for what most columns are.
inline automation::Variant FromCell(const Cell& cell, const RowShape& shape, std::size_t column) {
    const ColumnType type = shape.types[column];
    if (cell.kind == Cell::Kind::Integer && type == ColumnType::Integer) return WholeNumber(cell.integer);
    if (cell.kind == Cell::Kind::Text && IsText(type)) return cell.Data();
    return FromCell(cell, shape.columns[column]);
}

/// A row taken out of its statement, in little room: what a column holds is worked out when somebody asks for
/// it. Used again and again, it allocates nothing.
class KeptRow {
  public:
    KeptRow() = default;
    KeptRow(KeptRow&&) noexcept = default;
    KeptRow& operator=(KeptRow&&) noexcept = default;
    void Swap(KeptRow& other) noexcept {
        m_cells.swap(other.m_cells);
        m_bytes.swap(other.m_bytes);
        m_values.swap(other.m_values);
    }

    void Clear() noexcept {
        m_bytes.clear();
        m_values.clear();
    }
    /// Takes a row of that many cells, in their order, copying what they point at.
    template <class CellAt>
    void Take(std::size_t count, CellAt&& cellAt) {
        Clear();
        m_cells.resize(count);
        for (std::size_t column = 0; column < count; ++column) {
            Cell& cell = m_cells[column] = cellAt(column);
            if (cell.kind < Cell::Kind::Text) continue;
            const std::size_t place = m_bytes.size();
            m_bytes.append(cell.Data());
            cell.integer = static_cast<std::int64_t>(place);
        }
    }
    /// Takes a row whose values are known.
    void Take(Row values) noexcept { m_values = std::move(values); }

    automation::Variant Value(std::size_t column, const RowShape& shape) const {
        if (!m_values.empty()) return m_values[column];
        Cell cell = m_cells[column];
        if (cell.kind >= Cell::Kind::Text) cell.data = m_bytes.data() + cell.integer;
        return FromCell(cell, shape, column);
    }
    /// All values, which the row holds from now on; a caller may put others in their place.
    Row& Values(const RowShape& shape) {
        if (m_values.empty()) {
            Row values;
            values.reserve(m_cells.size());
            for (std::size_t i = 0; i < m_cells.size(); ++i)
                values.push_back(Value(i, shape));
            m_values = std::move(values);
        }
        return m_values;
    }
    /// Whether there is room in it that is worth using again: that of large values is not kept.
    bool IsReusable() const noexcept { return m_cells.capacity() > 0 && m_bytes.capacity() <= MostBytes; }

  private:
    static constexpr std::size_t MostBytes = 65536;

    std::vector<Cell> m_cells;
    std::string m_bytes;  ///< what the cells hold; `integer` of a cell says where
    Row m_values;         ///< instead of the cells
};

}  // namespace korvex::native::sql
