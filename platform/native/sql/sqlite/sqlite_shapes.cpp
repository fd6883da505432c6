#include "platform/native/sql/sqlite/sqlite_shapes.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::native::sql {
namespace {

constexpr std::size_t ShapeLimit = 256;

/// What the engine tells of one column. The texts are the engine's own and end with the statement.
struct ColumnTexts {
    std::string_view name;
    std::string_view declaration;
    std::string_view schema;
    std::string_view table;
    std::string_view baseColumn;

    bool Describes(const ColumnInfo& column) const noexcept {
        return name == column.name && declaration == column.declaredType && baseColumn == column.baseColumn &&
               table == column.base.table && schema == column.base.schema;
    }
};

std::string_view View(const char* text) noexcept { return text == nullptr ? std::string_view() : text; }

ColumnTexts TextsOf(sqlite3_stmt* statement, int index) {
    return {.name = View(sqlite3_column_name(statement, index)),
            .declaration = View(sqlite3_column_decltype(statement, index)),
            .schema = View(sqlite3_column_database_name(statement, index)),
            .table = View(sqlite3_column_table_name(statement, index)),
            .baseColumn = View(sqlite3_column_origin_name(statement, index))};
}

std::size_t Fingerprint(const std::vector<ColumnTexts>& columns) noexcept {
    std::size_t value = columns.size();
    for (const ColumnTexts& column : columns) {
        for (const std::string_view part : {column.name, column.table, column.declaration})
            value = value * 31 + std::hash<std::string_view>()(part);
    }
    return value;
}

bool IsNullable(sqlite3* database, const ColumnInfo& column) {
    if (column.baseColumn.empty()) return true;
    int notNull = 0;
    sqlite3_table_column_metadata(database, column.base.schema.c_str(), column.base.table.c_str(),
                                  column.baseColumn.c_str(), nullptr, nullptr, &notNull, nullptr, nullptr);
    return notNull == 0;
}

std::shared_ptr<const RowShape> MakeShape(sqlite3* database, const std::vector<ColumnTexts>& columns) {
    std::vector<ColumnInfo> described;
    described.reserve(columns.size());
    for (const ColumnTexts& texts : columns) {
        ColumnInfo& column = described.emplace_back();
        column.name = texts.name;
        ReadDeclaration(texts.declaration, column);
        column.base = {.catalog = {}, .schema = std::string(texts.schema), .table = std::string(texts.table)};
        column.baseColumn = texts.baseColumn;
        column.nullable = IsNullable(database, column);
    }
    return std::make_shared<RowShape>(std::move(described));
}

}  // namespace

std::shared_ptr<const RowShape> SqliteShapes::Describe(sqlite3_stmt* statement) {
    const int count = sqlite3_column_count(statement);
    std::vector<ColumnTexts> columns;
    columns.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        columns.push_back(TextsOf(statement, i));
    const std::size_t fingerprint = Fingerprint(columns);
    if (const auto known = m_shapes.find(fingerprint);
        known != m_shapes.end() &&
        std::ranges::equal(columns, known->second->columns, std::mem_fn(&ColumnTexts::Describes))) {
        return known->second;
    }
    std::shared_ptr<const RowShape> shape = MakeShape(sqlite3_db_handle(statement), columns);
    if (m_shapes.size() >= ShapeLimit) m_shapes.clear();
    m_shapes.insert_or_assign(fingerprint, shape);
    return shape;
}

}  // namespace korvex::native::sql
