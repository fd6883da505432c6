#include "platform/native/dao/dao_engine.h"

#include "automation/error.h"
#include "platform/native/jet/jet_tables.h"
#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/sqlite/sqlite_file.h"
#include "platform/native/sql/sqlite/sqlite_session.h"

namespace korvex::native::dao_engine {
std::shared_ptr<dao::Workspace> NativeEngine::CreateWorkspace(std::string_view, std::string_view,
                                                              std::string_view, std::int32_t type) {
    if (type != dao::dbUseODBC) {
        throw automation::Error(automation::InvalidProcedureCall, "Only ODBC workspaces can be created");
    }
    return std::make_shared<NativeWorkspace>(m_seam);
}

std::unique_ptr<dao::Database> NativeEngine::OpenDatabase(std::string_view name) {
    return WithErrors<DaoError>({}, [&] {
        const sql::SqliteOptions options{.mode = sql::SqliteMode::ReadWrite, .seam = m_seam};
        return DatabaseOn(std::make_unique<sql::SqliteSession>(name, options));
    });
}

std::unique_ptr<dao::Database> NativeEngine::CreateDatabase(std::string_view name) {
    // Without a name the database is private: nobody else sees it, and it is gone when it closes.
    const auto mode = name.empty() ? sql::SqliteMode::Memory : sql::SqliteMode::CreateNew;
    const sql::SqliteOptions options{.mode = mode, .seam = m_seam};
    try {
        return DatabaseOn(std::make_unique<sql::SqliteSession>(name, options));
    } catch (const sql::EngineError& error) {
        throw automation::Error(automation::PathFileAccessError,
                                "The database cannot be created: " + sql::DescribeFailure(error, {}));
    }
}

std::optional<std::vector<dao::WholeTable>> NativeEngine::ReadTables(
    std::string_view name, std::span<const dao::WholeTable> wanted) {
    const std::string path(name);
    if (!sql::IsDesktopFile(path)) return std::nullopt;
    return jet::ReadJetTables(path, wanted);
}

}  // namespace korvex::native::dao_engine
