#include "scriptgen/migration/published_alter.h"

#include "scriptgen/column_lists.h"
#include "scriptgen/column_text.h"
#include "scriptgen/dialect.h"
#include "scriptgen/oracle_tables.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"
#include "scriptgen/script_types.h"

#include <algorithm>

namespace korvex::scriptgen {

namespace {

constexpr std::string_view Default = " default ";

RunState NewRun(ScriptType type, const DescribedTable& table) {
    RunState run;
    run.m_nScriptType = type;
    run.m_nMaxCharLen = FindScriptType(type)->maxCharLen;
    run.m_sCurrentTable = table.Name;
    run.m_lCurrentObjectID = table.ObjectID;
    return run;
}

void Publish(ScriptType type, DescribedTable& table) {
    const RunState run = NewRun(type, table);
    for (Column& column : table.Columns) {
        column.TypeSize = type == ScriptType::Oracle ? OracleTypeText(run, column)
                                                     : FindDialect(type)->ColumnTypeText(run, column);
        std::string text;
        AppendNullOrDefault(text, column);
        if (text.starts_with(Default)) column.DefaultText = text.substr(Default.size());
        if (type == ScriptType::Oracle && column.IsAutoNumber && table.Triggers.empty())
            table.Triggers.push_back(TriggerName(table.Name));
    }
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

std::vector<DescribedTable> PublishedTables(ScriptType type, std::span<const DescribedTable> tables) {
    std::vector<DescribedTable> published(tables.begin(), tables.end());
    for (DescribedTable& table : published)
        Publish(type, table);
    return published;
}

RunState PublishedAlter::RunWith(const DescribedTable& table) const {
    RunState run = NewRun(m_type, table);
    run.m_colFields = table.Columns;
    return run;
}

RunState PublishedAlter::ProceduresOf(const DescribedTable& table) const {
    RunState run = RunWith(table);
    FindDialect(m_type)->AddStoredProcedures(run);
    return run;
}

bool PublishedAlter::HaveSameProcedures(const DescribedTable& before, const DescribedTable& now) const {
    return ProceduresOf(before).Text(ScriptKind::Procedures) ==
           ProceduresOf(now).Text(ScriptKind::Procedures);
}

void PublishedAlter::CreateTable(AlterSteps& steps, const DescribedTable& now) const {
    RunState run = RunWith(now);
    std::string text;
    FindDialect(m_type)->AddTable(run, text);
    steps.Add(text + "\r\n", true);
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
