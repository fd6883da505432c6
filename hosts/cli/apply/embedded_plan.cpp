#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/apply_plan.h"
#include "hosts/cli/apply/embedded_rewrite.h"
#include "hosts/cli/apply/index_names.h"
#include "hosts/cli/apply/no_parent_triggers.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::ToUpperAscii;

/// "[dbo.]T ADD CONSTRAINT N FOREIGN KEY ..." behind ALTER TABLE; nothing for another kind of constraint.
std::optional<ForeignKey> AddedKey(std::string_view statement) {
    TokenReader tokens(Tokenize(statement));
    tokens.Take("alter table");
    tokens.TakeName();
    if (!tokens.Take("add")) return std::nullopt;
    return ReadForeignKey(statement.substr(tokens.Peek().at));
}

std::string DroppedConstraint(std::string_view statement) {
    TokenReader tokens(Tokenize(statement));
    tokens.Take("alter table");
    tokens.TakeName();
    tokens.Take("drop constraint");
    return tokens.TakeName();
}

/// The run is one transaction, which no statement of a script may end or divide.
void RefuseTransactionControl(std::string_view statement) {
    TokenReader tokens(Tokenize(statement));
    while (tokens.Take(";")) {
    }
    for (const std::string_view word : {"commit", "end", "rollback", "savepoint", "release"}) {
        if (!tokens.Sees(word)) continue;
        throw Error(automation::InvalidProcedureCall,
                    ToUpperAscii(word) +
                        " cannot stand in a script for the embedded engine, where a run is one "
                        "transaction: take it out.");
    }
}

class EmbeddedPlanner {
  public:
    explicit EmbeddedPlanner(std::vector<ApplyStep> steps)
        : m_steps(std::move(steps)), m_indexNames(m_steps) {}

    std::vector<ApplyStep> Run() {
        for (std::size_t i = 0; i < m_steps.size(); ++i) {
            const ScriptStatement& statement = *m_steps[i].statement;
            if (m_steps[i].action == StepAction::SkipRepeat) continue;
            try {
                Plan(i);
            } catch (const Error& error) {
                throw Error(error.Number(), PlaceOf(statement) + ": " + error.Description());
            }
        }
        for (const auto& [step, table] : m_created)
            FinishTable(m_steps[step], table);
        return std::move(m_steps);
    }

  private:
    void Plan(std::size_t at) {
        ApplyStep& step = m_steps[at];
        const StatementSubject& subject = step.subject;
        if (subject.kind == StatementKind::Other || step.statement->style == ScriptStyle::Plain) {
            // What it does to a table must find the keys that stood before it, and no others.
            m_makers.clear();
        }
        if (subject.kind == StatementKind::Other) RefuseTransactionControl(step.statement->text);
        if (step.statement->style == ScriptStyle::Plain) return;
        switch (subject.kind) {
            case StatementKind::CreateProcedure:
            case StatementKind::DropProcedure:
                step.action = StepAction::SkipProcedure;
                step.texts.clear();
                return;
            case StatementKind::AddConstraint:
                AddKey(at);
                return;
            case StatementKind::DropConstraint:
                step.action = StepAction::DropKeys;
                step.constraint = DroppedConstraint(step.statement->text);
                m_makers.erase(ToUpperAscii(subject.name));
                return;
            default:
                break;
        }
        step.texts = {RewriteForEmbedded(subject, step.statement->text)};
        if (subject.kind == StatementKind::CreateTable) CreateTable(at);
        if (subject.kind == StatementKind::CreateIndex)
            step.texts = {m_indexNames.Rename(subject, step.texts.front())};
        if (subject.kind == StatementKind::DropTable) m_makers.erase(ToUpperAscii(subject.name));
    }

    void CreateTable(std::size_t at) {
        auto table = TableText::Read(m_steps[at].texts.front());
        if (!table) return;
        m_created.emplace(at, *std::move(table));
        m_makers[ToUpperAscii(m_steps[at].subject.name)] = at;
    }

    void AddKey(std::size_t at) {
        ApplyStep& step = m_steps[at];
        std::optional<ForeignKey> key = AddedKey(step.statement->text);
        if (!key) {
            throw Error(automation::InvalidProcedureCall,
                        "Of constraints, only foreign keys can be added to a table of the embedded engine.");
        }
        step.texts.clear();
        step.key = *std::move(key);
        const auto maker = m_makers.find(ToUpperAscii(step.subject.name));
        if (maker == m_makers.end()) {
            step.action = StepAction::AddKey;
        } else {
            const bool isNew = AddToTable(m_created.at(maker->second), step);
            step.action = isNew ? StepAction::CheckKey : StepAction::SkipRepeat;
        }
    }

    /// False when the table has the key already.
    static bool AddToTable(TableText& table, const ApplyStep& step) {
        const ForeignKey& key = step.key;
        if (HasKey(table, key)) return false;
        for (const std::string& column : key.columns) {
            if (!table.HasColumn(column)) {
                throw Error(automation::InvalidProcedureCall,
                            "The table " + step.subject.name + " has no column " + column + ".");
            }
        }
        table.Add(key);
        return true;
    }

    static void FinishTable(ApplyStep& step, const TableText& table) {
        step.texts = {table.Text()};
        for (std::string& trigger : NoParentTriggers(step.subject.name, table.ForeignKeys()))
            step.texts.push_back(std::move(trigger));
    }

    std::vector<ApplyStep> m_steps;
    IndexNames m_indexNames;
    std::map<std::size_t, TableText> m_created;   ///< by step
    std::map<std::string, std::size_t> m_makers;  ///< step that makes a table, by its name
};

}  // namespace

std::vector<ApplyStep> PlanForEmbedded(std::span<const ScriptStatement> statements) {
    return EmbeddedPlanner(PlanStatements(statements)).Run();
}

}  // namespace korvex::cli
