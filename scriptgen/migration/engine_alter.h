#pragma once

#include "automation/text.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/alter_text.h"

#include <algorithm>
#include <map>
#include <tuple>

/// Changes of tables on the engines that have dialects of their own.
namespace korvex::scriptgen {

/// What most engines agree on.
class EngineAlter : public AlterText {
  public:
    /// `now`: the new tables, as their definition describes them. The dialect must live as long.
    EngineAlter(const EngineDialect& dialect, std::span<const DescribedTable> now) : m_dialect(dialect) {
        const EngineScripts scripts = dialect.Write(now);
        for (const auto* statements : {&scripts.create, &scripts.addKeys})
            for (const EngineStatement& statement : *statements) {
                // All triggers of a table go together.
                const std::string name = statement.thing == EngineThing::Trigger ? "" : statement.name;
                m_texts[{statement.thing, statement.table, name}].push_back(statement.text);
            }
    }

    bool IsTriggerOf(const DescribedTable& before, std::string_view trigger) const override {
        return std::ranges::any_of(m_dialect.TriggerNames(before), [&](const std::string& name) {
            return automation::EqualsIgnoreCase(trigger, name);
        });
    }
    void DropForeignKey(const DescribedTable& before, const ForeignKey& key) override {
        Alter(before.Name,
              "DROP " + std::string(m_dialect.Facts().droppedKey) + " IF EXISTS " + KeyName(before, key));
    }
    void DropIndex(const DescribedTable&, const std::string& index) override {
        Add("DROP INDEX IF EXISTS " + index);
    }
    void DropTrigger(const DescribedTable&, const std::string& trigger) override {
        Add("DROP TRIGGER IF EXISTS " + trigger);
    }
    void CreateTable(const DescribedTable& now) override { AddThings(EngineThing::Table, now.Name, ""); }
    void AddColumn(const DescribedTable& now, const Column& column) override {
        Alter(now.Name, "ADD COLUMN " + m_dialect.ColumnText(now, column));
    }
    void CreateIndex(const DescribedTable& now, const TableIndex& index) override {
        AddThings(EngineThing::Index, now.Name, index.Name);
    }
    void AddForeignKey(const DescribedTable& now, const ForeignKey& key) override {
        AddThings(EngineThing::ForeignKey, now.Name, key.FieldName);
    }
    void CreateTriggers(const DescribedTable& now) override { AddThings(EngineThing::Trigger, now.Name, ""); }

  protected:
    const EngineDialect& Dialect() const noexcept { return m_dialect; }
    TypeKind KindOf(const Column& column) const {
        return ColumnTypeOf(column.TypeSize, m_dialect.FloatIsSingle()).kind;
    }
    static std::string KeyName(const DescribedTable& table, const ForeignKey& key) {
        return key.Name.empty() ? ColumnThingName("FK_", table.Name, key.FieldName) : key.Name;
    }

  private:
    void AddThings(EngineThing thing, const std::string& table, const std::string& name) {
        const auto found = m_texts.find({thing, table, name});
        if (found == m_texts.end()) return;
        for (const std::string& text : found->second)
            Add(text);
    }

    const EngineDialect& m_dialect;
    /// What makes the new tables, by thing, table and name.
    std::map<std::tuple<EngineThing, std::string, std::string>, std::vector<std::string>> m_texts;
};

/// Engine by engine.
std::unique_ptr<AlterText> MakeSqliteAlter(const EngineDialect& dialect, std::span<const DescribedTable> now);
std::unique_ptr<AlterText> MakeMariaDbAlter(const EngineDialect& dialect,
                                            std::span<const DescribedTable> now);
std::unique_ptr<AlterText> MakePostgreSqlAlter(const EngineDialect& dialect,
                                               std::span<const DescribedTable> now);

}  // namespace korvex::scriptgen
