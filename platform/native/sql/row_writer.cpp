#include "platform/native/sql/row_writer.h"

#include "automation/convert.h"
#include "platform/native/sql/column_value.h"

#include <algorithm>

namespace korvex::native::sql {
namespace {

using automation::Variant;

[[noreturn]] void RaiseRecordChanged(const TableInfo& table, std::string_view what) {
    throw EngineError(ErrorKind::RecordChanged,
                      "The record of table " + table.name.table + " cannot be updated: " + std::string(what));
}

}  // namespace

RowIdentity RowWriter::Identify(const Row& row) const {
    RowIdentity identity{.plan = m_plan, .columns = {}, .values = {}};
    const auto add = [&](std::size_t i) {
        identity.columns.push_back(m_plan->Column(i).baseColumn);
        identity.values.push_back(row[i]);
    };
    if (m_plan->KeyColumns()) {
        std::ranges::for_each(*m_plan->KeyColumns(), add);
        return identity;
    }
    identity.unique = false;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const ColumnInfo& column = m_plan->Column(i);
        const bool comparable = m_session.Traits().comparesLongValues || !IsLong(column.type);
        if (!column.baseColumn.empty() && comparable) add(i);
    }
    if (identity.columns.empty()) {
        throw EngineError(ErrorKind::NotUpdatable, "A record of table " + m_plan->Table().name.table +
                                                       " cannot be told from the others");
    }
    return identity;
}

std::optional<RowIdentity> RowWriter::Insert(const Changes& changes) {
    const std::string& text = m_plan->InsertText(changes.Columns());
    StatementLease insert = m_session.PrepareExact(text, StatementVerb::Insert);
    BindChanges(insert, changes);
    insert.Execute(text);
    return NewIdentity(changes, insert, text);
}

std::optional<RowIdentity> RowWriter::NewIdentity(const Changes& changes, StatementLease& insert,
                                                  std::string_view text) {
    const EngineTraits& traits = m_session.Traits();
    RowIdentity identity{.plan = m_plan, .columns = {}, .values = {}};
    if (!m_plan->Table().HasKey()) {
        if (traits.rowIdName.empty()) return std::nullopt;
        identity.columns.push_back(traits.rowIdName);
        identity.values.push_back(NewKey(insert, text));
        return identity;
    }
    const bool returned = traits.newKey == NewKeySource::Returning && insert.Fetch(text);
    for (const TableColumn& column : m_plan->Table().columns) {
        if (!column.key) continue;
        identity.columns.push_back(column.name);
        const auto position = m_plan->PositionOf(column.name);
        const bool isSet = position && changes.IsSet(*position) && !changes.Value(*position).IsNull();
        if (returned) {
            identity.values.push_back(insert->Value(identity.values.size()));
        } else if (isSet) {
            identity.values.push_back(changes.Value(*position));
        } else if (column.autoNumber) {
            identity.values.push_back(NewKey(insert, text));
        } else {
            return std::nullopt;
        }
    }
    while (returned && insert.Fetch(text)) {
    }
    return identity;
}

Variant RowWriter::NewKey(StatementLease& insert, std::string_view insertText) {
    switch (m_session.Traits().newKey) {
        case NewKeySource::LastRowId:
            return WholeNumber(m_session.LastRowId());
        case NewKeySource::SameBatch:
            if (insert.Fetch(insertText)) return WholeNumber(automation::ToLongLong(insert->Value(0)));
            break;
        case NewKeySource::Query:
        case NewKeySource::Sequence: {
            const std::string text = m_plan->NewKeyQuery();
            StatementLease query = m_session.PrepareExact(text, StatementVerb::Select);
            query.Execute(text);
            if (query.Fetch(text)) return WholeNumber(automation::ToLongLong(query->Value(0)));
            break;
        }
        case NewKeySource::Returning:
        case NewKeySource::None:
            break;
    }
    throw EngineError(ErrorKind::Other,
                      "The engine gave no key for the new record: " + std::string(insertText));
}

void RowWriter::Update(const RowIdentity& identity, const Changes& changes) {
    if (!identity.unique) RequireSingle(identity);
    std::string text = m_plan->UpdateText(changes.Columns());
    AppendWhere(text, identity);
    StatementLease update = m_session.PrepareExact(text, StatementVerb::Update);
    BindChanges(update, changes);
    BindIdentity(update, changes.Columns().size(), identity);
    update.Execute(text);
    if (update->AffectedRows() == 0) RaiseRecordChanged(m_plan->Table(), "it is not there any more");
}

/// Without a key, only a record that no other one equals can be told apart.
void RowWriter::RequireSingle(const RowIdentity& identity) {
    std::string text = "SELECT COUNT(*) FROM " + m_plan->QuotedTable();
    AppendWhere(text, identity);
    StatementLease query = m_session.PrepareExact(text, StatementVerb::Select);
    BindIdentity(query, 0, identity);
    query.Execute(text);
    const std::int64_t count = query.Fetch(text) ? automation::ToLongLong(query->Value(0)) : 0;
    if (count == 0) RaiseRecordChanged(m_plan->Table(), "it is not there any more");
    if (count > 1) {
        RaiseRecordChanged(m_plan->Table(), "the table has no key, and another record is equal to it");
    }
}

std::optional<Row> RowWriter::Read(const RowIdentity& identity) {
    const std::size_t count = m_plan->Shape().columns.size();
    std::string text = "SELECT ";
    for (std::size_t i = 0; i < count; ++i)
        text.append(i == 0 ? "" : ", ").append(m_plan->QuotedName(i));
    text.append(" FROM ").append(m_plan->QuotedTable());
    AppendWhere(text, identity);
    StatementLease query = m_session.PrepareExact(text, StatementVerb::Select);
    BindIdentity(query, 0, identity);
    query.Execute(text);
    if (!query.Fetch(text)) return std::nullopt;
    return query->CurrentRow();
}

void RowWriter::BindChanges(StatementLease& statement, const Changes& changes) const {
    std::size_t parameter = 0;
    for (const std::size_t column : changes.Columns())
        statement->Bind(parameter++, changes.Value(column), &m_plan->Column(column));
}

void RowWriter::AppendWhere(std::string& text, const RowIdentity& identity) const {
    std::string_view before = " WHERE ";
    for (std::size_t i = 0; i < identity.columns.size(); ++i) {
        text.append(before).append(m_session.Traits().Quote(identity.columns[i]));
        text += identity.values[i].IsNull() ? " IS NULL" : " = ?";
        before = " AND ";
    }
}

void RowWriter::BindIdentity(StatementLease& statement, std::size_t first,
                             const RowIdentity& identity) const {
    for (std::size_t i = 0; i < identity.columns.size(); ++i) {
        if (identity.values[i].IsNull()) continue;
        const auto position = m_plan->PositionOf(identity.columns[i]);
        statement->Bind(first++, identity.values[i], position ? &m_plan->Column(*position) : nullptr);
    }
}

}  // namespace korvex::native::sql
