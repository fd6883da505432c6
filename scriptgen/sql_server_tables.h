#pragma once

#include "scriptgen/dialect.h"

namespace korvex::scriptgen {

/// SQL Server and Sybase write the same scripts, but for the owner of the tables, the identity columns and
/// the end of a constraint.
class ServerFamilyDialect : public Dialect {
  public:
    std::string ColumnTypeText(const RunState& run, Column& column) const final;
    void AddStoredProcedures(RunState& run) const final;
    void AddTable(RunState& run, std::string& createText) const final;

  protected:
    /// What stands before the table's name in table statements.
    virtual std::string_view TableOwner() const noexcept = 0;
};

class SqlServerDialect final : public ServerFamilyDialect {
  public:
    std::string ColumnType(const Column& column) const override;
    std::string_view ConstraintTerminator() const noexcept override { return "\r\nGO"; }

  protected:
    std::string_view TableOwner() const noexcept override { return "dbo."; }
};

class SybaseDialect final : public ServerFamilyDialect {
  public:
    std::string ColumnType(const Column& column) const override;
    std::string_view ConstraintTerminator() const noexcept override { return ""; }

  protected:
    std::string_view TableOwner() const noexcept override { return ""; }
};

}  // namespace korvex::scriptgen
