#include "platform/native/sql/row_writer.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/native/sql/column_value.h"

#include <algorithm>

namespace korvex::native::sql {
namespace {

using automation::EqualsIgnoreCase;
using automation::Variant;

/// The one table behind the columns.
const TableName& BaseTable(const RowShape& shape) {
    const TableName* base = nullptr;
    for (const ColumnInfo& column : shape.columns) {
        if (column.base.table.empty()) continue;
        if (base != nullptr && *base != column.base) {
            throw EngineError(ErrorKind::NotUpdatable, 0,
                              "Rows that come from several tables (" + base->table + ", " +
                                  column.base.table + ") cannot be written");
        }
        base = &column.base;
    }
    if (base == nullptr) {
        throw EngineError(ErrorKind::NotUpdatable, 0, "Rows that come from no table cannot be written");
    }
    return *base;
}

[[noreturn]] void RaiseRecordChanged(const TableInfo& table, std::string_view what) {
    throw EngineError(ErrorKind::RecordChanged, 0,
                      "The record of table " + table.name.table + " cannot be updated: " + std::string(what));
}

}  // namespace

RowWriter::RowWriter(Session& session, std::shared_ptr<const RowShape> shape)
    : m_session(session), m_shape(std::move(shape)), m_table(session.Table(BaseTable(*m_shape))) {}

RowIdentity RowWriter::Identify(const Row& row) const {
    RowIdentity identity;
    const auto add = [&](std::size_t i) {
        identity.columns.push_back(Column(i).baseColumn);
        identity.values.push_back(row[i]);
    };
    const auto find = [&](const std::string& name) {
        std::size_t i = 0;
        while (i < row.size() && !EqualsIgnoreCase(Column(i).baseColumn, name))
            ++i;
        return i;
    };
    identity.unique = m_table->HasKey();
    for (const TableColumn& column : m_table->columns) {
        if (!column.key || !identity.unique) continue;
        const std::size_t i = find(column.name);
        if (i == row.size()) {
            identity.unique = false;
        } else {
            add(i);
        }
    }
    if (identity.unique) return identity;
    identity.columns.clear();
    identity.values.clear();
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!Column(i).baseColumn.empty() && !IsLong(Column(i).type)) add(i);
    }
    if (identity.columns.empty()) {
        throw EngineError(ErrorKind::NotUpdatable, 0,
                          "A record of table " + m_table->name.table + " cannot be told from the others");
    }
    return identity;
}

std::optional<RowIdentity> RowWriter::Insert(std::span<const Change> changes) {
    const bool returning = m_session.Traits().newKey == NewKeySource::Returning && m_table->HasKey();
    const std::string text = InsertText(changes, returning);
    StatementLease insert = m_session.PrepareExact(text, StatementKind::Insert);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        insert->Bind(i, changes[i].value, &Column(changes[i].column));
    }
    insert.Execute(text);
    return NewIdentity(changes, insert, text);
}

std::string RowWriter::InsertText(std::span<const Change> changes, bool returning) const {
    std::string text;
    text.reserve(64 + changes.size() * 24);
    text = "INSERT INTO ";
    AppendTable(text);
    text += ' ';
    if (changes.empty()) text += m_session.Traits().emptyInsert;
    std::string_view before = "(";
    for (const Change& change : changes) {
        text += before;
        AppendName(text, Column(change.column).baseColumn);
        before = ", ";
    }
    before = ") VALUES (?";
    for (std::size_t i = 0; i < changes.size(); ++i) {
        text += before;
        before = ", ?";
    }
    if (!changes.empty()) text += ')';
    before = " RETURNING ";
    for (const TableColumn& column : m_table->columns) {
        if (!returning || !column.key) continue;
        text += before;
        AppendName(text, column.name);
        before = ", ";
    }
    return text;
}

std::optional<RowIdentity> RowWriter::NewIdentity(std::span<const Change> changes, StatementLease& insert,
                                                  std::string_view text) {
    const EngineTraits& traits = m_session.Traits();
    RowIdentity identity;
    if (!m_table->HasKey()) {
        if (traits.rowIdName.empty()) return std::nullopt;
        identity.columns.push_back(traits.rowIdName);
        identity.values.push_back(NewKey(text));
        return identity;
    }
    const bool returned = traits.newKey == NewKeySource::Returning && insert.Fetch(text);
    for (const TableColumn& column : m_table->columns) {
        if (!column.key) continue;
        const auto set = std::ranges::find_if(changes, [&](const Change& change) {
            return EqualsIgnoreCase(Column(change.column).baseColumn, column.name);
        });
        identity.columns.push_back(column.name);
        if (returned) {
            identity.values.push_back(insert->Value(identity.values.size()));
        } else if (set != changes.end() && !set->value.IsNull()) {
            identity.values.push_back(set->value);
        } else if (column.autoNumber) {
            identity.values.push_back(NewKey(text));
        } else {
            return std::nullopt;
        }
    }
    while (returned && insert.Fetch(text)) {
    }
    return identity;
}

Variant RowWriter::NewKey(std::string_view insertText) {
    const EngineTraits& traits = m_session.Traits();
    switch (traits.newKey) {
        case NewKeySource::LastRowId:
            return WholeNumber(m_session.LastRowId());
        case NewKeySource::Query: {
            StatementLease query = m_session.PrepareExact(traits.newKeyQuery, StatementKind::Select);
            query.Execute(traits.newKeyQuery);
            if (query.Fetch(traits.newKeyQuery)) return WholeNumber(automation::ToLongLong(query->Value(0)));
            break;
        }
        default:
            break;
    }
    throw EngineError(ErrorKind::Other, 0,
                      "The engine gave no key for the new record: " + std::string(insertText));
}

void RowWriter::Update(const RowIdentity& identity, std::span<const Change> changes) {
    if (!identity.unique) RequireSingle(identity);
    std::string text = "UPDATE ";
    text.reserve(64 + changes.size() * 24);
    AppendTable(text);
    std::string_view before = " SET ";
    for (const Change& change : changes) {
        text += before;
        AppendName(text, Column(change.column).baseColumn);
        text += " = ?";
        before = ", ";
    }
    AppendWhere(text, identity);
    StatementLease update = m_session.PrepareExact(text, StatementKind::Update);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        update->Bind(i, changes[i].value, &Column(changes[i].column));
    }
    BindIdentity(update, changes.size(), identity);
    update.Execute(text);
    if (update->AffectedRows() == 0) RaiseRecordChanged(*m_table, "it is not there any more");
}

/// Without a key, only a record that no other one equals can be told apart.
void RowWriter::RequireSingle(const RowIdentity& identity) {
    std::string text = "SELECT COUNT(*) FROM ";
    AppendTable(text);
    AppendWhere(text, identity);
    StatementLease query = m_session.PrepareExact(text, StatementKind::Select);
    BindIdentity(query, 0, identity);
    query.Execute(text);
    const bool found = query.Fetch(text);
    const std::int64_t count = found ? automation::ToLongLong(query->Value(0)) : 0;
    if (count == 0) RaiseRecordChanged(*m_table, "it is not there any more");
    if (count > 1) RaiseRecordChanged(*m_table, "the table has no key, and another record is equal to it");
}

std::optional<Row> RowWriter::Read(const RowIdentity& identity) {
    std::string text = "SELECT";
    text.reserve(64 + m_shape->columns.size() * 20);
    std::string_view before = " ";
    for (const ColumnInfo& column : m_shape->columns) {
        text += before;
        if (column.baseColumn.empty()) {
            text += "NULL";
        } else {
            AppendName(text, column.baseColumn);
        }
        before = ", ";
    }
    text += " FROM ";
    AppendTable(text);
    AppendWhere(text, identity);
    StatementLease query = m_session.PrepareExact(text, StatementKind::Select);
    BindIdentity(query, 0, identity);
    query.Execute(text);
    if (!query.Fetch(text)) return std::nullopt;
    Row row;
    row.reserve(m_shape->columns.size());
    for (std::size_t i = 0; i < m_shape->columns.size(); ++i)
        row.push_back(query->Value(i));
    return row;
}

void RowWriter::AppendName(std::string& text, std::string_view name) const {
    text += QuoteName(m_session.Traits(), name);
}

void RowWriter::AppendTable(std::string& text) const {
    const TableName& name = m_table->name;
    for (const std::string* part : {&name.catalog, &name.schema}) {
        if (part->empty()) continue;
        AppendName(text, *part);
        text += '.';
    }
    AppendName(text, name.table);
}

void RowWriter::AppendWhere(std::string& text, const RowIdentity& identity) const {
    std::string_view before = " WHERE ";
    for (std::size_t i = 0; i < identity.columns.size(); ++i) {
        text += before;
        AppendName(text, identity.columns[i]);
        text += identity.values[i].IsNull() ? " IS NULL" : " = ?";
        before = " AND ";
    }
}

void RowWriter::BindIdentity(StatementLease& statement, std::size_t first,
                             const RowIdentity& identity) const {
    for (std::size_t i = 0; i < identity.columns.size(); ++i) {
        if (identity.values[i].IsNull()) continue;
        const auto column = std::ranges::find_if(m_shape->columns, [&](const ColumnInfo& info) {
            return EqualsIgnoreCase(info.baseColumn, identity.columns[i]);
        });
        statement->Bind(first++, identity.values[i], column == m_shape->columns.end() ? nullptr : &*column);
    }
}

}  // namespace korvex::native::sql
