#include "scriptgen/migration/engine_alter.h"
#include "scriptgen/migration/table_rebuild.h"
#include "scriptgen/script_text.h"

#include <algorithm>

namespace korvex::scriptgen {

namespace {

/// Names and what comes new change in place; the rest of a table is made anew.
class SqliteAlter final : public EngineAlter {
  public:
    using EngineAlter::EngineAlter;

    std::string_view FileName() const noexcept override { return "LiteAlter.sql"; }
    /// References cannot be switched off inside a transaction.
    std::pair<std::string_view, std::string_view> Frame() const noexcept override {
        return {"PRAGMA foreign_keys=OFF;\r\nBEGIN;\r\n",
                "PRAGMA foreign_key_check;\r\nCOMMIT;\r\nPRAGMA foreign_keys=ON;\r\n"};
    }
    bool NamesForeignKeys() const noexcept override { return false; }

    void DropForeignKey(const DescribedTable&, const ForeignKey&) override {}
    /// It comes with its table, or its column.
    void ClearNoParent(const DescribedTable&, const ForeignKey&) override {}
    void AddForeignKey(const DescribedTable&, const ForeignKey&) override {}

    void AddColumn(const DescribedTable& now, const Column& column) override {
        std::string text = "ADD COLUMN " + Dialect().ColumnText(now, column);
        const ForeignKey* key = FindForeignKey(now, column.FieldName);
        if (key != nullptr && key->IsInRun)
            Append(text, " CONSTRAINT ", KeyName(now, *key), " REFERENCES ", key->Table, " (", key->KeyField,
                   ")");
        Alter(now.Name, text);
    }

    bool Rebuilds(const Comparison& comparison, const TablePlan& plan, bool allowsLoss) const override {
        const auto isKept = [](const ForeignKey& key) { return key.IsInRun; };
        if (plan.now == nullptr) return !allowsLoss && std::ranges::any_of(plan.before->ForeignKeys, isKept);
        for (const ForeignKey& key : plan.before->ForeignKeys)
            if (key.IsInRun && comparison.SameKeyNow(plan, key) == nullptr) return true;
        for (const ForeignKey& key : plan.now->ForeignKeys)
            if (key.IsInRun && ColumnNow(plan, key.FieldName)->before != nullptr &&
                comparison.SameKeyBefore(plan, key) == nullptr)
                return true;
        return plan.before->PrimaryKey.size() != plan.now->PrimaryKey.size() ||
               std::ranges::any_of(plan.columns, [&](const ColumnPlan& column) {
                   return column.now != nullptr && column.before != nullptr && IsDone(column, allowsLoss) &&
                          column.IsChanged();
               });
    }

    void Rebuild(const Comparison& comparison, const TablePlan& plan, const std::string& name,
                 std::span<const ColumnPlan* const> gone, std::span<const std::string> names,
                 bool allowsLoss) override {
        DescribedTable table = plan.now != nullptr ? *plan.now : *plan.before;
        table.Name = name;
        if (plan.now == nullptr)
            for (ForeignKey& key : table.ForeignKeys)
                key.IsInRun = false;
        JoinedText columns(", ");
        JoinedText values(", ");
        ChangeClass cls = ChangeClass::Safe;
        std::string reason;
        const auto note = [&](const ColumnPlan& column, const Column& named) {
            if (column.conversion.cls == ChangeClass::Safe) return;
            for (const TableChange& change : comparison.Changes()) {
                if (change.table != name || change.column != named.FieldName ||
                    change.cls == ChangeClass::Safe)
                    continue;
                cls = std::max(cls, change.cls);
                reason += (reason.empty() ? "" : "; ") + ChangeText(change);
            }
        };
        for (const ColumnPlan& column : plan.columns) {
            if (column.now == nullptr) continue;
            note(column, *column.now);
            if (column.before == nullptr) continue;
            Column& now = table.Columns[static_cast<std::size_t>(column.now - plan.now->Columns.data())];
            if (!IsDone(column, allowsLoss)) {
                now.TypeSize = column.before->TypeSize;
                now.DefaultText = column.before->DefaultText;
            } else if (!column.conversion.isPossible) {
                continue;
            }
            columns.Add(now.FieldName);
            values.Add(IsDone(column, allowsLoss) ? Converted(comparison, plan, column) : now.FieldName);
        }
        for (std::size_t i = 0; i < gone.size(); ++i) {
            note(*gone[i], *gone[i]->before);
            if (allowsLoss) continue;
            Column& column = table.Columns.emplace_back(*gone[i]->before);
            column.FieldName = names[i];
            column.IsAutoNumber = false;
            columns.Add(names[i]);
            values.Add(names[i]);
        }
        if (plan.now == nullptr) {
            for (const Column& column : table.Columns) {
                columns.Add(column.FieldName);
                values.Add(column.FieldName);
            }
        }
        Begin(allowsLoss ? cls : ChangeClass::Safe, allowsLoss ? reason : "");
        for (std::string& text : RebuildStatements(table, columns.Text(), values.Text()))
            Add(std::move(text));
        if (!allowsLoss && cls != ChangeClass::Safe) {
            Begin(cls, reason);
            Add("");
        }
    }

  protected:
    /// Never reached: what changes a column makes the table anew, or is left out.
    void Retype(const DescribedTable&, const ColumnPlan&) override { Add(""); }

  private:
    static bool IsDone(const ColumnPlan& column, bool allowsLoss) {
        return allowsLoss || column.conversion.cls == ChangeClass::Safe;
    }

    /// Columns take what is put into them as it is, save for what their affinity turns.
    std::string Converted(const Comparison& comparison, const TablePlan& plan,
                          const ColumnPlan& column) const {
        const std::string& name = column.now->FieldName;
        const ForeignKey* key = FindForeignKey(*plan.now, name);
        if (key != nullptr && key->IsInRun && comparison.SameKeyBefore(plan, *key) == nullptr)
            return "NULLIF(" + name + ", 0)";
        const TypeKind before = KindOf(*column.before);
        const TypeKind now = KindOf(*column.now);
        if (before == now || !column.isRetyped) return name;
        if (now == TypeKind::Boolean) return "CAST(" + name + " AS REAL) <> 0";
        if (before == TypeKind::Boolean) return "ABS(" + name + ")";
        if (now == TypeKind::Whole) return "CAST(ROUND(" + name + ") AS INTEGER)";
        return name;
    }
};

}  // namespace

std::unique_ptr<AlterText> MakeSqliteAlter(const EngineDialect& dialect,
                                           std::span<const DescribedTable> now) {
    return std::make_unique<SqliteAlter>(dialect, now);
}

}  // namespace korvex::scriptgen
