#include "hosts/cli/apply/apply_run.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/apply/embedded_catalog.h"
#include "hosts/cli/apply/table_rebuild.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using automation::AddSentence;
using automation::Error;

/// A table that is rebuilt must be dropped without a thought for its children; what stands at the end is
/// checked as a whole. Nothing of this can be switched inside a transaction.
class RebuildMode {
  public:
    explicit RebuildMode(ado::Connection& connection) : m_connection(connection) { Switch("OFF", "ON"); }
    RebuildMode(const RebuildMode&) = delete;
    RebuildMode& operator=(const RebuildMode&) = delete;
    ~RebuildMode() {
        try {
            Switch("ON", "OFF");
        } catch (const Error&) {
            // The run has ended with an error of its own, or the connection is gone.
        }
    }

  private:
    void Switch(const std::string& foreignKeys, const std::string& legacyAlterTable) {
        m_connection.Execute("PRAGMA foreign_keys = " + foreignKeys);
        m_connection.Execute("PRAGMA legacy_alter_table = " + legacyAlterTable);
    }

    ado::Connection& m_connection;
};

class ApplyRun {
  public:
    ApplyRun(ado::Connection& connection, std::vector<ApplyStep> steps, Console& console, ApplyReport& report)
        : m_connection(connection), m_steps(std::move(steps)), m_console(console), m_report(report) {}

    void OnServer() { RunSteps(); }

    void OnEmbedded() {
        const bool rebuilds = std::ranges::any_of(m_steps, [](const ApplyStep& step) {
            return step.action == StepAction::AddKey || step.action == StepAction::DropKeys;
        });
        std::optional<RebuildMode> rebuildMode;
        if (rebuilds) rebuildMode.emplace(m_connection);

        m_connection.BeginTrans();
        bool commits = false;
        try {
            RunSteps();
            if (rebuilds) CheckAllForeignKeys(m_connection);
            commits = true;
            m_connection.CommitTrans();
        } catch (const Error& error) {
            throw Error(error.Number(), AddSentence(error.Description(), RollBack(commits)), error.Source());
        }
    }

  private:
    void RunSteps() {
        std::size_t number = 0;
        for (const ApplyStep& step : m_steps) {
            const ScriptStatement& statement = *step.statement;
            m_console.Progress(statement.file + " " + std::to_string(++number) + "/" +
                               std::to_string(m_steps.size()));
            try {
                Run(step);
            } catch (const Error& error) {
                throw Error(error.Number(),
                            PlaceOf(statement) + ": " + AddSentence(error.Description(), Hint(step, error)),
                            error.Source());
            }
        }
        m_console.ClearProgress();
    }

    void Run(const ApplyStep& step) {
        const std::string& table = step.subject.name;
        switch (step.action) {
            case StepAction::Run:
                for (const std::string& text : step.texts)
                    m_connection.Execute(text);
                m_report.Ran(step.subject);
                break;
            case StepAction::SkipRepeat:
                m_report.SkippedRepeat();
                break;
            case StepAction::SkipProcedure:
                m_report.SkippedProcedure();
                break;
            case StepAction::AddKey:
                if (!AddForeignKey(m_connection, table, step.key)) {
                    m_report.SkippedRepeat();
                    break;
                }
                [[fallthrough]];
            case StepAction::CheckKey:
                CheckForeignKey(m_connection, table, step.key);
                m_report.Ran(step.subject);
                break;
            case StepAction::DropKeys:
                m_report.Ran(step.subject, DropForeignKeys(m_connection, table, step.constraint));
                break;
        }
    }

    static std::string_view Hint(const ApplyStep& step, const Error& error) {
        if (step.subject.kind == StatementKind::CreateSequence && error.Number() == ado::DbEStatement) {
            return "The database has no sequences; the scripts for MS SQL or Sybase need none.";
        }
        if (error.Number() == ado::DbETableExists) {
            return "Run the drop scripts first (foreign keys, then tables) to make the tables anew.";
        }
        if (step.subject.kind == StatementKind::DropTable && error.Number() == ado::DbEConstraint) {
            return "Records of other tables refer to this one: drop the foreign keys first.";
        }
        return {};
    }

    /// What became of the database, for a person.
    std::string RollBack(bool afterCommit) {
        try {
            m_connection.RollbackTrans();
        } catch (const Error& error) {
            // Without a transaction the engine has rolled back already, as it does on a full disk; a commit
            // that failed late leaves none, either.
            if (afterCommit || error.Number() != ado::XactENoTransaction)
                return "What ran could not be rolled back: " + error.Description();
        }
        m_report = {};
        return "The database is as it was.";
    }

    ado::Connection& m_connection;
    std::vector<ApplyStep> m_steps;
    Console& m_console;
    ApplyReport& m_report;
};

}  // namespace

void RunStatements(ado::Connection& connection, std::span<const ScriptStatement> statements, Console& console,
                   ApplyReport& report) {
    if (IsEmbedded(connection)) {
        ApplyRun(connection, PlanForEmbedded(statements), console, report).OnEmbedded();
    } else {
        ApplyRun(connection, PlanStatements(statements), console, report).OnServer();
    }
}

}  // namespace korvex::cli
