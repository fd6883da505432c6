#include "scriptgen/migration/published_alter.h"

#include "scriptgen/column_lists.h"
#include "scriptgen/column_text.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

constexpr std::string_view Default = " default ";

void Publish(const Dialect& dialect, DescribedTable& table) {
    dialect.SetTypes(table);
    for (Column& column : table.Columns) {
        std::string text;
        AppendNullOrDefault(text, column);
        if (text.starts_with(Default)) column.DefaultText = text.substr(Default.size());
    }
    if (&dialect == &OracleDialect() && CounterOf(table) != nullptr)
        table.Triggers.push_back(TriggerName(table.Name));
    const std::vector<repository::ObjectId> targets = GetForeignKeyTargets(table.Columns);
    for (std::size_t i = 0; i < targets.size(); ++i) {
        TableIndex& index = table.Indexes.emplace_back();
        index.Name = IndexName(table.Name, static_cast<int>(i) + 1);
        for (const Column& column : table.Columns)
            if (column.FKObjectID == targets[i]) index.Columns.push_back(column.FieldName);
    }
    for (ForeignKey& key : table.ForeignKeys)
        key.IsInRun =
            key.IsInRun && !key.KeyField.empty() && !targets.empty() && key.FKObjectID == targets.front();
}

}  // namespace

std::vector<DescribedTable> PublishedTables(const Dialect& dialect, std::span<const DescribedTable> tables) {
    std::vector<DescribedTable> published(tables.begin(), tables.end());
    for (DescribedTable& table : published)
        Publish(dialect, table);
    return published;
}

RunState PublishedAlter::ProceduresOf(const DescribedTable& table) const {
    RunState run;
    m_dialect.AddStoredProcedures(run, table);
    return run;
}

bool PublishedAlter::HaveSameProcedures(const DescribedTable& before, const DescribedTable& now) const {
    return ProceduresOf(before).Text(ScriptKind::Procedures) ==
           ProceduresOf(now).Text(ScriptKind::Procedures);
}

void PublishedAlter::CreateTable(AlterSteps& steps, const DescribedTable& now) const {
    RunState run;
    m_dialect.AddTable(run, now);
    steps.Add(std::move(run.Text(ScriptKind::Create)), true);
}

void PublishedAlter::CreateIndex(AlterSteps& steps, const DescribedTable& now,
                                 const TableIndex& index) const {
    steps.Add("CREATE INDEX " + index.Name + " ON " + now.Name + "(" + Joined(index.Columns) + ")");
}

void PublishedAlter::AddForeignKey(AlterSteps& steps, const DescribedTable& now,
                                   const ForeignKey& key) const {
    steps.Add("ALTER TABLE " + now.Name + "\r\nADD CONSTRAINT " + ForeignKeyName(now.Name) +
              " FOREIGN KEY (" + key.FieldName + ")\r\n REFERENCES " + key.Table + "(" + key.KeyField + ")");
}

void PublishedAlter::DropColumn(AlterSteps& steps, const DescribedTable& now,
                                const std::string& column) const {
    steps.Add("ALTER TABLE " + now.Name + " DROP COLUMN " + column);
}

void PublishedAlter::ChangeColumn(AlterSteps& steps, const DescribedTable& now,
                                  const ColumnPlan& column) const {
    if (column.conversion.cls == ChangeClass::Blocked) return steps.Add("");
    if (column.conversion.isPossible) return Retype(steps, now, column);
    DropColumn(steps, now, column.now->FieldName);
    AddColumn(steps, now, *column.now);
}

void PublishedAlter::CreateProcedures(AlterSteps& steps, const DescribedTable* before,
                                      const DescribedTable& now) const {
    if (before == nullptr || !HaveSameProcedures(*before, now))
        steps.Add(ProceduresOf(now).Text(ScriptKind::Procedures), true);
}

std::string PublishedAlter::ColumnText(const Column& column) {
    return column.TypeSize +
           (column.DefaultText.empty() ? " NULL" : std::string(Default) + column.DefaultText);
}

void PublishedAlter::CarryOver(AlterSteps& steps, const DescribedTable& now, const ColumnPlan& column) const {
    Column beside = *column.now;
    beside.FieldName = "korvex_value";
    AddColumn(steps, now, beside);
    steps.Add("UPDATE " + now.Name + " SET " + beside.FieldName + " = " + Converted(column));
    DropColumn(steps, now, column.now->FieldName);
    RenameColumn(steps, now.Name, {beside.FieldName, column.now->FieldName});
}

}  // namespace korvex::scriptgen
