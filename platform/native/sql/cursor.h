#pragma once

#include "platform/native/sql/row_writer.h"
#include "platform/native/sql/session.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

enum class EditMode : std::uint8_t { None, Adding, Editing };

/// The updatable recordset under both engine shapes. Moves forward only.
///
/// It stands on its first record when it was made, so that what fails there fails where it is opened. Only a
/// whole table that is opened to add records to is lazy: prepared and described, and executed at the first
/// look at a row. Rows are streamed from the statement; before anything is written on the session, the rows
/// not read yet are taken into memory. The statement goes back as soon as the last row was read, at once
/// where there is no second one, so that it holds no lock. A later row that cannot be read fails when the
/// cursor comes to it.
///
/// Rows added through the cursor stand behind all others, in the order added, each once. What was not set of
/// them is read from the database when somebody asks for it.
class Cursor final : private SessionCursor {
  public:
    /// `addsRows`: a whole table waits for the first look at a row. `values` are for the placeholders.
    Cursor(Session& session, std::string_view composed, bool addsRows = true,
           std::span<const automation::Variant> values = {});
    ~Cursor() { Close(); }

    bool IsOpen() const noexcept { return m_session != nullptr; }
    /// Lets everything go. A cursor whose session ended is closed.
    void Close() noexcept;

    /// The columns; none for a statement that gives no rows.
    const RowShape& Shape() noexcept {
        m_shapeUsed = true;
        return *m_shape;
    }
    bool HasColumns() const noexcept { return !m_shape->columns.empty(); }
    /// The position of a column, by RowShape::Find. Hosts mostly ask for the columns of a row in their order.
    std::optional<std::size_t> Find(std::string_view name) noexcept {
        const auto found = Shape().Find(name, m_expected);
        if (found) m_expected = *found + 1;
        return found;
    }
    /// What a statement without rows has touched.
    std::int64_t AffectedRows() const noexcept { return m_affectedRows; }
    const std::string& Text() const noexcept { return m_text; }
    /// The record being added or edited, as the description of a failed update names it.
    std::string EditedRecord();

    bool Eof();
    /// An edit or addition that was not stored is dropped.
    void MoveNext();
    /// To the row added last, without executing the statement; when none was added, to the last row.
    /// NoCurrentRecord when there is none, or all were read.
    void MoveLast();

    /// The value of the current record, or of the one being added or edited. Empty for a column of a new
    /// record that was not set. NoCurrentRecord when there is none.
    automation::Variant Value(std::size_t column);

    EditMode Mode() const noexcept { return m_mode; }
    void AddNew();
    void Edit();
    /// Converts to the column's type (WrongType, ValueTooLarge) and keeps the value for Update.
    void Set(std::size_t column, const automation::Variant& value);
    /// Puts more text or bytes behind a value that was set.
    void Extend(std::size_t column, const automation::Variant& data);
    /// Stores what was set: an INSERT of the columns set, or an UPDATE of those whose value differs, if any
    /// does. After an addition the cursor stands where it stood before. When it fails, the record is still
    /// being added or edited.
    void Update();
    void CancelUpdate() noexcept;

    /// The column of the base table behind a column, nothing for an expression; tells whether it takes Null
    /// and whether the engine numbers it.
    std::optional<TableColumn> Details(std::size_t column);
    /// Whether rows can be added and edited: the columns come from one table.
    bool IsUpdatable();

  private:
    /// Where the cursor stands.
    enum class Position : std::uint8_t {
        Before,  ///< not executed
        Stream,  ///< on the statement's current row
        Memory,  ///< on m_row
        Added,   ///< on m_added[m_addedIndex]
        End,
    };
    struct AddedRow {
        Row values;  ///< Missing for what is still to be read from the database
        std::optional<RowIdentity> identity;
    };

    void TakeRows() noexcept override;
    void SessionClosing() noexcept override;

    void RequireOpen() const;
    void RequireRecord();
    void StandOnFirst();
    void Start();
    void Execute();
    void AdoptShape();
    void PrepareToSkipAdditions();
    void Advance();
    void ClearRest() noexcept;
    bool FetchRow();
    bool IsOwnAddition();
    void EndStream() noexcept;
    void StepIntoAdded(std::size_t index) noexcept;
    Row StreamRow();
    void KeepStreamRow();
    automation::Variant StoredValue(std::size_t column);
    automation::Variant AddedValue(AddedRow& row, std::size_t column);
    RowWriter& Writer();
    void StartChanges(EditMode mode);
    void StoreAddition();
    void StoreEdit();
    RowIdentity CurrentIdentity();
    automation::Variant Fit(const automation::Variant& value, const ColumnInfo& column) const;
    void KeepInRecord(std::size_t column, const automation::Variant& value);

    Session* m_session;
    std::string m_text;
    StatementLease m_statement;
    std::shared_ptr<const RowShape> m_shape;
    bool m_shapeUsed = false;
    std::size_t m_expected = 0;  ///< the column behind the one found last
    std::int64_t m_affectedRows = 0;

    Position m_position = Position::Before;
    bool m_executed = false;
    /// Rows taken from the statement: those from m_nextRest on stand behind the current one. Emptied when the
    /// last one was reached.
    std::vector<Row> m_rest;
    std::size_t m_nextRest = 0;
    bool m_ahead = false;  ///< the statement stands on the row behind the current one
    Row m_row;
    std::vector<AddedRow> m_added;
    std::size_t m_addedIndex = 0;
    std::set<std::string> m_addedKeys;  ///< of additions that the statement would give a second time
    std::exception_ptr m_failure;       ///< raised when the rows before it were read

    EditMode m_mode = EditMode::None;
    Changes m_changes;
    std::optional<RowWriter> m_writer;
};

}  // namespace korvex::native::sql
