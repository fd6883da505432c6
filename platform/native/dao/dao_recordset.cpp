#include "platform/native/dao/dao_recordset.h"

#include "automation/error.h"
#include "platform/native/sql/port_error.h"

namespace korvex::native::dao_engine {

using automation::Variant;

std::string_view NativeField::Name() const { return m_recordset->Rows().Shape().columns[m_column].name; }

Variant NativeField::Value() {
    sql::Cursor& rows = m_recordset->Rows();
    return WithErrors<DaoError>(rows.Text(), [&] {
        const bool adding = rows.Mode() == sql::EditMode::Adding;
        return adding && rows.Value(m_column).IsEmpty() ? Variant::Null() : rows.Value(m_column);
    });
}

void NativeField::Value(const Variant& value) {
    sql::Cursor& rows = m_recordset->Rows();
    WithErrors<DaoError>([&] { return rows.Shape().columns[m_column].Place(); },
                         [&] { rows.Set(m_column, value); });
}

bool NativeRecordset::Eof() {
    return WithErrors<DaoError>(m_cursor.Text(), [&] { return m_cursor.Eof(); });
}

void NativeRecordset::MoveNext() {
    WithErrors<DaoError>(m_cursor.Text(), [&] { m_cursor.MoveNext(); });
}

void NativeRecordset::MoveLast() {
    WithErrors<DaoError>(m_cursor.Text(), [&] { m_cursor.MoveLast(); });
}

dao::Field& NativeRecordset::Fields(std::string_view name) {
    if (!m_cursor.IsOpen())
        throw DaoError({sql::ErrorKind::Closed, 0, "The recordset is closed"}, m_cursor.Text());
    const auto column = m_cursor.Find(name);
    if (!column) {
        throw automation::Error(dao::ItemNotFound, m_cursor.Shape().DescribeMissing(name) + " (" +
                                                       sql::ReadableStatement(m_cursor.Text()) + ")");
    }
    if (m_fields.empty()) {
        const std::size_t count = m_cursor.Shape().columns.size();
        m_fields.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            m_fields.emplace_back(*this, i);
    }
    return m_fields[*column];
}

void NativeRecordset::RequireUpdatable() const {
    if (m_updatable) return;
    throw DaoError({sql::ErrorKind::NotUpdatable, 0, "A snapshot cannot be updated"}, m_cursor.Text());
}

void NativeRecordset::AddNew() {
    RequireUpdatable();
    WithErrors<DaoError>(m_cursor.Text(), [&] { m_cursor.AddNew(); });
}

void NativeRecordset::Edit() {
    RequireUpdatable();
    WithErrors<DaoError>(m_cursor.Text(), [&] { m_cursor.Edit(); });
}

void NativeRecordset::Update() {
    WithErrors<DaoError>([&] { return m_cursor.EditedRecord(); }, [&] { m_cursor.Update(); });
}

void NativeRecordset::Close() {
    if (!m_cursor.IsOpen())
        throw DaoError({sql::ErrorKind::Closed, 0, "The recordset is closed"}, m_cursor.Text());
    m_cursor.Close();
}

}  // namespace korvex::native::dao_engine
