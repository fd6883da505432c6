#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/diff_source.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/progress.h"
#include "hosts/cli/wording.h"
#include "repository/names.h"
#include "scriptgen/migration/compare_tables.h"
#include "scriptgen/migration/database_update.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/migration/match_tables.h"
#include "scriptgen/script_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace korvex::cli {

namespace {

using automation::Error;
using Json = nlohmann::ordered_json;
using scriptgen::AlterStep;
using scriptgen::ChangeClass;
using scriptgen::DefinitionDiff;
using scriptgen::DescribedTable;
using scriptgen::EngineDialect;

struct UpdateSettings : DiffSettings {
    std::string from;
    bool dryRun = false;
    bool yes = false;
};

[[noreturn]] void Refuse(const std::string& what) {
    throw Error(automation::InvalidProcedureCall, what + " Nothing was changed.");
}

/// The database must be as the definition was that the statements lead away from.
void ExpectAsBefore(const UpdateSettings& settings, const DefinitionState& before,
                    const EngineDialect& dialect, ado::Connection& connection) {
    std::vector<std::string> texts;
    for (const scriptgen::TableDifference& difference :
         scriptgen::CompareTables(dialect.Tables(before.tables),
                                  scriptgen::ReadLiveTables(connection, dialect), dialect.FoldsTableNames()))
        texts.push_back(difference.text);
    if (!texts.empty())
        Refuse("The database is not as " + settings.from + " says: " + scriptgen::Joined(texts, "; ") +
               ". Without --from it is brought to the definition from any state.");
}

/// Tables that look like those of a definition, but are none of this repository's.
void NoteOthers(const DefinitionDiff& diff, const DefinitionState& now, Console& console) {
    for (const DescribedTable& table : diff.Before()) {
        const bool isOurs = FindColumn(table, repository::CounterColumn) != nullptr ||
                            FindColumn(table, repository::CounterHolderColumn) != nullptr;
        const bool isKnown =
            std::ranges::any_of(diff.Compared().Tables(),
                                [&](const scriptgen::TablePlan& plan) { return plan.before == &table; });
        if (isOurs && !isKnown && !now.others.contains(automation::ToUpperAscii(table.Name)))
            console.Message(table.Name + " stays: no definition of the repository has it. With --rename " +
                            table.Name + "=NEW it becomes another table, with --from OLD it is dropped.");
    }
}

/// What the database holds must fit before the first statement runs.
void ExpectToFit(const DefinitionDiff& diff, const EngineDialect& dialect, ado::Connection& connection,
                 Console& console) {
    std::vector<std::string> texts;
    for (const scriptgen::Misfit& misfit : scriptgen::CountMisfits(connection, dialect, diff.Compared())) {
        if (misfit.isRounded)
            console.Message(misfit.text + ".");
        else
            texts.push_back(misfit.text);
    }
    if (!texts.empty()) Refuse(scriptgen::Joined(texts, "; ") + ". Change them first.");
}

void ExpectAllowed(const DefinitionDiff& diff, const UpdateSettings& settings, Console& console) {
    const bool loses = diff.Compared().Has(ChangeClass::Lossy) ||
                       diff.Compared().Has(ChangeClass::Destructive) ||
                       diff.Compared().Has(ChangeClass::Blocked);
    if (!loses) return;
    const bool isAsked = isatty(STDIN_FILENO) == 1;
    if (!isAsked && !settings.allowsLoss) Refuse("The changes above that are not safe need --allow-loss.");
    if (isAsked && !(settings.allowsLoss && settings.yes))
        console.ExpectConsent("What is not safe above takes values away.", "--allow-loss --yes");
}

std::vector<AlterStep> StepsOf(const DefinitionDiff& diff) {
    std::vector<AlterStep> steps = diff.Steps(true);
    for (const AlterStep& step : steps)
        if (step.text.empty()) Refuse(step.reason + ".");
    return steps;
}

/// Writes what was not run into a file of its own, here.
std::string KeepRest(const DefinitionDiff& diff, std::span<const AlterStep> rest, Console& console) {
    const std::string name = std::filesystem::path(diff.FileName()).stem().string() + "-rest";
    std::string path = name + ".sql";
    for (int number = 2; std::filesystem::exists(path); ++number)
        path = name + std::to_string(number) + ".sql";
    Session(console).platform.files->WriteText(path, diff.ScriptOf(rest), "");
    return "Those that were not are in " + path + ": run it with korvex apply when the cause is mended.";
}

void RunUpdate(const UpdateSettings& settings, Console& console) {
    RefuseDanger(ReadCatalog(settings, console), settings.storage, settings.fkPrefix);
    const DefinitionState now = DescribeSource(settings.repository, settings, console);
    const auto connection = Connect(settings.connection, console);
    const EngineDialect& dialect = ReadableDialect(*connection);
    if (const auto problems = dialect.Problems(now.tables); !problems.empty())
        Refuse(std::string(dialect.Name()) +
               " does not take the definition: " + scriptgen::Joined(problems, "; ") + ".");
    std::unique_ptr<DefinitionDiff> diff;
    if (settings.from.empty()) {
        diff = CompareLive(dialect, *connection, now, settings);
        NoteOthers(*diff, now, console);
    } else {
        const DefinitionState before = DescribeSource(settings.from, settings, console);
        ExpectAsBefore(settings, before, dialect, *connection);
        diff = Compare(std::string(dialect.Name()), before, now, settings);
    }
    if (Json* document = console.Document()) {
        (*document)["engine"] = dialect.Name();
        (*document)["changes"] = ChangesJson(*diff);
        (*document)["statements"] = 0;
    } else {
        PrintChanges(*diff, console);
    }
    const std::vector<AlterStep> steps = StepsOf(*diff);
    ExpectToFit(*diff, dialect, *connection, console);
    if (settings.dryRun) return;
    ExpectAllowed(*diff, settings, console);
    const Progress progress(console, "statements", steps.size());
    scriptgen::UpdateDatabase(connection, dialect, steps, [&](std::span<const AlterStep> rest) {
        return KeepRest(*diff, rest, console);
    });
    if (Json* document = console.Document())
        (*document)["statements"] = steps.size();
    else
        console.Results() << CountText(steps.size(), "statement") << " run (" << dialect.Name() << ")\n";
}

}  // namespace

void AddDatabaseUpdateCommand(CLI::App& parent, Console& console) {
    const auto [command, settings] = AddCommand<UpdateSettings>(
        parent, console, "update", "Bring a target database with its records to the definition",
        "korvex database update orders.db --connection \"Provider=SQLite;Data Source=target.db\" --dry-run",
        RunUpdate);
    AddRepositoryOption(command, settings);
    AddConnectionOption(command, settings);
    AddOption(
        command, "--from", "OLD", settings.from,
        "The definition as the database has it: renames are told by it, and what it has beside the new one "
        "is dropped");
    AddDiffOptions(command, settings);
    command.add_flag("--dry-run", settings.dryRun, "Print and count only");
    command.add_flag("--yes", settings.yes, "With --allow-loss: do not ask");
    AddFormatOption(command, console);
}

}  // namespace korvex::cli
