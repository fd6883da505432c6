#include "scriptgen/migration/published_alter.h"

#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

RunState PublishedAlter::ProceduresOf(const DescribedTable& table) const {
    RunState run;
    m_dialect.AddStoredProcedures(run, table);
    return run;
}

bool PublishedAlter::HaveSameProcedures(const DescribedTable& before, const DescribedTable& now) const {
    return ProceduresOf(before).Text(ScriptKind::Procedures) ==
           ProceduresOf(now).Text(ScriptKind::Procedures);
}

void PublishedAlter::CreateTable(const DescribedTable& now) {
    RunState run;
    m_dialect.AddTable(run, now);
    Add(std::move(run.Text(ScriptKind::Create)), true);
}

void PublishedAlter::CreateIndex(const DescribedTable& now, const TableIndex& index) {
    Add("CREATE INDEX " + index.Name + " ON " + now.Name + "(" + Joined(index.Columns) + ")");
}

void PublishedAlter::AddForeignKey(const DescribedTable& now, const ForeignKey& key) {
    Add("ALTER TABLE " + now.Name + "\r\nADD CONSTRAINT " + ForeignKeyName(now.Name) + " FOREIGN KEY (" +
        key.FieldName + ")\r\n REFERENCES " + key.Table + "(" + key.KeyField + ")");
}

void PublishedAlter::DropTable(const DescribedTable& before, const std::string& name) {
    if (name == before.Name) DropProcedures(before, nullptr);
    AlterText::DropTable(before, name);
}

void PublishedAlter::CreateProcedures(const DescribedTable* before, const DescribedTable& now) {
    if (before == nullptr || !HaveSameProcedures(*before, now))
        Add(ProceduresOf(now).Text(ScriptKind::Procedures), true);
}

std::string PublishedAlter::ColumnText(const Column& column) {
    return column.TypeSize +
           (column.DefaultText.empty() ? " NULL" : std::string(DefaultWord) + column.DefaultText);
}

void PublishedAlter::CarryOver(const DescribedTable& now, const ColumnPlan& column) {
    Column beside = *column.now;
    beside.FieldName = "korvex_value";
    AddColumn(now, beside);
    Add("UPDATE " + now.Name + " SET " + beside.FieldName + " = " + Converted(column));
    DropColumn(now, column.now->FieldName);
    RenameColumn(now.Name, {beside.FieldName, column.now->FieldName});
}

}  // namespace korvex::scriptgen
