#include "platform/native/sql/cursor.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/native/sql/column_value.h"

#include <algorithm>
#include <utility>

namespace korvex::native::sql {
namespace {

using automation::EqualsIgnoreCase;
using automation::Variant;

bool SameNames(const RowShape& a, const RowShape& b) {
    return std::ranges::equal(a.columns, b.columns, {}, &ColumnInfo::name, &ColumnInfo::name);
}

}  // namespace

Cursor::Cursor(Session& session, std::string_view composed, bool addsRows, std::span<const Variant> values)
    : m_session(&session),
      m_text(composed),
      m_statement(session.Prepare(composed, values)),
      m_executed(!addsRows || !m_statement.IsWholeTable()) {
    if (m_executed) m_statement.Execute(m_text);
    m_shape = m_statement->Shape();
    m_affectedRows = m_statement->AffectedRows();
    session.Attach(*this);
    if (m_shape->columns.empty()) {
        EndStream();
        m_position = Position::End;
        return;
    }
    if (!m_executed) return;
    session.SetStreaming(*this, true);
    StandOnFirst();
}

void Cursor::StandOnFirst() {
    try {
        Start();
    } catch (...) {
        Close();
        throw;
    }
    if (m_position != Position::Stream) return;
    try {
        KeepStreamRow();
        m_ahead = FetchRow();
    } catch (...) {
        m_failure = std::current_exception();
    }
    if (!m_ahead) EndStream();
}

void Cursor::Close() noexcept {
    if (m_session == nullptr) return;
    EndStream();
    m_session->Detach(*this);
    m_session = nullptr;
    m_mode = EditMode::None;
    m_writer.reset();
    ClearRest();
    m_added.clear();
}

void Cursor::SessionClosing() noexcept { Close(); }

// ---- Reading ----

bool Cursor::Eof() {
    RequireOpen();
    Start();
    return m_position == Position::End;
}

void Cursor::MoveNext() {
    CancelUpdate();
    RequireRecord();
    if (m_position == Position::Added) {
        StepIntoAdded(m_addedIndex + 1);
    } else {
        Advance();
    }
}

void Cursor::MoveLast() {
    RequireOpen();
    CancelUpdate();
    if (!m_added.empty()) {
        StepIntoAdded(m_added.size() - 1);
        return;
    }
    RequireRecord();
    while (m_statement && m_position != Position::End) {
        KeepStreamRow();
        Row row = std::move(m_row);
        Advance();
        if (m_position == Position::End) {
            m_row = std::move(row);
            m_position = Position::Memory;
        }
    }
    if (!m_rest.empty()) {
        m_row = std::move(m_rest.back());
        ClearRest();
    }
    if (m_failure) Advance();
}

Variant Cursor::Value(std::size_t column) {
    if (m_mode != EditMode::None) {
        if (m_changes.IsSet(column)) return m_changes.Value(column);
        if (m_mode == EditMode::Adding) return {};
    }
    RequireRecord();
    return StoredValue(column);
}

Variant Cursor::StoredValue(std::size_t column) {
    switch (m_position) {
        case Position::Stream:
            return m_statement->Value(column);
        case Position::Memory:
            return m_row[column];
        default:
            return AddedValue(m_added[m_addedIndex], column);
    }
}

Variant Cursor::AddedValue(AddedRow& row, std::size_t column) {
    if (row.values[column].IsMissing()) {
        std::optional<Row> stored =
            row.identity ? Writer().Read(*row.identity) : Row(row.values.size(), Variant::Null());
        if (!stored) throw EngineError(ErrorKind::RecordChanged, 0, "The added record is not there any more");
        for (std::size_t i = 0; i < row.values.size(); ++i) {
            if (row.values[i].IsMissing()) row.values[i] = std::move((*stored)[i]);
        }
    }
    return row.values[column];
}

void Cursor::RequireOpen() const {
    if (m_session == nullptr) throw EngineError(ErrorKind::Closed, 0, "The recordset is closed");
    if (m_failure && m_position == Position::End) std::rethrow_exception(m_failure);
}

void Cursor::RequireRecord() {
    RequireOpen();
    Start();
    if (m_position == Position::End) throw EngineError(ErrorKind::NoCurrentRecord, 0, "No current record");
}

void Cursor::Start() {
    if (m_position != Position::Before) return;
    m_position = Position::End;
    try {
        if (!m_executed) Execute();
        m_executed = true;
        PrepareToSkipAdditions();
        Advance();
        AdoptShape();
    } catch (...) {
        m_failure = std::current_exception();
        EndStream();
        throw;
    }
}

void Cursor::Execute() {
    m_statement.Execute(m_text);
    m_session->SetStreaming(*this, true);
}

/// The tables may have changed since the statement was prepared.
void Cursor::AdoptShape() {
    if (!m_statement || m_statement->Shape() == m_shape) return;
    if (m_shapeUsed && !SameNames(*m_shape, *m_statement->Shape())) {
        throw EngineError(ErrorKind::Other, 0,
                          "The columns of the tables changed while the recordset was open");
    }
    m_shape = m_statement->Shape();
    m_writer.reset();
}

void Cursor::Advance() {
    if (m_nextRest < m_rest.size()) {
        m_row = std::move(m_rest[m_nextRest++]);
        if (m_nextRest == m_rest.size()) ClearRest();
        m_position = Position::Memory;
        return;
    }
    m_position = Position::End;
    if (m_failure) std::rethrow_exception(m_failure);
    if (m_statement) {
        try {
            if (std::exchange(m_ahead, false) || FetchRow()) {
                m_position = Position::Stream;
                return;
            }
        } catch (...) {
            m_failure = std::current_exception();
            EndStream();
            throw;
        }
        EndStream();
    }
    StepIntoAdded(0);
}

void Cursor::ClearRest() noexcept {
    m_rest.clear();
    m_nextRest = 0;
}

bool Cursor::FetchRow() {
    while (m_statement.Fetch(m_text)) {
        if (m_addedKeys.empty() || !IsOwnAddition()) return true;
    }
    return false;
}

void Cursor::EndStream() noexcept {
    m_statement.Return();
    m_session->SetStreaming(*this, false);
}

void Cursor::StepIntoAdded(std::size_t index) noexcept {
    m_addedIndex = index;
    m_position = index < m_added.size() ? Position::Added : Position::End;
}

Row Cursor::StreamRow() { return ReadRow(*m_statement, m_shape->columns.size()); }

/// Takes the current row into memory, if the statement still holds it.
void Cursor::KeepStreamRow() {
    if (m_position != Position::Stream) return;
    m_row = StreamRow();
    m_position = Position::Memory;
}

void Cursor::TakeRows() noexcept {
    try {
        KeepStreamRow();
        while (std::exchange(m_ahead, false) || FetchRow())
            m_rest.push_back(StreamRow());
    } catch (...) {
        m_failure = std::current_exception();
        if (m_position == Position::Stream) m_position = Position::End;
    }
    EndStream();
}

// ---- Writing ----

RowWriter& Cursor::Writer() {
    if (!m_writer) m_writer.emplace(*m_session, m_session->PlanFor(m_shape));
    return *m_writer;
}

std::optional<TableColumn> Cursor::Details(std::size_t column) {
    RequireOpen();
    const ColumnInfo& info = m_shape->columns[column];
    if (info.base.table.empty()) return std::nullopt;
    const std::shared_ptr<const TableInfo> table = m_session->Table(info.base, *m_shape);
    const TableColumn* found = table->Find(info.baseColumn);
    return found == nullptr ? std::nullopt : std::optional(*found);
}

bool Cursor::IsUpdatable() {
    RequireOpen();
    try {
        Writer();
        return true;
    } catch (const EngineError& error) {
        if (error.Kind() != ErrorKind::NotUpdatable) throw;
        return false;
    }
}

void Cursor::AddNew() {
    RequireOpen();
    CancelUpdate();
    Writer();
    m_shapeUsed = true;
    StartChanges(EditMode::Adding);
}

void Cursor::Edit() {
    CancelUpdate();
    RequireRecord();
    Writer();
    StartChanges(EditMode::Editing);
}

void Cursor::StartChanges(EditMode mode) {
    m_changes.Start(m_shape->columns.size());
    m_mode = mode;
}

void Cursor::CancelUpdate() noexcept {
    m_mode = EditMode::None;
    m_changes.Clear();
}

void Cursor::Set(std::size_t column, const Variant& value) {
    RequireOpen();
    if (m_mode == EditMode::None) {
        throw EngineError(ErrorKind::NotEditing, 0,
                          "A value can be set only between AddNew or Edit and Update");
    }
    const ColumnInfo& info = m_shape->columns[column];
    if (info.baseColumn.empty()) {
        throw EngineError(ErrorKind::NotUpdatable, 0,
                          "The column " + info.name + " is computed and cannot be set");
    }
    m_changes.Set(column, Fit(value, info));
}

/// ForColumn, for what the engine holds.
Variant Cursor::Fit(const Variant& value, const ColumnInfo& column) const {
    Variant fitted = ForColumn(value, column);
    const auto* text = fitted.If<std::string>();
    if (text != nullptr && !m_session->Traits().textsHoldNul && text->find('\0') != std::string::npos) {
        throw EngineError(ErrorKind::WrongType, 0,
                          "The value does not fit the column " + column.name +
                              ": it holds the character NUL, where a text of this engine would end");
    }
    return fitted;
}

void Cursor::Extend(std::size_t column, const Variant& data) {
    if (m_mode == EditMode::None || !m_changes.IsSet(column)) return Set(column, data);
    Variant& value = m_changes.Value(column);
    if (value.IsNull()) return Set(column, data);
    RequireOpen();
    const Variant more = Fit(data, m_shape->columns[column]);
    if (auto* text = value.If<std::string>(); text != nullptr && more.IsString()) {
        text->append(*more.If<std::string>());
    } else if (auto* bytes = value.If<automation::Bytes>(); bytes != nullptr && !more.IsNull()) {
        const auto& added = *more.If<automation::Bytes>();
        bytes->insert(bytes->end(), added.begin(), added.end());
    }
}

void Cursor::Update() {
    RequireOpen();
    if (m_mode == EditMode::None) {
        throw EngineError(ErrorKind::NotEditing, 0, "Update without AddNew or Edit");
    }
    if (m_mode == EditMode::Adding) {
        StoreAddition();
    } else {
        StoreEdit();
    }
    CancelUpdate();
}

std::string Cursor::EditedRecord() {
    if (m_mode == EditMode::None) return m_text;
    try {
        const std::string& table = WritePlan::BaseTable(*m_shape).table;
        if (m_mode == EditMode::Adding) return "a new record of " + table;
        std::string text = "the record of " + table;
        if (m_position != Position::Memory && m_position != Position::Added) return text;
        const RowIdentity identity = CurrentIdentity();
        for (std::size_t i = 0; identity.unique && i < identity.columns.size(); ++i) {
            text.append(i == 0 ? " with " : ", ").append(identity.columns[i]).append(" = ");
            text += automation::ToString(identity.values[i]);
        }
        return text;
    } catch (const std::exception&) {
        return m_text;  // rows of no table, or a key that is no text
    }
}

void Cursor::StoreAddition() {
    AddedRow row;
    row.identity = Writer().Insert(m_changes);
    row.values = m_changes.TakeRow();
    for (std::size_t i = 0; row.identity && i < row.identity->columns.size(); ++i) {
        if (const auto position = Writer().Plan().PositionOf(row.identity->columns[i])) {
            row.values[*position] = row.identity->values[i];
        }
    }
    m_added.push_back(std::move(row));
}

void Cursor::StoreEdit() {
    KeepStreamRow();
    m_changes.RemoveSame([this](std::size_t column) { return StoredValue(column); });
    if (m_changes.Columns().empty()) return;
    Writer().Update(CurrentIdentity(), m_changes);
    for (const std::size_t column : m_changes.Columns())
        KeepInRecord(column, m_changes.Value(column));
}

RowIdentity Cursor::CurrentIdentity() {
    if (m_position == Position::Memory) return Writer().Identify(m_row);
    const AddedRow& row = m_added[m_addedIndex];
    if (!row.identity)
        throw EngineError(ErrorKind::NotUpdatable, 0, "The added record cannot be found again");
    return *row.identity;
}

/// The current record as it now is in the database. Writing has taken it into memory.
void Cursor::KeepInRecord(std::size_t column, const Variant& value) {
    if (m_position != Position::Added) {
        m_row[column] = value;
        return;
    }
    AddedRow& row = m_added[m_addedIndex];
    row.values[column] = value;
    for (std::size_t i = 0; i < row.identity->columns.size(); ++i) {
        if (EqualsIgnoreCase(row.identity->columns[i], m_shape->columns[column].baseColumn)) {
            row.identity->values[i] = value;
        }
    }
}

// ---- Rows added before the statement was executed ----

namespace {

std::string KeyText(const Row& values) {
    std::string text;
    for (const Variant& value : values)
        text += (value.IsNull() ? "" : automation::ToString(value)) + '\0';
    return text;
}

}  // namespace

/// The statement gives them as well, somewhere among the others: they are left out there. Rows that cannot be
/// known again are left to the statement alone.
void Cursor::PrepareToSkipAdditions() {
    for (const AddedRow& row : m_added) {
        if (!row.identity || !Writer().Plan().KeyColumns()) {
            m_added.clear();
            m_addedKeys.clear();
            return;
        }
        m_addedKeys.insert(KeyText(row.identity->values));
    }
}

bool Cursor::IsOwnAddition() {
    const RowIdentity identity = Writer().Identify(StreamRow());
    return identity.unique && m_addedKeys.contains(KeyText(identity.values));
}

}  // namespace korvex::native::sql
