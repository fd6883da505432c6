#pragma once

#include "platform/native/sql/odbc/odbc_dialect.h"
#include "platform/native/sql/odbc/odbc_handle.h"
#include "platform/native/sql/odbc/odbc_string.h"
#include "platform/native/sql/session.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
    struct TableKey {
        std::string schema;
        std::vector<std::string> columns;
    };

    std::unique_ptr<Statement> DoPrepare(std::string_view text, StatementVerb kind) override;
    void DoBegin() override;
    void DoCommit() override { EndTransaction(SQL_COMMIT); }
    void DoRollback() override { EndTransaction(SQL_ROLLBACK); }
    TableInfo DoDescribeTable(const TableName& name, const RowShape& shown) override;
    void DoForgetDefinitions() noexcept override { m_keys.reset(); }
    std::vector<std::string> DoListTables() override;

    void Connect(const OdbcString& connectionString);
    std::string Info(SQLUSMALLINT what) const;
    bool ReadsInAnyOrder() const;
    void SetAutoCommit(bool on);
    void EndTransaction(SQLSMALLINT completion);
    std::vector<std::string> ReadNames(const OdbcHandle& query, SQLUSMALLINT column) const;
    void MarkKeyColumns(TableInfo& table);
    void MarkNumberedKey(TableInfo& table, const RowShape& shape) const;
    const TableKey* KeyOf(const std::string& table);
    std::string OrderOf(std::string_view table);
    std::string OrderOf(const RowShape& shape);

    OdbcHandle m_environment;
    OdbcHandle m_connection;
    OdbcDialect m_dialect;
    /// By the table's name, where one query gives the keys of all tables.
    std::optional<std::map<std::string, TableKey>> m_keys;
    bool m_connected = false;
    bool m_inTransaction = false;
};

}  // namespace korvex::native::sql
