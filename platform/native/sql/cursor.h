#pragma once

#include "platform/native/sql/added_rows.h"
#include "platform/native/sql/statement_rows.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvex::native::sql {

enum class EditMode : std::uint8_t { None, Adding, Editing };

/// The updatable recordset under both engine shapes: the rows of a statement and, behind them, those added
/// through it, each once. Moves forward only. Only a whole table that is opened to add records to waits for
/// the first look at a row (StatementRows).
class Cursor final {
  public:
    /// `addsRows`: a whole table waits for the first look at a row. `values` are for the placeholders.
    Cursor(Session& session, std::string_view composed, bool addsRows = true,
           std::span<const automation::Variant> values = {})
        : m_session(session), m_rows(session, composed, addsRows, values) {}

    bool IsOpen() const noexcept { return m_rows.IsOpen(); }
    /// Lets everything go. A cursor whose session ended is closed.
    void Close() noexcept;

    /// The columns; none for a statement that gives no rows.
    const RowShape& Shape() { return *m_rows.Shape(); }
    const std::shared_ptr<const RowShape>& SharedShape() { return m_rows.Shape(); }
    bool HasColumns() const noexcept { return m_rows.HasColumns(); }
    /// The position of a column, by RowShape::Find. Hosts mostly ask for the columns of a row in their order.
    std::optional<std::size_t> Find(std::string_view name) {
        const auto found = Shape().Find(name, m_expected);
        if (found) Expect(*found + 1);
        return found;
    }
    /// Says which column will probably be asked for next.
    void Expect(std::size_t column) noexcept { m_expected = column; }
    /// What a statement without rows has touched.
    std::int64_t AffectedRows() const noexcept { return m_rows.AffectedRows(); }
    const std::string& Text() const noexcept { return m_rows.Text(); }
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
    automation::Variant Value(std::size_t column) {
        const bool isPlain = m_mode == EditMode::None && m_position == Position::Rows && m_rows.HasRow();
        return isPlain ? m_rows.Value(column) : SettledValue(column);
    }

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

  private:
    enum class Position : std::uint8_t {
        Rows,   ///< where m_rows stands
        Added,  ///< on m_addedIndex
        End,
    };

    struct Writing {
        AddedRows added;
        Changes changes;
        std::optional<RowWriter> writer;
    };

    void RequireOpen() const;
    void RequireRecord();
    void Start();
    void StepIntoAdded(std::size_t index) noexcept;
    std::size_t AddedCount() const noexcept { return m_writing ? m_writing->added.Count() : 0; }
    automation::Variant SettledValue(std::size_t column);
    automation::Variant StoredValue(std::size_t column);
    RowWriter& Writer();
    void StartChanges(EditMode mode);
    void StoreEdit();
    RowIdentity CurrentIdentity();
    automation::Variant Fit(const automation::Variant& value, const ColumnInfo& column) const;

    Session& m_session;
    StatementRows m_rows;
    std::size_t m_addedIndex = 0;
    Position m_position = Position::Rows;
    std::size_t m_expected = 0;  ///< the column behind the one found last

    EditMode m_mode = EditMode::None;
    std::unique_ptr<Writing> m_writing;  ///< from the first change on: most cursors only read
};

}  // namespace korvex::native::sql
