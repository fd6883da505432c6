#include "scriptgen/migration/engine_alter.h"

namespace korvex::scriptgen {

namespace {

class MariaDbAlter final : public EngineAlter {
  public:
    using EngineAlter::EngineAlter;

    std::string_view FileName() const noexcept override { return "MariaAlter.sql"; }

    void DropIndex(const DescribedTable& before, const std::string& index) override {
        Add("DROP INDEX IF EXISTS " + index + " ON " + before.Name);
    }

  protected:
    /// Bits are texts and texts bits of another kind here: both become numbers first.
    void Retype(const DescribedTable& now, const ColumnPlan& column) override {
        const TypeKind before = KindOf(*column.before);
        const TypeKind kind = KindOf(*column.now);
        const std::string& name = column.now->FieldName;
        const bool isTextAndBit = (before == TypeKind::Text && kind == TypeKind::Boolean) ||
                                  (before == TypeKind::Boolean && kind == TypeKind::Text);
        if (isTextAndBit) Alter(now.Name, "MODIFY COLUMN " + name + " int NULL");
        if (kind == TypeKind::Boolean && before != TypeKind::Boolean && before != TypeKind::Text)
            Add("UPDATE " + now.Name + " SET " + name + " = " + name + " <> 0");
        Alter(now.Name, "MODIFY COLUMN " + Dialect().ColumnText(now, *column.now));
    }
};

}  // namespace

std::unique_ptr<AlterText> MakeMariaDbAlter(const EngineDialect& dialect,
                                            std::span<const DescribedTable> now) {
    return std::make_unique<MariaDbAlter>(dialect, now);
}

}  // namespace korvex::scriptgen
