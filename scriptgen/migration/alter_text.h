#pragma once

#include "scriptgen/migration/changes.h"
#include "scriptgen/migration/rename_order.h"
#include "scriptgen/script_names.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// How tables are changed on one engine.
namespace korvex::scriptgen {

/// One statement, without what ends it, or, where `isScript`, a piece of a script as it stands.
struct AlterStep {
    std::string text;  ///< "" where there is no statement for what `reason` says
    ChangeClass cls = ChangeClass::Safe;
    std::string reason;
    bool isScript = false;

    bool IsRun(bool allowsLoss) const noexcept {
        return !text.empty() && (cls == ChangeClass::Safe || allowsLoss);
    }
};

/// Writes the statements of one engine, in the order in which they run. Names are those that hold when the
/// statement runs: references, indexes and triggers go under their old names before anything is renamed, all
/// others run with the new ones. What most engines agree on stands here.
class AlterText {
  public:
    virtual ~AlterText() = default;

    /// What the statements from here on do to the values.
    void Begin(ChangeClass cls = ChangeClass::Safe, std::string reason = {}) {
        m_class = cls;
        m_reason = std::move(reason);
    }
    void Add(std::string text, bool isScript = false) {
        m_steps.push_back({std::move(text), m_class, m_reason, isScript});
    }
    /// What was written since the last call.
    std::vector<AlterStep> TakeSteps() { return std::exchange(m_steps, {}); }

    virtual std::string_view FileName() const noexcept = 0;
    /// A comment, and what is put behind a statement.
    virtual std::string_view CommentMark() const noexcept { return "-- "; }
    virtual std::string Ended(const AlterStep& step) const { return step.text + ";\r\n"; }
    /// What stands around a script that is not empty.
    virtual std::pair<std::string_view, std::string_view> Frame() const noexcept { return {}; }

    /// Whether a constraint is told by its name, which holds those of table and column.
    virtual bool NamesForeignKeys() const noexcept { return true; }
    /// Whether a trigger of a table that stands is one that the dialect makes, told by its name.
    virtual bool IsTriggerOf(const DescribedTable& /*before*/, std::string_view /*trigger*/) const {
        return true;
    }
    /// Whether CreateTable makes indexes and triggers, too.
    virtual bool CreatesWholeTables() const noexcept { return false; }

    virtual void DropForeignKey(const DescribedTable& before, const ForeignKey& key) = 0;
    virtual void DropIndex(const DescribedTable& before, const std::string& index) = 0;
    virtual void DropTrigger(const DescribedTable& before, const std::string& trigger) = 0;
    /// `before`: the table as it was described, whatever it is called meanwhile.
    virtual void RenameTable(const DescribedTable& /*before*/, const NameChange& name) {
        Alter(name.from, "RENAME TO " + name.to);
    }
    virtual void RenameColumn(const std::string& table, const NameChange& name) {
        Alter(table, "RENAME COLUMN " + name.from + " TO " + name.to);
    }
    virtual void CreateTable(const DescribedTable& now) = 0;
    virtual void AddColumn(const DescribedTable& now, const Column& column) = 0;
    /// Type, default and numbering; its class is begun. Makes a column anew whose values do not convert.
    void ChangeColumn(const DescribedTable& now, const ColumnPlan& column) {
        if (column.conversion.cls == ChangeClass::Blocked) return Add("");
        if (column.conversion.isPossible) return Retype(now, column);
        DropColumn(now, column.now->FieldName);
        AddColumn(now, *column.now);
    }
    virtual void CreateIndex(const DescribedTable& now, const TableIndex& index) = 0;
    /// Makes a column fit for a constraint that it did not have: records that refer to none may hold 0.
    virtual void ClearNoParent(const DescribedTable& now, const ForeignKey& key) {
        Add("UPDATE " + now.Name + " SET " + key.FieldName + " = NULL WHERE " + key.FieldName + " = 0");
    }
    virtual void AddForeignKey(const DescribedTable& now, const ForeignKey& key) = 0;
    virtual void CreateTriggers(const DescribedTable& now) = 0;
    virtual void DropColumn(const DescribedTable& now, const std::string& column) {
        Alter(now.Name, "DROP COLUMN " + column);
    }
    virtual void DropTable(const DescribedTable& /*before*/, const std::string& name) {
        Add("DROP TABLE " + name);
    }

    /// Whether the engine makes a table anew for changes like these.
    virtual bool Rebuilds(const Comparison&, const TablePlan&, bool /*allowsLoss*/) const { return false; }
    /// Makes it anew, once its names are the new ones. `name`: of the table; `nameOf`: what a column is
    /// called that is no longer in the definition.
    virtual void Rebuild(const Comparison&, const TablePlan&, const std::string& /*name*/,
                         const std::function<std::string(const ColumnPlan&)>& /*nameOf*/,
                         bool /*allowsLoss*/) {}

    /// Procedures that go before anything is changed, and those that are made anew. nullptr: the table goes,
    /// or comes.
    virtual void DropProcedures(const DescribedTable& /*before*/, const DescribedTable* /*now*/) {}
    virtual void CreateProcedures(const DescribedTable* /*before*/, const DescribedTable& /*now*/) {}

  protected:
    /// Changes type, default and numbering of a column whose values convert.
    virtual void Retype(const DescribedTable& now, const ColumnPlan& column) = 0;

    /// Adds "ALTER TABLE t ..."
    void Alter(const std::string& table, const std::string& change) {
        Add("ALTER TABLE " + table + " " + change);
    }
    /// A key's name goes with its table's.
    void RenameKey(const DescribedTable& before, const NameChange& name) {
        if (!before.PrimaryKey.empty())
            Alter(name.to,
                  "RENAME CONSTRAINT " + PrimaryKeyName(name.from) + " TO " + PrimaryKeyName(name.to));
    }

  private:
    std::vector<AlterStep> m_steps;
    ChangeClass m_class = ChangeClass::Safe;
    std::string m_reason;
};

}  // namespace korvex::scriptgen
