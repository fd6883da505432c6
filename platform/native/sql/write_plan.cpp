#include "platform/native/sql/write_plan.h"

#include "automation/text.h"
#include "platform/native/sql/engine_error.h"

#include <algorithm>

namespace korvex::native::sql {

using automation::EqualsIgnoreCase;

const TableName& WritePlan::BaseTable(const RowShape& shape) {
    const TableName* base = nullptr;
    for (const ColumnInfo& column : shape.columns) {
        if (column.base.table.empty()) continue;
        if (base != nullptr && *base != column.base) {
            throw EngineError(ErrorKind::NotUpdatable, "Rows that come from several tables (" + base->table +
                                                           ", " + column.base.table + ") cannot be written");
        }
        base = &column.base;
    }
    if (base == nullptr) {
        throw EngineError(ErrorKind::NotUpdatable, "Rows that come from no table cannot be written");
    }
    return *base;
}

WritePlan::WritePlan(const EngineTraits& traits, std::shared_ptr<const RowShape> shape,
                     std::shared_ptr<const TableInfo> table)
    : m_traits(traits), m_shape(std::move(shape)), m_table(std::move(table)) {
    m_quotedTable = m_traits.QuoteBeside(m_table->name, m_table->name.table);
    for (const ColumnInfo& column : m_shape->columns) {
        m_quotedNames.push_back(column.baseColumn.empty() ? "NULL" : traits.Quote(column.baseColumn));
    }
    std::vector<std::size_t> key;
    for (const TableColumn& column : m_table->columns) {
        if (!column.key) continue;
        const auto position = PositionOf(column.name);
        if (!position) return;
        key.push_back(*position);
    }
    if (!key.empty()) m_keyColumns = std::move(key);
}

std::optional<std::size_t> WritePlan::PositionOf(std::string_view tableColumn) const noexcept {
    const auto found = std::ranges::find_if(m_shape->columns, [&](const ColumnInfo& column) {
        return EqualsIgnoreCase(column.baseColumn, tableColumn);
    });
    if (found == m_shape->columns.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_shape->columns.begin());
}

bool WritePlan::ComposedText::IsFor(std::span<const std::size_t> wanted) const noexcept {
    return !text.empty() && std::ranges::equal(columns, wanted);
}

const std::string& WritePlan::InsertText(std::span<const std::size_t> columns) const {
    if (!m_insert.IsFor(columns)) m_insert = {{columns.begin(), columns.end()}, ComposeInsert(columns)};
    return m_insert.text;
}

const std::string& WritePlan::UpdateText(std::span<const std::size_t> columns) const {
    if (!m_update.IsFor(columns)) m_update = {{columns.begin(), columns.end()}, ComposeUpdate(columns)};
    return m_update.text;
}

std::string WritePlan::ComposeUpdate(std::span<const std::size_t> columns) const {
    std::string text = "UPDATE " + m_quotedTable;
    std::string_view before = " SET ";
    for (const std::size_t column : columns) {
        text.append(before).append(QuotedName(column)).append(" = ?");
        before = ", ";
    }
    return text;
}

std::string WritePlan::ComposeInsert(std::span<const std::size_t> columns) const {
    std::string text = "INSERT INTO " + m_quotedTable + " ";
    if (columns.empty()) {
        text += m_traits.emptyInsert;
    } else {
        std::string values;
        for (const std::size_t column : columns) {
            text += (values.empty() ? "(" : ", ") + QuotedName(column);
            values += values.empty() ? "?" : ", ?";
        }
        text += ") VALUES (" + values + ")";
    }
    if (m_traits.newKey == NewKeySource::Returning) return text + ReturningText();
    if (m_traits.newKey == NewKeySource::SameBatch && m_table->HasAutoNumber()) {
        return text + "\n" + NewKeyQuery();
    }
    return text;
}

std::string WritePlan::ReturningText() const {
    std::string text;
    for (const TableColumn& column : m_table->columns) {
        if (column.key) text += (text.empty() ? " RETURNING " : ", ") + m_traits.Quote(column.name);
    }
    return text;
}

std::string WritePlan::NewKeyQuery() const {
    constexpr std::string_view placeholder = "{sequence}";
    std::string query = m_traits.newKeyQuery;
    if (const std::size_t at = query.find(placeholder); at != std::string::npos) {
        query.replace(at, placeholder.size(),
                      m_traits.QuoteBeside(m_table->name, m_traits.sequencePrefix + m_table->name.table));
    }
    return query;
}

}  // namespace korvex::native::sql
