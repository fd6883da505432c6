#include "automation/error.h"
#include "platform/native/dao/dao_engine.h"
#include "platform/native/sql/cursor.h"
#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/odbc/odbc_session.h"

#include <utility>
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

/// An action is run by Execute; opened as a recordset it would take effect unseen.
void RequireQuery(std::string_view text) {
    const sql::StatementVerb verb = sql::VerbOf(text);
    if (verb != sql::StatementVerb::Select && verb != sql::StatementVerb::Other)
        throw automation::Error(dao::InvalidOperation,
                                "An action statement opens no recordset" + sql::BehindMessage(text));
}

class NativeDatabase final : public dao::Database {
  public:
    NativeDatabase(std::unique_ptr<sql::Session> session, bool readOnly)
        : m_session(std::move(session)), m_readOnly(readOnly) {}

    std::unique_ptr<dao::Recordset> OpenRecordset(std::string_view sql, std::int32_t type, std::int32_t,
                                                  std::int32_t) override {
        if (type != dao::dbOpenDynaset && type != dao::dbOpenSnapshot) {
            throw automation::Error(automation::InvalidProcedureCall,
                                    "A recordset is opened as a dynaset or a snapshot");
        }
        RequireQuery(sql);
        const bool updatable = type == dao::dbOpenDynaset && !m_readOnly;
        return WithErrors<DaoError>(
            sql, [&] { return std::make_unique<NativeRecordset>(Open(sql), sql, updatable); });
    }
    void Execute(std::string_view sql) override {
        if (m_readOnly) throw DaoError({sql::ErrorKind::ReadOnly, "it was opened for reading only"}, sql);
        WithErrors<DaoError>(sql, [&] { Open(sql).Execute(sql); });
    }
    void Close() override {
        Open();
        m_session.reset();
    }
    bool BeginTrans() override {
        sql::Session& session = Open();
        if (!session.Traits().transactionOutlivesFailure) return false;
        WithErrors<DaoError>({}, [&] { session.Begin(); });
        return true;
    }
    void CommitTrans() override {
        WithErrors<DaoError>({}, [this] { Open().Commit(); });
    }
    void Rollback() override {
        WithErrors<DaoError>({}, [this] { Open().Rollback(); });
    }

  private:
    sql::Session& Open(std::string_view context = {}) const {
        if (!m_session) throw DaoError({sql::ErrorKind::Closed, "The database is closed"}, context);
        return *m_session;
    }

    std::unique_ptr<sql::Session> m_session;
    bool m_readOnly;
};

}  // namespace

std::unique_ptr<dao::Database> DatabaseOn(std::unique_ptr<sql::Session> session, bool readOnly) {
    return std::make_unique<NativeDatabase>(std::move(session), readOnly);
}

std::unique_ptr<dao::Database> OdbcDatabase(std::string_view connect, bool readOnly,
                                            std::shared_ptr<sql::Seam> seam) {
    return WithErrors<DaoError>({}, [&] {
        auto session = std::make_unique<sql::OdbcSession>(connect, std::move(seam));
        session->TakeBackslashesPlainly();
        return DatabaseOn(std::move(session), readOnly);
    });
}

}  // namespace korvex::native::dao_engine
