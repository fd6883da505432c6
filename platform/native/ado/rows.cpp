#include "platform/native/ado/rows.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/native/ado/connection.h"
#include "platform/native/ado/field.h"

#include <algorithm>
#include <utility>

namespace korvex::native::ado_engine {

namespace {

using automation::Bytes;
using automation::Error;
using automation::Variant;

/// The part of `text` from `start` on that has at most `units` UTF-16 units, at least one character.
std::string_view TextChunk(const std::string& text, std::size_t start, std::size_t units) {
    const std::string_view rest = std::string_view(text).substr(start);
    const std::string_view chunk = automation::Left(rest, units);
    if (!chunk.empty() || rest.empty()) return chunk;
    return automation::Left(rest, 2);  // a character of two units is not split
}

}  // namespace

OpenRows::OpenRows(std::shared_ptr<NativeConnection> connection, std::string_view text, bool isUpdatable,
                   std::span<const Variant> values)
    : m_connection(std::move(connection)),
      m_cursor(m_connection->Session(), text, isUpdatable, values),
      m_isUpdatable(isUpdatable) {}

OpenRows::~OpenRows() = default;

bool OpenRows::Eof() {
    if (m_cursor.Mode() == sql::EditMode::Adding) return false;
    return WithErrors<AdoError>(m_cursor.Text(), [this] { return m_cursor.Eof(); });
}

void OpenRows::MoveNext() {
    Update();
    WithErrors<AdoError>(m_cursor.Text(), [this] { m_cursor.MoveNext(); });
}

void OpenRows::AddNew() {
    RequireUpdatable();
    Update();
    WithErrors<AdoError>(m_cursor.Text(), [this] { m_cursor.AddNew(); });
}

void OpenRows::Update() {
    EndChunks();
    if (!IsEditing()) return;
    const bool isAdding = m_cursor.Mode() == sql::EditMode::Adding;
    WithErrors<AdoError>([this] { return m_cursor.EditedRecord(); },
                         [this, isAdding] {
                             m_cursor.Update();
                             if (isAdding) m_cursor.MoveLast();
                         });
}

void OpenRows::CancelUpdate() {
    EndChunks();
    if (!IsEditing()) {
        throw Error(ado::adErrIllegalOperation,
                    "There is no edit to cancel: no record is being added or changed.");
    }
    m_cursor.CancelUpdate();
}

void OpenRows::Value(std::size_t column, const Variant& value) {
    EndChunks();
    const bool startsEdit = !IsEditing();
    if (startsEdit) {
        RequireUpdatable();
        WithErrors<AdoError>(m_cursor.Text(), [this] { m_cursor.Edit(); });
    }
    try {
        m_cursor.Set(column, value);
    } catch (const sql::EngineError& error) {
        if (startsEdit) m_cursor.CancelUpdate();
        throw AdoError(error, Place(column));
    }
}

std::int32_t OpenRows::ActualSize(std::size_t column) {
    if (!sql::IsLong(Column(column).type)) return NativeField::SizeOf(Value(column), Column(column));
    ReadLong(column);
    return m_chunks->size;
}

Variant OpenRows::GetChunk(std::size_t column, std::int32_t length) {
    RequireLong(column);
    if (length < 1) throw Error(ado::adErrInvalidArgument, "GetChunk takes a length above 0.");
    ReadLong(column);
    return NextChunk(static_cast<std::size_t>(length));
}

void OpenRows::AppendChunk(std::size_t column, const Variant& data) {
    RequireLong(column);
    if (!m_chunks || !m_chunks->isAppending || m_chunks->column != column) {
        Value(column, data);
        m_chunks = std::make_unique<Chunks>(Chunks{.column = column, .isAppending = true, .value = {}});
        return;
    }
    WithErrors<AdoError>([&] { return Place(column); }, [&] { m_cursor.Extend(column, data); });
}

NativeField& OpenRows::Field(std::size_t column) {
    if (!m_fields) {
        const std::size_t count = Shape().columns.size();
        m_fields = std::make_unique<NativeField[]>(count);
        for (std::size_t i = 0; i < count; ++i) {
            m_fields[i].Bind(*this, i);
        }
    }
    return m_fields[column];
}

void OpenRows::RequireUpdatable() const {
    if (!m_isUpdatable) {
        throw Error(ado::adErrFeatureNotAvailable,
                    "The recordset was opened read-only" + sql::BehindMessage(m_cursor.Text()) + ".");
    }
}

void OpenRows::RequireLong(std::size_t column) {
    if (!sql::IsLong(Column(column).type)) {
        throw Error(
            ado::adErrIllegalOperation,
            "The column " + Place(column) + " is not read or written in chunks: it holds no long data.");
    }
}

void OpenRows::ReadLong(std::size_t column) {
    if (m_chunks && m_chunks->column == column && !m_chunks->isAppending) return;
    Variant value = Value(column);
    const std::int32_t size = NativeField::SizeOf(value, Column(column));
    m_chunks = std::make_unique<Chunks>(Chunks{.column = column, .value = std::move(value), .size = size});
}

Variant OpenRows::NextChunk(std::size_t length) {
    Chunks& chunks = *m_chunks;
    const std::size_t start = chunks.next;
    if (start == AllRead) return Variant::Null();
    const bool isWhole = start == 0 && chunks.size > 0 && length >= static_cast<std::size_t>(chunks.size);
    if (isWhole) {
        chunks.next = AllRead;
        return std::exchange(chunks.value, {});
    }
    if (const auto* text = chunks.value.If<std::string>(); text != nullptr && start < text->size()) {
        const std::string_view chunk = TextChunk(*text, start, length);
        chunks.next += chunk.size();
        return chunk;
    }
    if (const auto* bytes = chunks.value.If<Bytes>(); bytes != nullptr && start < bytes->size()) {
        const std::size_t end = start + std::min(length, bytes->size() - start);
        chunks.next = end;
        return Bytes(bytes->begin() + static_cast<std::ptrdiff_t>(start),
                     bytes->begin() + static_cast<std::ptrdiff_t>(end));
    }
    return Variant::Null();
}

}  // namespace korvex::native::ado_engine
