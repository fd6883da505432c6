#pragma once

#include "hosts/cli/shell/progress.h"
#include "platform/ado.h"

#include <memory>
#include <utility>

namespace korvex::cli {

/// A connection whose statements are steps of the work, and work of their own where nobody knows their
/// number.
class CountedConnection final : public ado::Connection {
  public:
    CountedConnection(std::shared_ptr<ado::Connection> connection, Console& console)
        : m_connection(std::move(connection)), m_console(console), m_progress(console, "statements") {}

    void Open(std::string_view connectionString, std::string_view user, std::string_view password,
              std::int32_t options) override {
        m_connection->Open(connectionString, user, password, options);
    }
    void Close() override { m_connection->Close(); }
    std::shared_ptr<ado::Recordset> Execute(std::string_view text, std::int32_t options,
                                            std::int32_t* recordsAffected) override {
        auto records = m_connection->Execute(text, options, recordsAffected);
        m_console.Step();
        return records;
    }
    std::int32_t State() const override { return m_connection->State(); }
    std::int32_t BeginTrans() override { return m_connection->BeginTrans(); }
    void CommitTrans() override { m_connection->CommitTrans(); }
    void RollbackTrans() override { m_connection->RollbackTrans(); }

  private:
    std::shared_ptr<ado::Connection> m_connection;
    Console& m_console;
    Progress m_progress;
};

}  // namespace korvex::cli
