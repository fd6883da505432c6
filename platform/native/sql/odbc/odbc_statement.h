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
    /// `dialect` outlives the statement. `order` is put behind a query whose rows must be asked for in their
    /// order, unless the server refuses it there.
    OdbcStatement(const OdbcHandle& connection, const OdbcDialect& dialect, std::string_view text,
                  StatementVerb kind, std::string_view order = {});

    const std::shared_ptr<const RowShape>& Shape() override;
    std::size_t ParameterCount() const noexcept override { return m_parameters.size(); }
    bool Writes() override;
    void Bind(std::size_t index, const automation::Variant& value, const ColumnInfo* column) override;
    void Execute() override;
    bool Fetch() override;
    automation::Variant Value(std::size_t column) override { return m_columns[column].Value(); }
    std::int64_t AffectedRows() const noexcept override { return m_affectedRows; }
    void Reset() noexcept override;

  private:
    SQLHSTMT Handle() const noexcept { return m_statement.Get(); }
    void Check(SQLRETURN result) const { CheckOdbc(result, m_statement, m_dialect); }
    void SkipToRows();
    void Prepare();
    SQLRETURN Run();
    void LearnColumns();
    std::shared_ptr<const RowShape> Describe() const;
    bool ShowsWholeTable(const std::vector<ColumnInfo>& columns) const;
    ColumnInfo DescribeColumn(SQLUSMALLINT index) const;
    std::string DeclaredSize(SQLUSMALLINT index, SQLSMALLINT type, SQLULEN size) const;
    std::string TextAttribute(SQLUSMALLINT index, SQLUSMALLINT attribute) const {
        return m_dialect.calls.Attribute(Handle(), index, attribute);
    }
    SQLLEN NumberAttribute(SQLUSMALLINT index, SQLUSMALLINT attribute) const;
    void TakeShape(std::shared_ptr<const RowShape> shape);

    const OdbcDialect& m_dialect;
    StatementVerb m_kind;
    std::string m_text;
    std::string m_order;
    enum class Stage : std::uint8_t { New, Used, Prepared };
    Stage m_stage = Stage::New;
    OdbcHandle m_statement;
    std::shared_ptr<const RowShape> m_shape;
    std::vector<OdbcParameter> m_parameters;
    std::vector<OdbcColumn> m_columns;
    bool m_executing = false;
    std::int64_t m_affectedRows = 0;
};

}  // namespace korvex::native::sql
