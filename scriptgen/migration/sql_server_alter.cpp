#include "scriptgen/migration/published_alter.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

namespace korvex::scriptgen {

namespace {

class SqlServerAlter final : public PublishedAlter {
  public:
    SqlServerAlter() : PublishedAlter(SqlServerDialect()) {}

    std::string_view FileName() const noexcept override { return "MSAlter.sql"; }
    std::string Ended(const AlterStep& step) const override { return step.text + "\r\nGO\r\n\r\n"; }

    void DropForeignKey(const DescribedTable& before, const ForeignKey&) override {
        const std::string name = ForeignKeyName(before.Name);
        Add("if exists(select * from sysobjects where id = object_id('dbo." + name + "'))\r\n\tALTER TABLE " +
            before.Name + " DROP CONSTRAINT " + name);
    }
    void DropIndex(const DescribedTable& before, const std::string& index) override {
        Add("DROP INDEX " + before.Name + "." + index);
    }
    void DropTrigger(const DescribedTable&, const std::string&) override {}
    void CreateTriggers(const DescribedTable&) override {}

    void RenameTable(const DescribedTable& before, const NameChange& name) override {
        Rename(name.from, name.to, "OBJECT");
        if (!before.PrimaryKey.empty()) Rename(PrimaryKeyName(name.from), PrimaryKeyName(name.to), "OBJECT");
    }
    void RenameColumn(const std::string& table, const NameChange& name) override {
        Rename(table + "." + name.from, name.to, "COLUMN");
    }

    /// Records that are there get the default, as on every other engine.
    void AddColumn(const DescribedTable& now, const Column& column) override {
        std::string text =
            column.IsAutoNumber ? column.TypeSize + " IDENTITY (1, 1) Not NULL" : ColumnText(column);
        if (!column.IsAutoNumber && !column.DefaultText.empty()) text += " WITH VALUES";
        Alter(now.Name, "ADD " + column.FieldName + " " + text);
    }
    void DropColumn(const DescribedTable& now, const std::string& column) override {
        DropDefault(now.Name, column);
        PublishedAlter::DropColumn(now, column);
    }
    void DropProcedures(const DescribedTable& before, const DescribedTable* now) override {
        if (now == nullptr || !HaveSameProcedures(before, *now))
            Add(ProceduresOf(before).Text(ScriptKind::Drop), true);
    }

  protected:
    /// Long types take no part in a change of type, and numbers with fractions would lose most digits on
    /// their way to a text.
    void Retype(const DescribedTable& now, const ColumnPlan& column) override {
        const std::string& name = column.now->FieldName;
        const ColumnType before = ColumnTypeOf(column.before->TypeSize, false);
        const ColumnType type = ColumnTypeOf(column.now->TypeSize, false);
        const bool isLong = column.before->TypeSize == "text" || column.now->TypeSize == "text";
        const bool needsFormat = type.kind == TypeKind::Text &&
                                 (before.kind == TypeKind::Floating || before.kind == TypeKind::Date);
        if (column.isRetyped && (isLong || needsFormat)) return CarryOver(now, column);
        DropDefault(now.Name, name);
        if (column.isRetyped) Alter(now.Name, "ALTER COLUMN " + name + " " + column.now->TypeSize + " NULL");
        if (!column.now->DefaultText.empty())
            Alter(now.Name, "ADD DEFAULT " + column.now->DefaultText + " FOR " + name);
    }

    std::string Converted(const ColumnPlan& column) const override {
        const std::string& from = column.before->TypeSize;
        const std::string& name = column.now->FieldName;
        const TypeKind kind = ColumnTypeOf(from, false).kind;
        const std::string text = column.now->TypeSize == "text" ? "varchar(255)" : column.now->TypeSize;
        const auto convert = [](const std::string& type, const std::string& value, std::string_view style) {
            return "CONVERT(" + type + ", " + value + std::string(style) + ")";
        };
        if (kind == TypeKind::Floating) return convert(text, name, ", 2");
        if (kind == TypeKind::Date) return convert(text, name, ", 121");
        if (from != "text") return name;
        const bool isText = ColumnTypeOf(column.now->TypeSize, false).kind == TypeKind::Text;
        const std::string value = convert(isText ? column.now->TypeSize : "varchar(255)", name, "");
        return isText ? value : convert(column.now->TypeSize, value, "");
    }

  private:
    void Rename(const std::string& from, const std::string& to, std::string_view what) {
        std::string text;
        Append(text, "EXEC sp_rename '", from, "', '", to, "', '", what, "'");
        Add(std::move(text));
    }

    /// The server has named it.
    void DropDefault(const std::string& table, const std::string& column) {
        std::string text = "DECLARE @name varchar(255)\r\n";
        Append(text, "SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('", table,
               "') AND name = '", column, "'\r\n");
        Append(text, "IF @name IS NOT NULL EXEC('ALTER TABLE ", table, " DROP CONSTRAINT ' + @name)");
        Add(std::move(text));
    }
};

}  // namespace

std::unique_ptr<AlterText> MakeSqlServerAlter() { return std::make_unique<SqlServerAlter>(); }

}  // namespace korvex::scriptgen
