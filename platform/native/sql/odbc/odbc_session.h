#pragma once

#include "platform/native/sql/odbc/odbc_dialect.h"
#include "platform/native/sql/odbc/odbc_handle.h"
#include "platform/native/sql/odbc/odbc_string.h"
#include "platform/native/sql/session.h"

#include <memory>
#include <string>
#include <string_view>

namespace korvex::native::sql {

/// A connection through the ODBC driver manager; statements commit one by one unless Begin was called.
class OdbcSession final : public Session {
  public:
    /// `connectionString` as OdbcString reads it.
    /// ConnectFailed with the driver's own text.
    OdbcSession(std::string_view connectionString, std::shared_ptr<Seam> seam);
    ~OdbcSession() override;

    bool InTransaction() const noexcept override { return m_inTransaction; }

  private:
    std::unique_ptr<Statement> DoPrepare(std::string_view text, StatementKind kind) override;
    void DoBegin() override;
    void DoCommit() override;
    void DoRollback() override;
    TableInfo DoDescribeTable(const TableName& name) override;

    void Connect(const OdbcString& connectionString);
    std::string Info(SQLUSMALLINT what) const;
    bool ReadsInAnyOrder() const;
    void SetAutoCommit(bool on);
    void EndTransaction(SQLSMALLINT completion);
    SQLRETURN AskForPrimaryKey(const OdbcHandle& query, TableName table) const;
    void MarkKeyColumns(TableInfo& table);
    void MarkNumberedKey(TableInfo& table, const RowShape& shape) const;
    std::string OrderOf(std::string_view text, const RowShape& shape);

    OdbcHandle m_environment;
    OdbcHandle m_connection;
    OdbcDialect m_dialect;
    bool m_connected = false;
    bool m_inTransaction = false;
};

}  // namespace korvex::native::sql
