#include "scriptgen/migration/alter_plan.h"

#include "automation/text.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/migration/rename_order.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <unordered_map>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;

namespace {

/// Whether the table has an index of that name on the same columns, before and now.
bool StaysIndex(const TablePlan& plan, const TableIndex& before, const TableIndex& now) {
    if (!EqualsIgnoreCase(before.Name, now.Name)) return false;
    return std::ranges::equal(before.Columns, now.Columns,
                              [&](const std::string& from, const std::string& to) {
                                  const ColumnPlan* column = ColumnBefore(plan, from);
                                  return column != nullptr && column->now != nullptr &&
                                         EqualsIgnoreCase(column->now->FieldName, to);
                              });
}

class AlterPlanner {
  public:
    AlterPlanner(const Comparison& comparison, AlterText& text, bool allowsLoss)
        : m_comparison(comparison), m_text(text), m_allowsLoss(allowsLoss) {}

    std::vector<AlterStep> Plan() {
        m_text.TakeSteps();  // what a plan left that failed
        if (m_comparison.Changes().empty()) return {};
        PlanTableNames();
        ForEach([this](const TablePlan& plan) {
            if (plan.before != nullptr && (plan.now != nullptr || MakesRoom(plan)))
                m_text.DropProcedures(*plan.before, plan.now);
        });
        ForEach([this](const TablePlan& plan) { DropForeignKeys(plan); });
        ForEach([this](const TablePlan& plan) { DropTriggersAndIndexes(plan); });
        for (const NameChange& name : m_tableNames)
            m_text.RenameTable(*m_comparison.Tables()[name.thing].before, name);
        ForEach([this](const TablePlan& plan) { RenameColumns(plan); });
        ForEach([this](const TablePlan& plan) {
            if (plan.before == nullptr) m_text.CreateTable(*plan.now);
        });
        ForEach([this](const TablePlan& plan) { ChangeColumns(plan); });
        ForEach([this](const TablePlan& plan) { CreateIndexes(plan); });
        ForEach([this](const TablePlan& plan) { AddForeignKeys(plan); });
        ForEach([this](const TablePlan& plan) {
            if (plan.now != nullptr && !IsWhole(plan) && !StayTriggers(plan))
                m_text.CreateTriggers(*plan.now);
        });
        ForEach([this](const TablePlan& plan) {
            if (plan.now != nullptr) m_text.CreateProcedures(plan.before, *plan.now);
        });
        ForEach([this](const TablePlan& plan) { Drop(plan); });
        return m_text.TakeSteps();
    }

  private:
    template <class Action>
    void ForEach(Action&& action) {
        m_text.Begin();
        for (const TablePlan& plan : m_comparison.Tables())
            action(plan);
        m_text.Begin();
    }

    bool IsWhole(const TablePlan& plan) const {
        return plan.before == nullptr && m_text.CreatesWholeTables();
    }

    /// A table that goes makes room for one that takes its name.
    void PlanTableNames() {
        std::vector<NamedThing> things;
        for (const TablePlan& plan : m_comparison.Tables()) {
            NamedThing& thing = things.emplace_back();
            if (plan.before != nullptr) thing.before = plan.before->Name;
            if (plan.now != nullptr) thing.now = plan.now->Name;
            thing.isRenamed = plan.isRenamed;
            thing.makesRoom = plan.now == nullptr && m_comparison.NamedNow(thing.before) != nullptr;
        }
        m_tableNames = OrderRenames(things);
        for (const NameChange& change : m_tableNames)
            m_nameOf[&m_comparison.Tables()[change.thing]] = change.to;
    }
    std::string NameOf(const TablePlan& plan) const {
        const auto found = m_nameOf.find(&plan);
        return found != m_nameOf.end() ? found->second
               : plan.now != nullptr   ? plan.now->Name
                                       : plan.before->Name;
    }
    bool MakesRoom(const TablePlan& plan) const { return plan.now == nullptr && m_nameOf.contains(&plan); }
    bool Rebuilds(const TablePlan& plan) const {
        return plan.before != nullptr && m_text.Rebuilds(m_comparison, plan, m_allowsLoss);
    }

    bool StaysNamed(const TablePlan& plan, const ForeignKey& before) const {
        const ColumnPlan* column = ColumnBefore(plan, before.FieldName);
        const bool isNamedSo =
            before.Name.empty() ||
            EqualsIgnoreCase(before.Name, ColumnThingName("FK_", plan.now->Name, column->now->FieldName));
        return !m_text.NamesForeignKeys() || (isNamedSo && !plan.isRenamed && !column->isRenamed);
    }

    void DropForeignKeys(const TablePlan& plan) {
        if (plan.before == nullptr) return;
        for (const ForeignKey& key : plan.before->ForeignKeys) {
            const bool stays = m_comparison.SameKeyNow(plan, key) != nullptr && StaysNamed(plan, key);
            if (key.IsInRun && !stays) m_text.DropForeignKey(*plan.before, key);
        }
    }

    void AddForeignKeys(const TablePlan& plan) {
        if (plan.now == nullptr) return;
        for (const ForeignKey& key : plan.now->ForeignKeys) {
            const ForeignKey* before = m_comparison.SameKeyBefore(plan, key);
            if (!key.IsInRun || (before != nullptr && StaysNamed(plan, *before))) continue;
            if (before == nullptr && plan.Stays() && ColumnNow(plan, key.FieldName)->before != nullptr)
                m_text.ClearNoParent(*plan.now, key);
            m_text.AddForeignKey(*plan.now, key);
        }
    }

    bool StayTriggers(const TablePlan& plan) const {
        if (!plan.Stays() || plan.isRenamed || plan.hasRenamedColumns || Rebuilds(plan)) return false;
        const auto columns = [](const DescribedTable& table) {
            std::vector<std::string> names = table.PrimaryKey;
            for (const ForeignKey& key : table.ForeignKeys)
                names.push_back(key.FieldName);
            std::ranges::sort(names);
            return names;
        };
        return std::ranges::equal(columns(*plan.before), columns(*plan.now), EqualsIgnoreCase) &&
               std::ranges::all_of(plan.now->Triggers, [&](const std::string& trigger) {
                   return std::ranges::any_of(plan.before->Triggers, [&](const std::string& other) {
                       return EqualsIgnoreCase(trigger, other);
                   });
               });
    }

    void DropTriggersAndIndexes(const TablePlan& plan) {
        if (plan.before == nullptr || (plan.now == nullptr && !MakesRoom(plan))) return;
        if (!StayTriggers(plan)) {
            for (const std::string& trigger : plan.before->Triggers)
                if (plan.before->ObjectID != repository::NoObject ||
                    m_text.IsTriggerOf(*plan.before, trigger))
                    m_text.DropTrigger(*plan.before, trigger);
        }
        for (const TableIndex& index : plan.before->Indexes)
            if (GoesIndex(plan, index)) m_text.DropIndex(*plan.before, index.Name);
    }

    /// An index that somebody added to a database stays as long as its columns do.
    bool GoesIndex(const TablePlan& plan, const TableIndex& index) const {
        if (plan.now == nullptr) return true;
        if (std::ranges::any_of(plan.now->Indexes,
                                [&](const TableIndex& now) { return StaysIndex(plan, index, now); }))
            return false;
        if (plan.before->ObjectID != repository::NoObject) return true;
        std::vector<std::string> columns;
        for (const std::string& name : index.Columns) {
            const ColumnPlan* column = ColumnBefore(plan, name);
            if (column == nullptr || column->now == nullptr) return m_allowsLoss;
            columns.push_back(column->now->FieldName);
        }
        return std::ranges::any_of(plan.now->Indexes, [&](const TableIndex& now) {
            return EqualsIgnoreCase(now.Name, index.Name) ||
                   std::ranges::equal(now.Columns, columns, EqualsIgnoreCase);
        });
    }

    void CreateIndexes(const TablePlan& plan) {
        if (plan.now == nullptr || IsWhole(plan)) return;
        for (const TableIndex& index : plan.now->Indexes) {
            const bool stays = plan.Stays() && !Rebuilds(plan) &&
                               std::ranges::any_of(plan.before->Indexes, [&](const TableIndex& before) {
                                   return StaysIndex(plan, before, index);
                               });
            if (!stays) m_text.CreateIndex(*plan.now, index);
        }
    }

    /// A column that goes makes room for one that takes its name.
    void RenameColumns(const TablePlan& plan) {
        if (!plan.Stays()) return;
        std::vector<NamedThing> things;
        for (const ColumnPlan& column : plan.columns) {
            NamedThing& thing = things.emplace_back();
            if (column.before != nullptr) thing.before = column.before->FieldName;
            if (column.now != nullptr) thing.now = column.now->FieldName;
            thing.isRenamed = column.isRenamed;
            thing.makesRoom = column.now == nullptr && ColumnNow(plan, thing.before) != nullptr;
        }
        for (const NameChange& change : OrderRenames(things)) {
            m_text.RenameColumn(plan.now->Name, change);
            m_columnNames[&plan.columns[change.thing]] = change.to;
        }
    }
    std::string NameOf(const ColumnPlan& column) const {
        const auto found = m_columnNames.find(&column);
        return found == m_columnNames.end() ? column.before->FieldName : found->second;
    }

    void ChangeColumns(const TablePlan& plan) {
        if (Rebuilds(plan)) {
            const auto nameOf = [this](const ColumnPlan& column) { return NameOf(column); };
            m_text.Rebuild(m_comparison, plan, NameOf(plan), nameOf, m_allowsLoss);
            m_text.Begin();
            RestoreOthers(plan);
            return;
        }
        if (!plan.Stays()) return;
        for (const ColumnPlan& column : plan.columns)
            if (column.before == nullptr) m_text.AddColumn(*plan.now, *column.now);
        for (const ColumnPlan& column : plan.columns) {
            if (column.before == nullptr || column.now == nullptr || !column.IsChanged()) continue;
            m_text.Begin(column.conversion.cls, ReasonOf(plan, column));
            m_text.ChangeColumn(*plan.now, column);
            m_text.Begin();
        }
    }

    /// What somebody added to a table of a database that stands, and what went with it.
    void RestoreOthers(const TablePlan& plan) {
        for (const TableDependent& dependent : plan.before->Dependents) {
            const auto isNamed = [&](const std::string& name) {
                return EqualsIgnoreCase(name, dependent.Name);
            };
            const auto index = std::ranges::find_if(plan.before->Indexes, isNamed, &TableIndex::Name);
            if (index != plan.before->Indexes.end() && GoesIndex(plan, *index)) continue;
            if (std::ranges::none_of(plan.now->Indexes, isNamed, &TableIndex::Name) &&
                !m_text.IsTriggerOf(*plan.before, dependent.Name))
                m_text.Add(dependent.Text);
        }
    }

    /// What the list says first of what the column loses.
    std::string ReasonOf(const TablePlan& plan, const ColumnPlan& column) const {
        const std::vector<std::string> losses = m_comparison.Losses(plan, column);
        return losses.empty() ? std::string() : losses.front();
    }

    void Drop(const TablePlan& plan) {
        if (plan.now == nullptr) {
            m_text.Begin(ChangeClass::Destructive, plan.before->Name + " is dropped: its records are lost");
            m_text.DropTable(*plan.before, NameOf(plan));
            return;
        }
        if (plan.before == nullptr || Rebuilds(plan)) return;
        for (const ColumnPlan& column : plan.columns) {
            if (column.now != nullptr) continue;
            m_text.Begin(column.conversion.cls, ReasonOf(plan, column));
            m_text.DropColumn(*plan.now, NameOf(column));
        }
    }

    const Comparison& m_comparison;
    AlterText& m_text;
    bool m_allowsLoss;
    std::vector<NameChange> m_tableNames;
    std::unordered_map<const TablePlan*, std::string> m_nameOf;        ///< what a renamed table is called
    std::unordered_map<const ColumnPlan*, std::string> m_columnNames;  ///< the same of columns
};

std::string Commented(std::string_view text, std::string_view mark) {
    std::string lines;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = std::min(text.find('\n', at), text.size());
        const std::size_t next = end + 1;
        if (end > at && text[end - 1] == '\r') --end;
        Append(lines, mark, text.substr(at, end - at), "\r\n");
        at = next;
    }
    return lines;
}

}  // namespace

std::vector<AlterStep> PlanAlter(const Comparison& comparison, AlterText& text, bool allowsLoss) {
    return AlterPlanner(comparison, text, allowsLoss).Plan();
}

std::string AlterScriptText(std::span<const AlterStep> steps, const AlterText& text, bool allowsLoss) {
    if (steps.empty()) return {};
    std::string script(text.Frame().first);
    const AlterStep* previous = nullptr;
    for (const AlterStep& step : steps) {
        const bool isNew = previous == nullptr || previous->reason != step.reason;
        if (step.cls != ChangeClass::Safe && isNew)
            Append(script, text.CommentMark(), ClassName(step.cls), ": ", step.reason, "\r\n");
        const std::string statement = step.text.empty() ? "" : step.isScript ? step.text : text.Ended(step);
        script += step.IsRun(allowsLoss) ? statement : Commented(statement, text.CommentMark());
        previous = &step;
    }
    return script.append(text.Frame().second);
}

}  // namespace korvex::scriptgen
