#include "platform/native/ado/target.h"
#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/odbc/odbc_session.h"
#include "platform/native/sql/sqlite/sqlite_session.h"

#include <utility>

namespace korvex::native::ado_engine {

namespace {

std::unique_ptr<sql::Session> OpenSqlite(const Target& target, std::shared_ptr<sql::Seam> seam) {
    sql::SqliteOptions options{.mode = target.mode, .fullSync = target.fullSync, .seam = std::move(seam)};
    try {
        return std::make_unique<sql::SqliteSession>(target.file, options);
    } catch (const sql::EngineError& error) {
        const bool isMissing = error.Kind() == sql::ErrorKind::FileNotFound;
        throw AdoError(
            error,
            target.file + (isMissing ? "; \"Mode=Create\" in the connection string makes a new one" : ""));
    }
}

}  // namespace

std::unique_ptr<sql::Session> OpenSession(const Target& target, std::shared_ptr<sql::Seam> seam) {
    if (!target.odbcString) return OpenSqlite(target, std::move(seam));
    return WithErrors<AdoError>(
        {}, [&] { return std::make_unique<sql::OdbcSession>(*target.odbcString, std::move(seam)); });
}

}  // namespace korvex::native::ado_engine
