#pragma once

#include "scriptgen/migration/changes.h"
#include "scriptgen/migration/rename_order.h"

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

/// Statements in the order in which they run.
class AlterSteps {
  public:
    /// What the statements from here on do to the values.
    void Begin(ChangeClass cls = ChangeClass::Safe, std::string reason = {}) {
        m_class = cls;
        m_reason = std::move(reason);
    }
    void Add(std::string text, bool isScript = false) {
        m_steps.push_back({std::move(text), m_class, m_reason, isScript});
    }
    const std::vector<AlterStep>& All() const noexcept { return m_steps; }

  private:
    std::vector<AlterStep> m_steps;
    ChangeClass m_class = ChangeClass::Safe;
    std::string m_reason;
};

/// The statements of one engine. Names are those that hold when the statement runs: references, indexes and
/// triggers go under their old names before anything is renamed, all others run with the new ones.
class AlterText {
  public:
    virtual ~AlterText() = default;

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

    virtual void DropForeignKey(AlterSteps& steps, const DescribedTable& before,
                                const ForeignKey& key) const = 0;
    virtual void DropIndex(AlterSteps& steps, const DescribedTable& before,
                           const std::string& index) const = 0;
    virtual void DropTrigger(AlterSteps& steps, const DescribedTable& before,
                             const std::string& trigger) const = 0;
    /// `before`: the table as it was described, whatever it is called meanwhile.
    virtual void RenameTable(AlterSteps& steps, const DescribedTable& before,
                             const NameChange& name) const = 0;
    virtual void RenameColumn(AlterSteps& steps, const std::string& table, const NameChange& name) const = 0;
    virtual void CreateTable(AlterSteps& steps, const DescribedTable& now) const = 0;
    virtual void AddColumn(AlterSteps& steps, const DescribedTable& now, const Column& column) const = 0;
    /// Type, default and numbering; its class is begun.
    virtual void ChangeColumn(AlterSteps& steps, const DescribedTable& now,
                              const ColumnPlan& column) const = 0;
    virtual void CreateIndex(AlterSteps& steps, const DescribedTable& now, const TableIndex& index) const = 0;
    /// Makes a column fit for a constraint that it did not have: records that refer to none may hold 0.
    virtual void ClearNoParent(AlterSteps& steps, const DescribedTable& now, const ForeignKey& key) const {
        steps.Add("UPDATE " + now.Name + " SET " + key.FieldName + " = NULL WHERE " + key.FieldName + " = 0");
    }
    virtual void AddForeignKey(AlterSteps& steps, const DescribedTable& now, const ForeignKey& key) const = 0;
    virtual void CreateTriggers(AlterSteps& steps, const DescribedTable& now) const = 0;
    virtual void DropColumn(AlterSteps& steps, const DescribedTable& now,
                            const std::string& column) const = 0;
    virtual void DropTable(AlterSteps& steps, const DescribedTable& before,
                           const std::string& name) const = 0;

    /// Whether the engine makes a table anew for changes like these.
    virtual bool Rebuilds(const Comparison&, const TablePlan&, bool /*allowsLoss*/) const { return false; }
    /// Makes it anew, once its names are the new ones. `name`: of the table; `gone`: columns that are no
    /// longer in the definition, by what they are called.
    virtual void Rebuild(AlterSteps&, const Comparison&, const TablePlan&, const std::string& /*name*/,
                         std::span<const ColumnPlan* const> /*gone*/, std::span<const std::string> /*names*/,
                         bool /*allowsLoss*/) const {}

    /// Procedures that go before anything is changed, and those that are made anew. nullptr: the table goes,
    /// or comes.
    virtual void DropProcedures(AlterSteps&, const DescribedTable& /*before*/,
                                const DescribedTable* /*now*/) const {}
    virtual void CreateProcedures(AlterSteps&, const DescribedTable* /*before*/,
                                  const DescribedTable& /*now*/) const {}
};

}  // namespace korvex::scriptgen
