#include "platform/native/sql/cursor.h"

#include "automation/convert.h"
#include "platform/native/sql/column_value.h"

#include <utility>

namespace korvex::native::sql {

using automation::Variant;

void Cursor::Close() noexcept {
    m_rows.Close();
    m_mode = EditMode::None;
    m_writing.reset();
}

// ---- Reading ----

void Cursor::RequireOpen() const {
    if (!IsOpen()) throw EngineError(ErrorKind::Closed, "The recordset is closed");
    if (m_position == Position::End) m_rows.RaiseFailure();
}

void Cursor::RequireRecord() {
    RequireOpen();
    Start();
    if (m_position == Position::End) throw EngineError(ErrorKind::NoCurrentRecord, "No current record");
}

void Cursor::Start() {
    if (m_position != Position::Rows || m_rows.HasRow()) return;
    StepIntoAdded(AddedCount());  // what fails here ends the rows
    if (!m_rows.IsStarted())
        m_rows.Start(AddedCount() == 0 ? nullptr : m_writing->added.Recognizer(Writer()));
    m_rows.RaiseFailure();
    if (m_rows.HasRow())
        m_position = Position::Rows;
    else
        StepIntoAdded(0);
}

bool Cursor::Eof() {
    RequireOpen();
    Start();
    return m_position == Position::End;
}

void Cursor::MoveNext() {
    CancelUpdate();
    RequireRecord();
    if (m_position == Position::Added)
        StepIntoAdded(m_addedIndex + 1);
    else if (!m_rows.Next())
        StepIntoAdded(0);
}

void Cursor::MoveLast() {
    RequireOpen();
    CancelUpdate();
    if (AddedCount() > 0) return StepIntoAdded(AddedCount() - 1);
    RequireRecord();
    m_rows.MoveLast();
}

void Cursor::StepIntoAdded(std::size_t index) noexcept {
    m_addedIndex = index;
    m_position = index < AddedCount() ? Position::Added : Position::End;
}

Variant Cursor::SettledValue(std::size_t column) {
    if (m_mode != EditMode::None) {
        if (m_writing->changes.IsSet(column)) return m_writing->changes.Value(column);
        if (m_mode == EditMode::Adding) return {};
    }
    RequireRecord();
    return StoredValue(column);
}

Variant Cursor::StoredValue(std::size_t column) {
    if (m_position == Position::Rows) return m_rows.Value(column);
    return m_writing->added.Value(m_addedIndex, column, Writer());
}

// ---- Writing ----

RowWriter& Cursor::Writer() {
    const std::shared_ptr<const RowShape>& shape = m_rows.Shape();
    if (!m_writing) m_writing = std::make_unique<Writing>();
    std::optional<RowWriter>& writer = m_writing->writer;
    if (!writer || &writer->Plan().Shape() != shape.get())
        writer.emplace(m_session, m_session.PlanFor(shape));
    return *writer;
}

void Cursor::AddNew() {
    RequireOpen();
    CancelUpdate();
    StartChanges(EditMode::Adding);
}

void Cursor::Edit() {
    CancelUpdate();
    RequireRecord();
    StartChanges(EditMode::Editing);
}

void Cursor::StartChanges(EditMode mode) {
    const std::size_t columns = Writer().Plan().Shape().columns.size();
    m_writing->changes.Start(columns);
    m_mode = mode;
}

void Cursor::CancelUpdate() noexcept {
    m_mode = EditMode::None;
    if (m_writing) m_writing->changes.Clear();
}

void Cursor::Set(std::size_t column, const Variant& value) {
    RequireOpen();
    if (m_mode == EditMode::None) {
        throw EngineError(ErrorKind::NotEditing, "A value can be set only between AddNew or Edit and Update");
    }
    const ColumnInfo& info = Shape().columns[column];
    if (info.baseColumn.empty()) {
        throw EngineError(ErrorKind::NotUpdatable,
                          "The column " + info.name + " is computed and cannot be set");
    }
    m_writing->changes.Set(column, Fit(value, info));
}

/// ForColumn, for what the engine holds.
Variant Cursor::Fit(const Variant& value, const ColumnInfo& column) const {
    Variant fitted = ForColumn(value, column);
    const auto* text = fitted.If<std::string>();
    if (text != nullptr && !m_session.Traits().textsHoldNul && text->find('\0') != std::string::npos) {
        throw EngineError(ErrorKind::WrongType,
                          "The value does not fit the column " + column.name +
                              ": it holds the character NUL, where a text of this engine would end");
    }
    return fitted;
}

void Cursor::Extend(std::size_t column, const Variant& data) {
    if (m_mode == EditMode::None || !m_writing->changes.IsSet(column)) return Set(column, data);
    Variant& value = m_writing->changes.Value(column);
    if (value.IsNull()) return Set(column, data);
    RequireOpen();
    const Variant more = Fit(data, Shape().columns[column]);
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
        throw EngineError(ErrorKind::NotEditing, "Update without AddNew or Edit");
    }
    if (m_mode == EditMode::Adding)
        m_writing->added.Add(Writer(), m_writing->changes);
    else
        StoreEdit();
    CancelUpdate();
}

void Cursor::StoreEdit() {
    Changes& changes = m_writing->changes;
    changes.RemoveSame([this](std::size_t column) { return StoredValue(column); });
    if (changes.Columns().empty()) return;
    const RowIdentity identity = CurrentIdentity();
    Writer().Update(identity, changes);
    for (const std::size_t column : changes.Columns()) {
        if (m_position == Position::Rows)
            m_rows.Values()[column] = changes.Value(column);
        else
            m_writing->added.Replace(m_addedIndex, column, Shape().columns[column].baseColumn,
                                     changes.Value(column));
    }
}

RowIdentity Cursor::CurrentIdentity() {
    return m_position == Position::Added ? m_writing->added.IdentityOf(m_addedIndex)
                                         : Writer().Identify(m_rows.Values());
}

std::string Cursor::EditedRecord() {
    if (m_mode == EditMode::None) return Text();
    try {
        const std::string& table = WritePlan::BaseTable(Shape()).table;
        if (m_mode == EditMode::Adding) return "a new record of " + table;
        std::string text = "the record of " + table;
        const RowIdentity identity = CurrentIdentity();
        for (std::size_t i = 0; identity.unique && i < identity.columns.size(); ++i) {
            text.append(i == 0 ? " with " : ", ").append(identity.columns[i]).append(" = ");
            text += automation::ToString(identity.values[i]);
        }
        return text;
    } catch (const std::exception&) {
        return Text();  // rows of no table, or a key that is no text
    }
}

}  // namespace korvex::native::sql
