#include "automation/error.h"
#include "hosts/cli/apply/apply_plan.h"
#include "hosts/cli/apply/apply_run.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/database_file.h"
#include "hosts/cli/session.h"
#include "hosts/cli/text_file.h"
#include "scriptgen/migration/live_tables.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Error;
using Json = nlohmann::ordered_json;

struct ApplyOptions : CommonOptions {
    bool create = false;
    bool dryRun = false;
    std::string style = "auto";
    std::vector<std::string> files;
};

ScriptStyle StyleOf(const std::string& name, std::string_view text) {
    if (name == "go") return ScriptStyle::Batches;
    if (name == "sqlplus") return ScriptStyle::SqlPlus;
    if (name == "plain") return ScriptStyle::Plain;
    return GuessStyle(text);
}

std::vector<ScriptStatement> ReadScripts(const ApplyOptions& options) {
    std::vector<ScriptStatement> statements;
    for (const std::string& file : options.files) {
        const std::string text = ReadTextFile(file);
        for (ScriptStatement& statement : ReadScript(file, text, StyleOf(options.style, text)))
            statements.push_back(std::move(statement));
    }
    return statements;
}

/// The file that the connection made for the run; empty for none.
std::string OpenTarget(ado::Connection& connection, const ApplyOptions& options) {
    if (!options.create) {
        connection.Open(options.connection);
        return {};
    }
    const std::string create = WithCreateMode(options.connection);
    try {
        connection.Open(options.connection);
        return {};
    } catch (const Error&) {
        connection.Open(create);
        return DatabaseFile(connection);
    }
}

bool LeadsToEmbeddedEngine(ado::Connection& connection, const ApplyOptions& options) {
    return IsForEmbeddedEngine(options.connection) || scriptgen::IsEmbedded(connection);
}

/// A file that is to be made is not opened.
void PrintPlan(ado::Connection& connection, const ApplyOptions& options,
               std::span<const ScriptStatement> statements, Console& console) {
    if (options.create) {
        WithCreateMode(options.connection);
    } else {
        connection.Open(options.connection);
    }
    const ApplyPlan plan = PlanStatements(statements, LeadsToEmbeddedEngine(connection, options));
    if (Json* document = console.Document()) (*document)["steps"] = Json::array();
    for (const ApplyStep& step : plan.steps) {
        if (Json* document = console.Document())
            (*document)["steps"].push_back(PlanJson(step));
        else
            console.Results() << PlanLine(step) << '\n';
    }
}

void RunApply(const ApplyOptions& options, Console& console) {
    // All files are read before the first statement runs.
    const std::vector<ScriptStatement> statements = ReadScripts(options);
    std::shared_ptr<ado::Connection> connection = NewConnection(console);
    if (options.dryRun) {
        PrintPlan(*connection, options, statements, console);
        return;
    }
    const std::string newFile = OpenTarget(*connection, options);
    Tally done;
    try {
        done = RunStatements(connection, statements, LeadsToEmbeddedEngine(*connection, options), console);
        connection->Close();
    } catch (...) {
        connection.reset();
        if (!newFile.empty()) RemoveUnusedDatabase(newFile);
        throw;
    }
    if (Json* document = console.Document()) return done.Write(*document);
    std::vector<std::string> lines = done.Lines();
    if (lines.empty()) lines.emplace_back("nothing to do");
    console.Lines(lines);
}

}  // namespace

void AddApplyCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(
        parent, console, "apply", "Run script files on a target database",
        "korvex apply --create --connection \"Provider=SQLite;Data Source=new.db\" sql/LiteCreate.sql",
        RunApply);
    AddConnectionOption(command, options);
    command.add_flag("--create", options.create, "Make the database file when it is missing");
    command.add_flag("--dry-run", options.dryRun, "Print what would be done, and change nothing");
    AddChoice(command, "--style", "STYLE", options.style, {"auto", "go", "sqlplus", "plain"},
              "How statements end: go, sqlplus, plain, or as each file looks (auto)");
    AddFormatOption(command, console);
    AddOption(command, "FILE", "FILE", options.files, "Script files, run in this order")->required();
}

}  // namespace korvex::cli
