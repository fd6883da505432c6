#include "automation/error.h"
#include "platform/native/dao/dao_engine.h"
#include "platform/native/dao/dao_recordset.h"
#include "platform/native/sql/odbc/odbc_session.h"
#include "platform/native/sql/port_error.h"

namespace korvex::native::dao_engine {

namespace {

/// An action is run by Execute; opened as a recordset it would take effect unseen.
void RequireQuery(std::string_view text) {
    switch (sql::VerbOf(text)) {
        case sql::StatementVerb::Select:
        case sql::StatementVerb::Other:
            return;
        default:
            throw automation::Error(dao::InvalidOperation, "An action statement opens no recordset (" +
                                                               sql::ReadableStatement(text) + ")");
    }
}

}  // namespace

sql::Session& NativeDatabase::Open(std::string_view context) const {
    if (!m_session) throw DaoError({sql::ErrorKind::Closed, 0, "The database is closed"}, context);
    return *m_session;
}

std::unique_ptr<dao::Recordset> NativeDatabase::OpenRecordset(std::string_view sql, std::int32_t type,
                                                              std::int32_t, std::int32_t) {
    if (type != dao::dbOpenDynaset && type != dao::dbOpenSnapshot) {
        throw automation::Error(automation::InvalidProcedureCall,
                                "A recordset is opened as a dynaset or a snapshot");
    }
    RequireQuery(sql);
    const bool updatable = type == dao::dbOpenDynaset && !m_readOnly;
    return WithErrors<DaoError>(sql,
                                [&] { return std::make_unique<NativeRecordset>(Open(sql), sql, updatable); });
}

void NativeDatabase::Execute(std::string_view sql) {
    if (m_readOnly) throw DaoError({sql::ErrorKind::ReadOnly, 0, "it was opened for reading only"}, sql);
    WithErrors<DaoError>(sql, [&] { Open(sql).Execute(sql); });
}

void NativeDatabase::Close() {
    Open({});
    m_session.reset();
}

bool NativeDatabase::BeginTrans() {
    sql::Session& session = Open({});
    if (!session.Traits().transactionOutlivesFailure) return false;
    WithErrors<DaoError>({}, [&] { session.Begin(); });
    return true;
}

void NativeDatabase::CommitTrans() {
    WithErrors<DaoError>({}, [&] { Open({}).Commit(); });
}

void NativeDatabase::Rollback() {
    WithErrors<DaoError>({}, [&] { Open({}).Rollback(); });
}

std::unique_ptr<dao::Database> NativeWorkspace::OpenConnection(std::string_view, bool readOnly,
                                                               std::string_view connect) {
    return WithErrors<DaoError>({}, [&] {
        auto session = std::make_unique<sql::OdbcSession>(connect, m_seam);
        session->TakeBackslashesPlainly();
        return std::make_unique<NativeDatabase>(std::move(session), readOnly);
    });
}

}  // namespace korvex::native::dao_engine
