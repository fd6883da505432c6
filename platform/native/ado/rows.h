#pragma once

#include "automation/variant.h"
#include "platform/ado.h"
#include "platform/native/sql/cursor.h"
#include "platform/native/sql/engine_error.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korvex::native::ado_engine {

class NativeConnection;
class NativeField;

/// What an open recordset and its fields share: the cursor, with ADO's rules of editing on top. Errors leave
/// as automation::Errors.
class OpenRows {
  public:
    /// Opens the statement on its first row; a whole table that can be updated, at the first look at a row.
    OpenRows(std::shared_ptr<NativeConnection> connection, std::string_view text, bool isUpdatable,
             std::span<const automation::Variant> values = {});
    ~OpenRows();
    OpenRows(const OpenRows&) = delete;
    OpenRows& operator=(const OpenRows&) = delete;

    bool HasColumns() const noexcept { return m_cursor.HasColumns(); }
    const sql::RowShape& Shape() { return m_cursor.Shape(); }
    const std::shared_ptr<const sql::RowShape>& Layout() { return m_cursor.SharedShape(); }
    const sql::ColumnInfo& Column(std::size_t column) { return Shape().columns[column]; }
    bool HasColumn(std::size_t column) { return column < Shape().types.size(); }
    bool IsOpen() const noexcept { return m_cursor.IsOpen(); }
    const std::string& Text() const noexcept { return m_cursor.Text(); }
    bool IsUpdatable() const noexcept { return m_isUpdatable; }
    bool IsEditing() const noexcept { return m_cursor.Mode() != sql::EditMode::None; }
    std::int64_t AffectedRows() const noexcept { return m_cursor.AffectedRows(); }
    void Close() noexcept { m_cursor.Close(); }

    bool Eof();
    /// Stores a pending edit first, as AddNew does.
    void MoveNext();
    void AddNew();
    /// Stores a pending edit; an added record is then the current one.
    void Update();
    void CancelUpdate();

    automation::Variant Value(std::size_t column) {
        if (m_chunks && m_chunks->column != column) EndChunks();
        return WithErrors<AdoError>([this, column] { return Place(column); },
                                    [this, column] { return m_cursor.Value(column); });
    }
    /// Its value, where hosts go through the columns in their order.
    automation::Variant NextValue(std::size_t column) {
        m_cursor.Expect(column + 1);
        return Value(column);
    }
    /// Outside an edit it starts one on the current record.
    void Value(std::size_t column, const automation::Variant& value);
    std::int32_t ActualSize(std::size_t column);
    automation::Variant GetChunk(std::size_t column, std::int32_t length);
    void AppendChunk(std::size_t column, const automation::Variant& data);

    NativeField& Field(std::size_t column);
    /// The position of a field, in any case; nothing when there is none of that name.
    std::optional<std::size_t> Find(std::string_view name) { return m_cursor.Find(name); }

  private:
    /// The long value that is read or written in chunks. Touching another field's value ends it.
    struct Chunks {
        std::size_t column;
        bool isAppending = false;
        automation::Variant value;  ///< being read
        std::int32_t size = 0;      ///< of the value being read
        std::size_t next = 0;  ///< where the next chunk starts: bytes of text, or of binary data; or AllRead
    };
    static constexpr std::size_t AllRead = static_cast<std::size_t>(-1);

    void RequireUpdatable() const;
    void RequireLong(std::size_t column);
    void EndChunks() noexcept { m_chunks.reset(); }
    void ReadLong(std::size_t column);
    automation::Variant NextChunk(std::size_t length);
    std::string Place(std::size_t column) { return Column(column).Place(); }

    std::shared_ptr<NativeConnection> m_connection;  ///< open as long as somebody reads from it
    sql::Cursor m_cursor;
    bool m_isUpdatable;
    std::unique_ptr<Chunks> m_chunks;         ///< null outside a long value
    std::unique_ptr<NativeField[]> m_fields;  ///< made with the first field that is asked for
};

}  // namespace korvex::native::ado_engine
