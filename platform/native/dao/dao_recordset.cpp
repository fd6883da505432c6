#include "platform/native/dao/dao_engine.h"
#include "platform/native/sql/cursor.h"

#include <vector>

namespace korvex::native::dao_engine {

namespace {

using automation::Variant;

class NativeField final : public dao::Field {
  public:
    NativeField(sql::Cursor& rows, std::size_t column) : m_rows(&rows), m_column(column) {}

    std::string_view Name() const override { return m_rows->Shape().columns[m_column].name; }
    Variant Value() override {
        return WithErrors<DaoError>(m_rows->Text(), [this] {
            const bool adding = m_rows->Mode() == sql::EditMode::Adding;
            return adding && m_rows->Value(m_column).IsEmpty() ? Variant::Null() : m_rows->Value(m_column);
        });
    }
    void Value(const Variant& value) override {
        WithErrors<DaoError>([this] { return m_rows->Shape().columns[m_column].Place(); },
                             [&] { m_rows->Set(m_column, value); });
    }

  private:
    sql::Cursor* m_rows;
    std::size_t m_column;
};

class NativeRecordset final : public dao::Recordset {
  public:
    NativeRecordset(sql::Session& session, std::string_view text, bool updatable)
        : m_cursor(session, text, updatable), m_updatable(updatable) {}

    bool Eof() override {
        return WithErrors<DaoError>(m_cursor.Text(), [this] { return m_cursor.Eof(); });
    }
    void MoveNext() override {
        WithErrors<DaoError>(m_cursor.Text(), [this] { m_cursor.MoveNext(); });
    }
    void MoveLast() override {
        WithErrors<DaoError>(m_cursor.Text(), [this] { m_cursor.MoveLast(); });
    }
    dao::Field& Fields(std::string_view name) override;
    void AddNew() override {
        RequireUpdatable();
        WithErrors<DaoError>(m_cursor.Text(), [this] { m_cursor.AddNew(); });
    }
    void Edit() override {
        RequireUpdatable();
        WithErrors<DaoError>(m_cursor.Text(), [this] { m_cursor.Edit(); });
    }
    void Update() override {
        WithErrors<DaoError>([this] { return m_cursor.EditedRecord(); }, [this] { m_cursor.Update(); });
    }
    void Close() override {
        RequireOpen();
        m_cursor.Close();
    }

  private:
    void RequireOpen() const {
        if (!m_cursor.IsOpen())
            throw DaoError({sql::ErrorKind::Closed, "The recordset is closed"}, m_cursor.Text());
    }
    void RequireUpdatable() const {
        if (!m_updatable)
            throw DaoError({sql::ErrorKind::NotUpdatable, "A snapshot cannot be updated"}, m_cursor.Text());
    }

    sql::Cursor m_cursor;
    bool m_updatable;
    std::vector<NativeField> m_fields;
};

dao::Field& NativeRecordset::Fields(std::string_view name) {
    RequireOpen();
    const auto column = m_cursor.Find(name);
    if (!column) {
        throw automation::Error(dao::ItemNotFound,
                                m_cursor.Shape().DescribeMissing(name) + sql::BehindMessage(m_cursor.Text()));
    }
    if (m_fields.empty()) {
        const std::size_t count = m_cursor.Shape().columns.size();
        m_fields.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            m_fields.emplace_back(m_cursor, i);
    }
    return m_fields[*column];
}

}  // namespace

std::unique_ptr<dao::Recordset> RecordsetOf(sql::Session& session, std::string_view text, bool updatable) {
    return std::make_unique<NativeRecordset>(session, text, updatable);
}

}  // namespace korvex::native::dao_engine
