#include "automation/text.h"
#include "scriptgen/column_lists.h"
#include "scriptgen/migration/published_alter.h"
#include "scriptgen/script_names.h"

#include <algorithm>
#include <set>

namespace korvex::scriptgen {

namespace {

/// The procedures that the published script makes for a table.
std::set<std::string> ProcedureNames(const DescribedTable& table) {
    std::set<std::string> names;
    const auto add = [&](std::string_view base, std::initializer_list<std::string_view> suffixes) {
        for (const std::string_view suffix : suffixes)
            names.insert(ProcedureName(base, suffix));
    };
    add(table.Name, {"AR", "AD", "C"});
    if (HasPrimaryKey(table.Columns)) {
        add(table.Name, {"R", "D"});
        if (!std::ranges::all_of(table.Columns, &Column::IsPrimaryKey)) add(table.Name, {"U"});
    }
    for (const repository::ObjectId target : GetForeignKeyTargets(table.Columns)) {
        const auto first = std::ranges::find(table.Columns, target, &Column::FKObjectID);
        add(GroupBase(table.Name, first->FieldName), {"R", "D"});
    }
    return names;
}

class OracleAlter final : public PublishedAlter {
  public:
    OracleAlter() : PublishedAlter(OracleDialect()) {}

    std::string_view FileName() const noexcept override { return "OraAlter.sql"; }
    std::string_view CommentMark() const noexcept override { return "rem  "; }
    std::pair<std::string_view, std::string_view> Frame() const noexcept override {
        return {"rem  ***** Altering tables\r\n\r\n", ""};
    }

    void DropForeignKey(const DescribedTable& before, const ForeignKey&) override {
        Alter(before.Name, "DROP CONSTRAINT " + ForeignKeyName(before.Name));
    }
    void DropIndex(const DescribedTable&, const std::string& index) override { Add("DROP INDEX " + index); }
    void DropTrigger(const DescribedTable&, const std::string& trigger) override {
        Add("DROP TRIGGER " + trigger);
    }
    void CreateTriggers(const DescribedTable& now) override {
        if (const Column* counter = CounterOf(now))
            Add("/\r\n" + OracleTriggerText(now.Name, counter->FieldName) + "; \r\n/\r\n", true);
    }

    /// Key and sequence are found by the table's name.
    void RenameTable(const DescribedTable& before, const NameChange& name) override {
        PublishedAlter::RenameTable(before, name);
        RenameKey(before, name);
        if (CounterOf(before) != nullptr)
            Add("RENAME " + SequenceName(name.from) + " TO " + SequenceName(name.to));
    }
    void AddColumn(const DescribedTable& now, const Column& column) override {
        const ForeignKey* key = FindForeignKey(now, column.FieldName);
        Column added = column;
        if (key != nullptr && key->IsInRun) added.DefaultText.clear();
        Alter(now.Name, "ADD " + column.FieldName + " " + ColumnText(added));
        // The records that are there would refer to the default.
        if (added.DefaultText != column.DefaultText)
            Alter(now.Name, "MODIFY " + column.FieldName + " " + ColumnText(column));
    }
    void DropTable(const DescribedTable& before, const std::string& name) override {
        PublishedAlter::DropTable(before, name);
        if (CounterOf(before) != nullptr) Add("DROP SEQUENCE " + SequenceName(name));
    }

    /// Those that stay are replaced.
    void DropProcedures(const DescribedTable& before, const DescribedTable* now) override {
        const std::set<std::string> kept = now != nullptr ? ProcedureNames(*now) : std::set<std::string>();
        for (const std::string& procedure : ProcedureNames(before))
            if (!kept.contains(procedure)) Add("DROP PROCEDURE " + procedure);
    }

  protected:
    /// A column with values keeps its kind and takes no narrower number.
    void Retype(const DescribedTable& now, const ColumnPlan& column) override {
        const std::string& from = column.before->TypeSize;
        const std::string& to = column.now->TypeSize;
        const std::string_view kind = std::string_view(to).substr(0, to.find('('));
        const bool modifies =
            from.starts_with(kind) && (kind == "VARCHAR2" || column.conversion.cls == ChangeClass::Safe);
        if (column.isRetyped && !modifies) return CarryOver(now, column);
        const std::string& literal = column.now->DefaultText;
        const bool loses = literal.empty() && !column.before->DefaultText.empty();
        Alter(now.Name, "MODIFY " + column.now->FieldName + " " + to +
                            (loses             ? " default Null"
                             : literal.empty() ? ""
                                               : " default " + literal));
    }

    std::string Converted(const ColumnPlan& column) const override {
        constexpr std::string_view Format = ", 'YYYY-MM-DD HH24:MI:SS')";
        const std::string& name = column.now->FieldName;
        const TypeKind before = ColumnTypeOf(column.before->TypeSize, false).kind;
        const TypeKind now = ColumnTypeOf(column.now->TypeSize, false).kind;
        if (before == now) return name;
        if (before == TypeKind::Date) return "TO_CHAR(" + name + std::string(Format);
        if (now == TypeKind::Date) return "TO_DATE(" + name + std::string(Format);
        if (now == TypeKind::Text) return "TO_CHAR(" + name + ")";
        const std::string number = before == TypeKind::Text ? "TO_NUMBER(" + name + ")" : name;
        return now == TypeKind::Boolean ? "SIGN(ABS(" + number + "))" : number;
    }
};

}  // namespace

std::unique_ptr<AlterText> MakeOracleAlter() { return std::make_unique<OracleAlter>(); }

}  // namespace korvex::scriptgen
