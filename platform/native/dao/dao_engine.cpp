#include "platform/native/dao/dao_engine.h"

#include "automation/error.h"
#include "platform/native/dao/dao_error.h"
#include "platform/native/dao/dao_recordset.h"
#include "platform/native/sql/odbc/odbc_session.h"
#include "platform/native/sql/sqlite/sqlite_session.h"

namespace korvex::native::dao_engine {
namespace {

sql::SqliteOptions FileOptions(sql::SqliteMode mode, const std::shared_ptr<sql::Seam>& seam) {
    sql::SqliteOptions options;
    options.mode = mode;
    options.seam = seam;
    return options;
}

}  // namespace

sql::Session& NativeDatabase::Open(std::string_view context) const {
    if (!m_session) RaiseDaoError({sql::ErrorKind::Closed, 0, "The database is closed"}, context);
    return *m_session;
}

std::unique_ptr<dao::Recordset> NativeDatabase::OpenRecordset(std::string_view sql, std::int32_t type,
                                                              std::int32_t, std::int32_t) {
    if (type != dao::dbOpenDynaset && type != dao::dbOpenSnapshot) {
        throw automation::Error(automation::InvalidProcedureCall,
                                "A recordset is opened as a dynaset or a snapshot");
    }
    return Guarded(
        sql, [&] { return std::make_unique<NativeRecordset>(Open(sql), sql, type == dao::dbOpenDynaset); });
}

void NativeDatabase::Execute(std::string_view sql) {
    Guarded(sql, [&] { Open(sql).Execute(sql); });
}

void NativeDatabase::Close() {
    Open({});
    m_session.reset();
}

bool NativeDatabase::BeginTrans() {
    sql::Session& session = Open({});
    if (!session.Traits().transactionOutlivesFailure) return false;
    Guarded({}, [&] { session.Begin(); });
    return true;
}

void NativeDatabase::CommitTrans() {
    Guarded({}, [&] { Open({}).Commit(); });
}

void NativeDatabase::Rollback() {
    Guarded({}, [&] { Open({}).Rollback(); });
}

std::unique_ptr<dao::Database> NativeWorkspace::OpenConnection(std::string_view, bool,
                                                               std::string_view connect) {
    return Guarded({}, [&] {
        return std::make_unique<NativeDatabase>(std::make_unique<sql::OdbcSession>(connect, m_seam));
    });
}

std::shared_ptr<dao::Workspace> NativeEngine::CreateWorkspace(std::string_view, std::string_view,
                                                              std::string_view, std::int32_t type) {
    if (type != dao::dbUseODBC) {
        throw automation::Error(automation::InvalidProcedureCall, "Only ODBC workspaces can be created");
    }
    return std::make_shared<NativeWorkspace>(m_seam);
}

std::unique_ptr<dao::Database> NativeEngine::OpenDatabase(std::string_view name) {
    return Guarded({}, [&] {
        return std::make_unique<NativeDatabase>(
            std::make_unique<sql::SqliteSession>(name, FileOptions(sql::SqliteMode::ReadWrite, m_seam)));
    });
}

std::unique_ptr<dao::Database> NativeEngine::CreateDatabase(std::string_view name) {
    try {
        return std::make_unique<NativeDatabase>(
            std::make_unique<sql::SqliteSession>(name, FileOptions(sql::SqliteMode::CreateNew, m_seam)));
    } catch (const sql::EngineError& error) {
        throw automation::Error(automation::PathFileAccessError,
                                std::string("The database cannot be created: ") + error.what());
    }
}

}  // namespace korvex::native::dao_engine
