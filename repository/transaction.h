#pragma once

#include "repository/repository.h"

#include <exception>

namespace korvex::repository {

/// One transaction of the open repository, for as long as the object lives: what was not committed is rolled
/// back. Does nothing when no repository is open or its engine offers no transactions.
class Transaction {
  public:
    explicit Transaction(Repository& repository)
        : m_database(repository.IsOpen() && repository.Open().BeginTrans() ? &repository.Open() : nullptr) {}
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction() {
        if (m_database) Rollback();
    }

    /// Makes the changes permanent; when that fails they are rolled back and the engine's error is raised.
    void Commit() {
        if (m_database) m_database->CommitTrans();
        m_database = nullptr;
    }

  private:
    void Rollback() noexcept {
        try {
            m_database->Rollback();
        } catch (const std::exception&) {
            // The error that led here is the one to report; the engine drops the changes with the connection.
        }
    }

    dao::Database* m_database;
};

}  // namespace korvex::repository
