#pragma once

#include "platform/ado.h"

#include <exception>
#include <memory>
#include <utility>

namespace korvex::ado {

/// One transaction of an open connection, for as long as the object lives: what was not committed is rolled
/// back.
class Transaction {
  public:
    explicit Transaction(std::shared_ptr<Connection> connection) : m_connection(std::move(connection)) {
        m_connection->BeginTrans();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction() {
        if (m_connection) Rollback();
    }

    /// Makes the changes permanent; when that fails they are rolled back and the engine's error is raised.
    void Commit() {
        m_connection->CommitTrans();
        m_connection = nullptr;
    }

  private:
    void Rollback() noexcept {
        try {
            m_connection->RollbackTrans();
        } catch (const std::exception&) {
            // The engine has taken it back already, as it does on a full disk.
        }
    }

    std::shared_ptr<Connection> m_connection;
};

}  // namespace korvex::ado
