#include "scriptgen/dialect.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "scriptgen/column_lists.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <map>

namespace korvex::scriptgen {

const Dialect* FindDialect(ScriptType type) noexcept {
    switch (type) {
        case ScriptType::SqlServer:
            return &SqlServerDialect();
        case ScriptType::Oracle:
            return &OracleDialect();
        case ScriptType::Sybase:
            return &SybaseDialect();
        case ScriptType::None:
            break;
    }
    return nullptr;
}

const Column* CounterOf(const DescribedTable& table) {
    const auto counter = std::ranges::find_if(table.Columns, &Column::IsAutoNumber);
    return counter == table.Columns.end() ? nullptr : &*counter;
}

/// In the order in which the script files need them. A length that is no number ends the run before what
/// needs the type.
void Dialect::AddScripts(RunState& run, DescribedTable& table, const ReferencedNames& names) const {
    if (ProceduresNameTypes()) SetTypes(table);
    AddForeignKeys(run, table, names);
    AddStoredProcedures(run, table);
    AppendTableDrop(run.Text(ScriptKind::Drop), table);
    if (!ProceduresNameTypes()) SetTypes(table);
    AddTable(run, table);
}

void Dialect::AddTable(RunState& run, const DescribedTable& table) const {
    std::string text;
    AppendCreate(text, run, table);
    Append(run.Text(ScriptKind::Create), text, "\r\n");
}

void Dialect::SetTypes(DescribedTable& table) const {
    for (Column& column : table.Columns)
        column.TypeSize = TypeText(table.Name, column);
}

std::vector<DescribedTable> Dialect::Tables(std::span<const DescribedTable> tables) const {
    std::vector<DescribedTable> described(tables.begin(), tables.end());
    for (DescribedTable& table : described)
        Describe(table);
    return described;
}

void Dialect::Describe(DescribedTable& table) const {
    SetTypes(table);
    for (Column& column : table.Columns) {
        std::string text;
        AppendNullOrDefault(text, column);
        if (text.starts_with(DefaultWord)) column.DefaultText = text.substr(DefaultWord.size());
    }
    if (NumbersByTrigger() && CounterOf(table) != nullptr) table.Triggers.push_back(TriggerName(table.Name));
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

/// Bytes of a declared length become long ones as texts do, but only a text is marked.
std::string Dialect::TypeText(std::string_view table, Column& column) const {
    const std::string_view name = TypeName(m_types, column.DataType);
    const bool isText = name == m_types.text;
    const bool isSized = isText || (name == m_types.variant && name != m_types.object);
    if (!isSized) return std::string(name);
    const double length = DeclaredLength(table, column);
    if (length > m_nMaxCharLen) {
        column.IsLongFld = isText;
        return std::string(isText ? m_types.longText : m_types.object);
    }
    std::string text(name);
    Append(text, "(", length > 0 ? automation::Trim(column.MaxLength) : "50", ")");
    return text;
}

void Dialect::AppendTable(std::string& text, const DescribedTable& table) const {
    Append(text, "CREATE TABLE ", m_table.owner, table.Name, "\r\n");
    Append(text, "( \r\n");
    std::string_view before = "\t";
    for (const Column& column : table.Columns) {
        Append(text, before, column.FieldName, " ", ColumnType(table, column));
        AppendNullOrDefault(text, column);
        before = ",\r\n\t";
    }
    AppendPrimaryKey(text, table);
    Append(text, ")", m_table.end);
    AppendForeignKeyIndexes(text, table);
}

/// The key constraint behind the last column, or, for a table without a key, only the line end.
void Dialect::AppendPrimaryKey(std::string& text, const DescribedTable& table) const {
    if (HasPrimaryKey(table.Columns)) {
        Append(text, ",\r\n");
        Append(text, "\tCONSTRAINT ", PrimaryKeyName(table.Name), " ", m_table.keyKind, "\r\n");
        Append(text, "\t(\r\n");
        Append(text, "\t\t", Joined(PrimaryKeyColumns(table.Columns)), "\r\n");
        Append(text, "\t)\r\n");
    } else {
        Append(text, "\r\n");
    }
}

/// One per referenced object over the columns that reference it.
void Dialect::AppendForeignKeyIndexes(std::string& text, const DescribedTable& table) const {
    std::map<repository::ObjectId, JoinedText> names;
    for (const Column& column : table.Columns)
        names.try_emplace(column.FKObjectID, ", ").first->second.Add(column.FieldName);
    std::int16_t number = 0;
    for (const repository::ObjectId target : GetForeignKeyTargets(table.Columns)) {
        number = automation::ToInteger(number + 1);
        Append(text, "\r\n");
        Append(text, "CREATE INDEX ", IndexName(table.Name, number), " ON ", m_table.owner, table.Name, "(",
               names.at(target).Text(), ")", m_table.end);
    }
}

void Dialect::AddForeignKeys(RunState& run, const DescribedTable& table, const ReferencedNames& names) const {
    const std::string constraint = ForeignKeyName(table.Name);

    // Never emptied: each constraint is written with all those before it.
    std::string constraints;
    for (const repository::ObjectId target : GetForeignKeyTargets(table.Columns)) {
        const std::string referencedTable = names.GetObjectTableName(target);
        JoinedText foreignKey(", ");
        JoinedText referenced(", ");
        for (const Column& column : table.Columns) {
            if (column.FKObjectID != target) continue;
            foreignKey.Add(column.FieldName);
            referenced.Add(names.GetFieldName(column.FKValueID));
        }

        Append(constraints, "ALTER TABLE ", table.Name, "\r\n");
        Append(constraints, "ADD CONSTRAINT ", constraint, " FOREIGN KEY (", foreignKey.Text(), ")\r\n");
        Append(constraints, " REFERENCES ", referencedTable, "(", referenced.Text(), ")",
               m_table.constraintEnd, "\r\n");
        Append(run.Text(ScriptKind::CreateForeignKeys), constraints, "\r\n");

        std::string& drop = run.Text(ScriptKind::DropForeignKeys);
        Append(drop, "ALTER TABLE ", table.Name, "\r\n");
        Append(drop, "DROP CONSTRAINT ", constraint, m_table.constraintEnd, "\r\n\r\n");
    }
}

}  // namespace korvex::scriptgen
