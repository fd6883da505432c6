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
    void DropForeignKey(const DescribedTable& before, const ForeignKey& key) override;
    void DropIndex(const DescribedTable& before, const std::string& index) override;
    void DropTrigger(const DescribedTable& before, const std::string& trigger) override;
    void CreateTable(const DescribedTable& now) override;
    void AddColumn(const DescribedTable& now, const Column& column) override;
    void CreateIndex(const DescribedTable& now, const TableIndex& index) override;
    void AddForeignKey(const DescribedTable& now, const ForeignKey& key) override;
    void CreateTriggers(const DescribedTable& now) override;

  protected:
    const EngineDialect& Dialect() const noexcept { return m_dialect; }
    TypeKind KindOf(const Column& column) const {
        return ColumnTypeOf(column.TypeSize, m_dialect.FloatIsSingle()).kind;
    }
    static std::string KeyName(const DescribedTable& table, const ForeignKey& key) {
        return key.Name.empty() ? ColumnThingName("FK_", table.Name, key.FieldName) : key.Name;
    }

  private:
    void AddThings(EngineThing thing, const std::string& table, const std::string& name);

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
