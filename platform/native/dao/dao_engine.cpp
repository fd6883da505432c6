#include "platform/native/dao/dao_engine.h"

#include "automation/error.h"
#include "platform/native/jet/jet_tables.h"
#include "platform/native/sql/sqlite/sqlite_file.h"
#include "platform/native/sql/sqlite/sqlite_session.h"

namespace korvex::native::dao_engine {

namespace {

class NativeWorkspace final : public dao::Workspace {
  public:
    explicit NativeWorkspace(std::shared_ptr<sql::Seam> seam) : m_seam(std::move(seam)) {}

    std::unique_ptr<dao::Database> OpenConnection(std::string_view, bool readOnly,
                                                  std::string_view connect) override {
        return OdbcDatabase(connect, readOnly, m_seam);
    }

  private:
    std::shared_ptr<sql::Seam> m_seam;
};

class NativeEngine final : public dao::DBEngine {
  public:
    explicit NativeEngine(std::shared_ptr<sql::Seam> seam) : m_seam(std::move(seam)) {}

    std::shared_ptr<dao::Workspace> CreateWorkspace(std::string_view, std::string_view, std::string_view,
                                                    std::int32_t type) override {
        if (type != dao::dbUseODBC) {
            throw automation::Error(automation::InvalidProcedureCall, "Only ODBC workspaces can be created");
        }
        return std::make_shared<NativeWorkspace>(m_seam);
    }
    std::unique_ptr<dao::Database> OpenDatabase(std::string_view name) override {
        return WithErrors<DaoError>({}, [&] { return Open(name, sql::SqliteMode::ReadWrite); });
    }
    std::unique_ptr<dao::Database> CreateDatabase(std::string_view name) override {
        // Without a name the database is private: nobody else sees it, and it is gone when it closes.
        try {
            return Open(name, name.empty() ? sql::SqliteMode::Memory : sql::SqliteMode::CreateNew);
        } catch (const sql::EngineError& error) {
            throw automation::Error(automation::PathFileAccessError,
                                    "The database cannot be created: " + sql::DescribeFailure(error, {}));
        }
    }
    std::optional<std::vector<dao::WholeTable>> ReadTables(std::string_view name,
                                                           std::span<const dao::WholeTable> wanted) override {
        const std::string path(name);
        if (!sql::IsDesktopFile(path)) return std::nullopt;
        return jet::ReadJetTables(path, wanted);
    }

  private:
    std::unique_ptr<dao::Database> Open(std::string_view name, sql::SqliteMode mode) const {
        const sql::SqliteOptions options{.mode = mode, .seam = m_seam};
        return DatabaseOn(std::make_unique<sql::SqliteSession>(name, options));
    }

    std::shared_ptr<sql::Seam> m_seam;
};

}  // namespace

std::shared_ptr<dao::DBEngine> CreateDaoEngine(std::shared_ptr<sql::Seam> seam) {
    return std::make_shared<NativeEngine>(std::move(seam));
}

}  // namespace korvex::native::dao_engine
