#pragma once

#include "repository/repository.h"

#include <exception>

namespace korvex::repository {

/// One transaction of the open repository, for as long as the object lives: what was not committed is rolled
/// back. It holds the right to write from its beginning, so that a second one waits for its end instead of
/// reading rows that change before they are written. Does nothing when no repository is open or its engine
/// offers no transactions.
class Transaction {
  public:
    explicit Transaction(Repository& repository)
        : Transaction(repository.IsOpen() ? &repository.Open() : nullptr) {
        // A file is locked by then; behind ODBC, only rows that were written are.
        if (m_database && repository.IsOdbc()) repository.Execute("update tDataDefs set Storage = Storage");
    }
    explicit Transaction(dao::Database& database) : Transaction(&database) {}
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
    explicit Transaction(dao::Database* database)
        : m_database(database && database->BeginTrans() ? database : nullptr) {}
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
