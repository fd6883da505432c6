#pragma once

#include "scriptgen/dialect.h"
#include "scriptgen/migration/alter_text.h"

/// Changes of tables that the published scripts made.
namespace korvex::scriptgen {

/// What SQL Server and Oracle agree on.
class PublishedAlter : public AlterText {
  public:
    explicit PublishedAlter(const Dialect& dialect) : m_dialect(dialect) {}

    bool CreatesWholeTables() const noexcept override { return true; }
    void CreateTable(const DescribedTable& now) override;
    void CreateIndex(const DescribedTable& now, const TableIndex& index) override;
    void AddForeignKey(const DescribedTable& now, const ForeignKey& key) override;
    /// Its procedures go with it, but for those that went when it made room for another.
    void DropTable(const DescribedTable& before, const std::string& name) override;
    void CreateProcedures(const DescribedTable* before, const DescribedTable& now) override;

  protected:
    /// What becomes a value of a column's new type.
    virtual std::string Converted(const ColumnPlan& column) const = 0;

    /// Type and default of a column.
    static std::string ColumnText(const Column& column);
    /// Carries the values through a column beside the old one.
    void CarryOver(const DescribedTable& now, const ColumnPlan& column);

    /// A run that wrote the table's procedures.
    RunState ProceduresOf(const DescribedTable& table) const;
    bool HaveSameProcedures(const DescribedTable& before, const DescribedTable& now) const;

  private:
    const Dialect& m_dialect;
};

std::unique_ptr<AlterText> MakeSqlServerAlter();
std::unique_ptr<AlterText> MakeOracleAlter();

}  // namespace korvex::scriptgen
