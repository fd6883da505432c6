#include "platform/native/ado/errors.h"
#include "platform/native/ado/target.h"
#include "platform/native/sql/odbc/odbc_session.h"
#include "platform/native/sql/sqlite/sqlite_session.h"

#include <utility>

namespace korvex::native::ado_engine {

namespace {

constexpr std::string_view MemoryFile = ":memory:";

std::string SqliteFailureHint(const Target& target, sql::ErrorKind kind) {
    std::string context = target.file;
    if (kind == sql::ErrorKind::FileNotFound)
        context += "; \"Mode=Create\" in the connection string makes a new one";
    return context;
}

std::unique_ptr<sql::Session> OpenSqlite(const Target& target, std::shared_ptr<sql::Seam> seam) {
    sql::SqliteOptions options;
    options.fullSync = target.fullSync;
    options.seam = std::move(seam);
    if (target.file == MemoryFile) {
        options.mode = sql::SqliteMode::Memory;
    } else if (target.mode == TargetMode::Read) {
        options.mode = sql::SqliteMode::ReadOnly;
    } else if (target.mode == TargetMode::Create) {
        options.mode = sql::SqliteMode::Create;
    }
    try {
        return std::make_unique<sql::SqliteSession>(target.file, options);
    } catch (const sql::EngineError& error) {
        throw AdoError(error, SqliteFailureHint(target, error.Kind()));
    }
}

}  // namespace

std::unique_ptr<sql::Session> OpenSession(const Target& target, std::shared_ptr<sql::Seam> seam) {
    if (target.engine == Target::Engine::Sqlite) return OpenSqlite(target, std::move(seam));
    return WithAdoErrors(
        [&] { return std::make_unique<sql::OdbcSession>(target.odbcString, std::move(seam)); },
        [] { return std::string_view(); });
}

}  // namespace korvex::native::ado_engine
