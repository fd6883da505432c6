#include "scriptgen/migration/alter_text.h"

#include "scriptgen/script_names.h"

namespace korvex::scriptgen {

void AlterText::RenameTable(const DescribedTable&, const NameChange& name) {
    Alter(name.from, "RENAME TO " + name.to);
}

void AlterText::RenameKey(const DescribedTable& before, const NameChange& name) {
    if (!before.PrimaryKey.empty())
        Alter(name.to, "RENAME CONSTRAINT " + PrimaryKeyName(name.from) + " TO " + PrimaryKeyName(name.to));
}

void AlterText::RenameColumn(const std::string& table, const NameChange& name) {
    Alter(table, "RENAME COLUMN " + name.from + " TO " + name.to);
}

void AlterText::ChangeColumn(const DescribedTable& now, const ColumnPlan& column) {
    if (column.conversion.cls == ChangeClass::Blocked) return Add("");
    if (column.conversion.isPossible) return Retype(now, column);
    DropColumn(now, column.now->FieldName);
    AddColumn(now, *column.now);
}

void AlterText::ClearNoParent(const DescribedTable& now, const ForeignKey& key) {
    Add("UPDATE " + now.Name + " SET " + key.FieldName + " = NULL WHERE " + key.FieldName + " = 0");
}

void AlterText::DropColumn(const DescribedTable& now, const std::string& column) {
    Alter(now.Name, "DROP COLUMN " + column);
}

void AlterText::DropTable(const DescribedTable&, const std::string& name) { Add("DROP TABLE " + name); }

}  // namespace korvex::scriptgen
