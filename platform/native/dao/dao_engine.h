#pragma once

#include "platform/dao.h"
#include "platform/native/sql/session.h"

#include <memory>
#include <string>
#include <string_view>

/// The repository engine in the shape of DAO, over the SQL layer.
namespace korvex::native::dao_engine {

/// The database on a session.
std::unique_ptr<dao::Database> DatabaseOn(std::unique_ptr<sql::Session> session, bool readOnly = false);
/// The rows of a statement; `updatable` for a dynaset.
std::unique_ptr<dao::Recordset> RecordsetOf(sql::Session& session, std::string_view text, bool updatable);

class NativeWorkspace final : public dao::Workspace {
  public:
    explicit NativeWorkspace(std::shared_ptr<sql::Seam> seam) : m_seam(std::move(seam)) {}
    std::unique_ptr<dao::Database> OpenConnection(std::string_view name, bool readOnly,
                                                  std::string_view connect) override;

  private:
    std::shared_ptr<sql::Seam> m_seam;
};

class NativeEngine final : public dao::DBEngine {
  public:
    explicit NativeEngine(std::shared_ptr<sql::Seam> seam) : m_seam(std::move(seam)) {}

    std::shared_ptr<dao::Workspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                    std::string_view password, std::int32_t type) override;
    std::unique_ptr<dao::Database> OpenDatabase(std::string_view name) override;
    std::unique_ptr<dao::Database> CreateDatabase(std::string_view name) override;
    std::optional<std::vector<dao::WholeTable>> ReadTables(std::string_view name,
                                                           std::span<const dao::WholeTable> wanted) override;

  private:
    std::shared_ptr<sql::Seam> m_seam;
};

}  // namespace korvex::native::dao_engine
