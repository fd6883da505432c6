#include "scriptgen/constraint_scripts.h"

#include "scriptgen/column_lists.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

void AddForeignKeyScripts(RunState& run, std::string_view table, std::string_view terminator,
                          ReferencedNames& names) {
    const std::string constraint = ForeignKeyName(table);

    // Never emptied: each constraint is written with all those before it.
    std::string constraints;
    for (const repository::ObjectId target : GetForeignKeyTargets(run.m_colFields)) {
        const std::string referencedTable = names.GetObjectTableName(target);
        JoinedText foreignKey(", ");
        JoinedText referenced(", ");
        for (const Column& column : run.m_colFields) {
            if (column.FKObjectID != target) continue;
            foreignKey.Add(column.FieldName);
            referenced.Add(names.GetFieldName(column.FKValueID));
        }

        Append(constraints, "ALTER TABLE ", table, "\r\n");
        Append(constraints, "ADD CONSTRAINT ", constraint, " FOREIGN KEY (", foreignKey.Text(), ")\r\n");
        Append(constraints, " REFERENCES ", referencedTable, "(", referenced.Text(), ")", terminator, "\r\n");
        Append(run.Text(ScriptKind::CreateForeignKeys), constraints, "\r\n");

        Append(run.Text(ScriptKind::DropForeignKeys), "ALTER TABLE ", table, "\r\n");
        Append(run.Text(ScriptKind::DropForeignKeys), "DROP CONSTRAINT ", constraint, terminator, "\r\n\r\n");
    }
}

}  // namespace korvex::scriptgen
