#pragma once

#include "automation/dispatch.h"
#include "platform/dao.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

/// DAO's objects as hosts call them by name, over the repository engine: the members that platform/windows
/// uses.
namespace korvex::test {

/// A Database, or a Connection of an ODBC workspace.
class DatabaseObject final : public automation::TableObject {
  public:
    explicit DatabaseObject(std::unique_ptr<dao::Database> database) : m_database(std::move(database)) {}
    const automation::ClassInfo& Class() const noexcept override;

    dao::Database& Engine() const noexcept { return *m_database; }

  private:
    std::unique_ptr<dao::Database> m_database;
};

class DBEngineObject final : public automation::TableObject {
  public:
    const automation::ClassInfo& Class() const noexcept override;

    std::shared_ptr<DatabaseObject> Keep(std::unique_ptr<dao::Database> database);
    /// Does `work` on every database of the default workspace that is still open.
    void ForAll(void (*work)(dao::Database&));

  private:
    std::vector<std::weak_ptr<DatabaseObject>> m_databases;
};

}  // namespace korvex::test
