#include "scriptgen/migration/engine_alter.h"

#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>

namespace korvex::scriptgen {

EngineAlter::EngineAlter(const EngineDialect& dialect, std::span<const DescribedTable> now)
    : m_dialect(dialect) {
    EngineScripts scripts = dialect.Write(now);
    for (std::vector<EngineStatement>* statements : {&scripts.create, &scripts.addKeys}) {
        for (EngineStatement& statement : *statements) {
            // All triggers of a table go together.
            const std::string name = statement.thing == EngineThing::Trigger ? "" : statement.name;
            m_positions.emplace(std::tuple(statement.thing, statement.table, name), m_statements.size());
            m_statements.push_back(std::move(statement));
        }
    }
}

void EngineAlter::AddThings(EngineThing thing, const std::string& table, const std::string& name) {
    const auto [begin, end] = m_positions.equal_range({thing, table, name});
    for (auto at = begin; at != end; ++at)
        Add(m_statements[at->second].text);
}

bool EngineAlter::IsTriggerOf(const DescribedTable& before, std::string_view trigger) const {
    const std::vector<std::string> names = m_dialect.TriggerNames(before);
    return std::ranges::any_of(
        names, [&](const std::string& name) { return automation::EqualsIgnoreCase(trigger, name); });
}

void EngineAlter::DropForeignKey(const DescribedTable& before, const ForeignKey& key) {
    Alter(before.Name,
          "DROP " + std::string(m_dialect.Facts().droppedKey) + " IF EXISTS " + KeyName(before, key));
}

void EngineAlter::DropIndex(const DescribedTable&, const std::string& index) {
    Add("DROP INDEX IF EXISTS " + index);
}

void EngineAlter::DropTrigger(const DescribedTable&, const std::string& trigger) {
    Add("DROP TRIGGER IF EXISTS " + trigger);
}

void EngineAlter::CreateTable(const DescribedTable& now) { AddThings(EngineThing::Table, now.Name, ""); }

void EngineAlter::AddColumn(const DescribedTable& now, const Column& column) {
    Alter(now.Name, "ADD COLUMN " + m_dialect.ColumnText(now, column));
}

void EngineAlter::CreateIndex(const DescribedTable& now, const TableIndex& index) {
    AddThings(EngineThing::Index, now.Name, index.Name);
}

void EngineAlter::AddForeignKey(const DescribedTable& now, const ForeignKey& key) {
    AddThings(EngineThing::ForeignKey, now.Name, key.FieldName);
}

void EngineAlter::CreateTriggers(const DescribedTable& now) { AddThings(EngineThing::Trigger, now.Name, ""); }

std::unique_ptr<AlterText> MakeEngineAlter(const EngineDialect& dialect,
                                           std::span<const DescribedTable> now) {
    if (dialect.Name() == "sqlite") return MakeSqliteAlter(dialect, now);
    if (dialect.Name() == "mariadb") return MakeMariaDbAlter(dialect, now);
    if (dialect.Name() == "postgresql") return MakePostgreSqlAlter(dialect, now);
    throw automation::Error(automation::InvalidProcedureCall,
                            "Tables cannot be changed on " + std::string(dialect.Name()) + ".");
}

}  // namespace korvex::scriptgen
