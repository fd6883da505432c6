#pragma once

#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/alter_text.h"

#include <map>
#include <tuple>

/// Changes of tables on the engines that have dialects of their own.
namespace korvex::scriptgen {

/// What most engines agree on.
class EngineAlter : public AlterText {
  public:
    /// `now`: the new tables, as their definition describes them.
    EngineAlter(const EngineDialect& dialect, std::span<const DescribedTable> now);

    bool IsTriggerOf(const DescribedTable& before, std::string_view trigger) const override;
    void DropForeignKey(AlterSteps& steps, const DescribedTable& before,
                        const ForeignKey& key) const override;
    void DropIndex(AlterSteps& steps, const DescribedTable& before, const std::string& index) const override;
    void DropTrigger(AlterSteps& steps, const DescribedTable& before,
                     const std::string& trigger) const override;
    void RenameTable(AlterSteps& steps, const DescribedTable& before, const NameChange& name) const override;
    void RenameColumn(AlterSteps& steps, const std::string& table, const NameChange& name) const override;
    void CreateTable(AlterSteps& steps, const DescribedTable& now) const override;
    void AddColumn(AlterSteps& steps, const DescribedTable& now, const Column& column) const override;
    /// Makes a column anew whose values do not convert; others go through Retype.
    void ChangeColumn(AlterSteps& steps, const DescribedTable& now, const ColumnPlan& column) const override;
    void CreateIndex(AlterSteps& steps, const DescribedTable& now, const TableIndex& index) const override;
    void AddForeignKey(AlterSteps& steps, const DescribedTable& now, const ForeignKey& key) const override;
    void CreateTriggers(AlterSteps& steps, const DescribedTable& now) const override;
    void DropColumn(AlterSteps& steps, const DescribedTable& now, const std::string& column) const override;
    void DropTable(AlterSteps& steps, const DescribedTable& before, const std::string& name) const override;

  protected:
    virtual void Retype(AlterSteps& steps, const DescribedTable& now, const ColumnPlan& column) const = 0;

    const EngineDialect& Dialect() const noexcept { return m_dialect; }
    ColumnType TypeOf(const Column& column) const {
        return ColumnTypeOf(column.TypeSize, m_dialect.FloatIsSingle());
    }
    static std::string Alter(const std::string& table, std::string_view change) {
        return "ALTER TABLE " + table + " " + std::string(change);
    }
    static std::string KeyName(const DescribedTable& table, const ForeignKey& key) {
        return key.Name.empty() ? ColumnThingName("FK_", table.Name, key.FieldName) : key.Name;
    }

  private:
    void AddThings(AlterSteps& steps, EngineThing thing, const std::string& table,
                   const std::string& name) const;

    const EngineDialect& m_dialect;
    std::vector<EngineStatement> m_statements;  ///< that make the new tables
    std::multimap<std::tuple<EngineThing, std::string, std::string>, std::size_t> m_positions;
};

/// The text of one engine's changes; the dialect must live as long.
std::unique_ptr<AlterText> MakeEngineAlter(const EngineDialect& dialect, std::span<const DescribedTable> now);
/// Engine by engine.
std::unique_ptr<AlterText> MakeSqliteAlter(const EngineDialect& dialect, std::span<const DescribedTable> now);
std::unique_ptr<AlterText> MakeMariaDbAlter(const EngineDialect& dialect,
                                            std::span<const DescribedTable> now);
std::unique_ptr<AlterText> MakePostgreSqlAlter(const EngineDialect& dialect,
                                               std::span<const DescribedTable> now);

}  // namespace korvex::scriptgen
