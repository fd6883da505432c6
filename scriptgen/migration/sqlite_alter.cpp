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
                 const std::function<std::string(const ColumnPlan&)>& nameOf, bool allowsLoss) override {
        if (plan.now == nullptr) return Release(*plan.before, name);
        DescribedTable table = *plan.now;
        JoinedText columns(", ");
        JoinedText values(", ");
        JoinedText reasons("; ");
        ChangeClass cls = ChangeClass::Safe;
        for (const ColumnPlan& column : plan.columns) {
            if (column.conversion.cls != ChangeClass::Safe)
                for (const std::string& loss : comparison.Losses(plan, column))
                    reasons.Add(loss);
            cls = std::max(cls, column.conversion.cls);
            const bool isDone = IsDone(column, allowsLoss);
            if (column.before == nullptr || (isDone && !column.conversion.isPossible)) continue;
            Column& kept =
                column.now == nullptr
                    ? table.Columns.emplace_back(*column.before)
                    : table.Columns[static_cast<std::size_t>(column.now - plan.now->Columns.data())];
            if (column.now == nullptr) {
                kept.FieldName = nameOf(column);
                kept.IsAutoNumber = false;
            } else if (!isDone) {
                kept.TypeSize = column.before->TypeSize;
                kept.DefaultText = column.before->DefaultText;
            }
            columns.Add(kept.FieldName);
            values.Add(isDone ? Converted(comparison, plan, column) : kept.FieldName);
        }
        if (allowsLoss) Begin(cls, reasons.Text());
        AddRebuild(table, columns.Text(), values.Text());
        if (!allowsLoss && cls != ChangeClass::Safe) {
            Begin(cls, reasons.Text());
            Add("");
        }
    }

  protected:
    /// Never reached: what changes a column makes the table anew, or is left out.
    void Retype(const DescribedTable&, const ColumnPlan&) override { Add(""); }

  private:
    /// A table that stays although it goes from the definition refers to none.
    void Release(DescribedTable table, const std::string& name) {
        table.Name = name;
        for (ForeignKey& key : table.ForeignKeys)
            key.IsInRun = false;
        JoinedText columns(", ");
        for (const Column& column : table.Columns)
            columns.Add(column.FieldName);
        AddRebuild(table, columns.Text(), columns.Text());
    }
    void AddRebuild(const DescribedTable& table, const std::string& columns, const std::string& values) {
        for (std::string& text : RebuildStatements(table, columns, values))
            Add(std::move(text));
    }

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
