#pragma once

#include "platform/native/sql/odbc/odbc_column.h"
#include "platform/native/sql/odbc/odbc_dialect.h"
#include "platform/native/sql/odbc/odbc_parameter.h"
#include "platform/native/sql/row_writer.h"
#include "platform/native/sql/statement.h"
#include "platform/native/sql/statement_text.h"

#include <memory>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

class OdbcStatement final : public Statement {
  public:
    /// `dialect` outlives the statement.
    OdbcStatement(const OdbcHandle& connection, const OdbcDialect& dialect, std::string_view text,
                  StatementKind kind);

    const std::shared_ptr<const RowShape>& Shape() const noexcept override { return m_shape; }
    std::size_t ParameterCount() const noexcept override { return m_parameters.size(); }
    bool Writes() const noexcept override;
    void Bind(std::size_t index, const automation::Variant& value, const ColumnInfo* column) override;
    void Execute() override;
    bool Fetch() override;
    automation::Variant Value(std::size_t column) override {
        return m_columns[column].Value(m_statement, m_dialect);
    }
    std::int64_t AffectedRows() const noexcept override { return m_affectedRows; }
    void Reset() noexcept override;

    /// Whether a column takes Null and whether the engine numbers it, as the driver says.
    TableColumn Details(std::size_t column) const;

  private:
    SQLHSTMT Handle() const noexcept { return m_statement.Get(); }
    void Check(SQLRETURN result) const { CheckOdbc(result, m_statement, m_dialect); }
    void SkipToRows();
    void Prepare(std::string_view text);
    std::shared_ptr<const RowShape> Describe() const;
    ColumnInfo DescribeColumn(SQLUSMALLINT index) const;
    std::string DeclaredSize(SQLUSMALLINT index, SQLSMALLINT type, SQLULEN size) const;
    std::string TextAttribute(SQLUSMALLINT index, SQLUSMALLINT attribute) const;
    SQLLEN NumberAttribute(SQLUSMALLINT index, SQLUSMALLINT attribute) const;
    void TakeShape(std::shared_ptr<const RowShape> shape);

    const OdbcDialect& m_dialect;
    StatementKind m_kind;
    OdbcHandle m_statement;
    std::shared_ptr<const RowShape> m_shape;
    std::vector<OdbcParameter> m_parameters;
    std::vector<OdbcColumn> m_columns;
    bool m_executing = false;
    std::int64_t m_affectedRows = 0;
};

}  // namespace korvex::native::sql
