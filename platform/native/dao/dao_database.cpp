#include "automation/error.h"
#include "platform/native/dao/dao_engine.h"
#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/odbc/odbc_session.h"

namespace korvex::native::dao_engine {

namespace {

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
        return WithErrors<DaoError>(sql, [&] { return RecordsetOf(Open(sql), sql, updatable); });
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
