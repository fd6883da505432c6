#include "scriptgen/migration/engine_alter.h"

#include "automation/error.h"
#include "automation/text.h"

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

void EngineAlter::AddThings(AlterSteps& steps, EngineThing thing, const std::string& table,
                            const std::string& name) const {
    const auto [begin, end] = m_positions.equal_range({thing, table, name});
    for (auto at = begin; at != end; ++at)
        steps.Add(m_statements[at->second].text);
}

bool EngineAlter::IsTriggerOf(const DescribedTable& before, std::string_view trigger) const {
    return automation::EqualsIgnoreCase(trigger, before.Name + "_I") ||
           automation::EqualsIgnoreCase(trigger, before.Name + "_U");
}

void EngineAlter::DropForeignKey(AlterSteps& steps, const DescribedTable& before,
                                 const ForeignKey& key) const {
    steps.Add(Alter(before.Name, "DROP CONSTRAINT IF EXISTS " + KeyName(before, key)));
}

void EngineAlter::DropIndex(AlterSteps& steps, const DescribedTable&, const std::string& index) const {
    steps.Add("DROP INDEX IF EXISTS " + index);
}

void EngineAlter::DropTrigger(AlterSteps& steps, const DescribedTable&, const std::string& trigger) const {
    steps.Add("DROP TRIGGER IF EXISTS " + trigger);
}

void EngineAlter::RenameTable(AlterSteps& steps, const DescribedTable&, const NameChange& name) const {
    steps.Add(Alter(name.from, "RENAME TO " + name.to));
}

void EngineAlter::RenameColumn(AlterSteps& steps, const std::string& table, const NameChange& name) const {
    steps.Add(Alter(table, "RENAME COLUMN " + name.from + " TO " + name.to));
}

void EngineAlter::CreateTable(AlterSteps& steps, const DescribedTable& now) const {
    AddThings(steps, EngineThing::Table, now.Name, "");
}

void EngineAlter::AddColumn(AlterSteps& steps, const DescribedTable& now, const Column& column) const {
    steps.Add(Alter(now.Name, "ADD COLUMN " + m_dialect.ColumnText(now, column)));
}

void EngineAlter::ChangeColumn(AlterSteps& steps, const DescribedTable& now, const ColumnPlan& column) const {
    if (column.conversion.isPossible) return Retype(steps, now, column);
    DropColumn(steps, now, column.now->FieldName);
    AddColumn(steps, now, *column.now);
}

void EngineAlter::CreateIndex(AlterSteps& steps, const DescribedTable& now, const TableIndex& index) const {
    AddThings(steps, EngineThing::Index, now.Name, index.Name);
}

void EngineAlter::AddForeignKey(AlterSteps& steps, const DescribedTable& now, const ForeignKey& key) const {
    AddThings(steps, EngineThing::ForeignKey, now.Name, key.FieldName);
}

void EngineAlter::CreateTriggers(AlterSteps& steps, const DescribedTable& now) const {
    AddThings(steps, EngineThing::Trigger, now.Name, "");
}

void EngineAlter::DropColumn(AlterSteps& steps, const DescribedTable& now, const std::string& column) const {
    steps.Add(Alter(now.Name, "DROP COLUMN " + column));
}

void EngineAlter::DropTable(AlterSteps& steps, const DescribedTable&, const std::string& name) const {
    steps.Add("DROP TABLE " + name);
}

std::unique_ptr<AlterText> MakeEngineAlter(const EngineDialect& dialect,
                                           std::span<const DescribedTable> now) {
    if (dialect.Name() == "sqlite") return MakeSqliteAlter(dialect, now);
    if (dialect.Name() == "mariadb") return MakeMariaDbAlter(dialect, now);
    if (dialect.Name() == "postgresql") return MakePostgreSqlAlter(dialect, now);
    throw automation::Error(automation::InvalidProcedureCall,
                            "Tables cannot be changed on " + std::string(dialect.Name()) + ".");
}

}  // namespace korvex::scriptgen
