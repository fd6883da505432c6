#pragma once

#include "automation/error.h"
#include "platform/ado.h"

#include <exception>
#include <memory>
#include <string>
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
        try {
            if (m_connection) m_connection->RollbackTrans();
        } catch (const std::exception&) {
            // The engine has taken it back already, as it does on a full disk.
        }
    }

    /// Makes the changes permanent; when that fails they are rolled back and the engine's error is raised.
    void Commit() {
        m_commits = true;
        m_connection->CommitTrans();
        m_connection = nullptr;
    }

    /// Rolls back, where definitions go back too. What became of the database, a sentence for the error that
    /// ended the work.
    std::string TakeBack() {
        try {
            std::exchange(m_connection, nullptr)->RollbackTrans();
        } catch (const automation::Error& error) {
            // Without a transaction the engine has taken it back already; a commit that failed late leaves
            // none, either.
            if (m_commits || error.Number() != XactENoTransaction)
                return "What was done could not be rolled back: " + error.Description();
        }
        return "The database is as it was.";
    }

  private:
    std::shared_ptr<Connection> m_connection;
    bool m_commits = false;
};

}  // namespace korvex::ado
