#include "automation/error.h"
#include "hosts/cli/app.h"
#include "hosts/cli/apply/apply_run.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/database_parts.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/counted_connection.h"
#include "hosts/cli/shell/format_option.h"
#include "hosts/cli/source.h"
#include "hosts/cli/suggest.h"
#include "hosts/cli/target_options.h"
#include "repository/related_catalog.h"
#include "scriptgen/generator.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/script_types.h"
#include "surface/target_tables.h"

#include <nlohmann/json.hpp>

#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using Connection = std::shared_ptr<ado::Connection>;
using Json = nlohmann::ordered_json;

struct DatabaseOptions {
    std::string repository;
    std::string storage;
    std::string connection;
    std::string fkPrefix = "FK_";
    bool yes = false;
};

TargetTables OpenTables(const DatabaseOptions& options, Console& console) {
    CheckDefinition(options.repository, options.storage, options.fkPrefix, console);
    return {Session(console).platform, options.repository, options.storage, options.fkPrefix};
}

void Print(const TargetReport& report, const char* deed, Console& console) {
    if (Json* document = console.Document()) {
        const TargetCounts& counts = report.Counts;
        (*document)["engine"] = report.Engine;
        (*document)[deed] = {{"tables", counts.Tables},
                             {"indexes", counts.Indexes},
                             {"triggers", counts.Triggers},
                             {"foreignKeys", counts.ForeignKeys}};
    } else {
        for (const std::string& line : report.Lines)
            console.Results() << line << '\n';
    }
    for (const std::string& note : report.Notes)
        console.Message(note);
}

Json DifferenceJson(const TargetDifference& difference) {
    Json json = {{"table", difference.Table}, {"aspect", difference.Aspect}};
    if (!difference.Name.empty()) json["name"] = difference.Name;
    json["missing"] = difference.IsMissing;
    json["text"] = difference.Text;
    return json;
}

/// Runs the published scripts as korvex apply does.
void RunPublished(const scriptgen::ScriptTypeInfo& type, const DatabaseOptions& options,
                  const Connection& connection, bool creates, Console& console) {
    console.Message("Nobody has verified this on " + std::string(type.displayName) +
                    ": the published scripts run as they are.");
    repository::Repository source(Session(console).platform);
    source.OpenRepository(options.repository);
    const repository::Catalog catalog = repository::Catalog::Read(source.Open());
    repository::RelatedCatalog rows(catalog);
    rows.Relate(options.storage, options.fkPrefix);
    scriptgen::RunState run;
    run.m_nScriptType = type.type;
    scriptgen::GenerateForStorage(run, rows, options.storage);
    using scriptgen::ScriptKind;
    const std::vector<ScriptKind> kinds =
        creates ? std::vector{ScriptKind::Create, ScriptKind::Procedures, ScriptKind::CreateForeignKeys}
                : std::vector{ScriptKind::DropForeignKeys, ScriptKind::Drop};
    std::vector<ScriptStatement> statements;
    for (const ScriptKind kind : kinds) {
        const std::string& text = run.Text(kind);
        const std::string name(type.fileNames[static_cast<std::size_t>(kind)]);
        for (ScriptStatement& statement : ReadScript(name, text, GuessStyle(text)))
            statements.push_back(std::move(statement));
    }
    const Tally done = RunStatements(connection, statements, false, console);
    if (Json* document = console.Document()) {
        (*document)["engine"] = scriptgen::EngineBehind(*connection);
        return done.Write(*document);
    }
    for (const std::string& line : done.Lines())
        console.Results() << line << '\n';
}

void RunCreate(const DatabaseOptions& options, Console& console) {
    const TargetTables tables = OpenTables(options, console);
    std::string place = options.connection;
    if (IsForEmbeddedEngine(place)) {
        // Before a file is made.
        tables.ExpectTakenBy("sqlite");
        place = WithCreateMode(place);
    }
    const Connection connection = Connect(place, console);
    if (const auto* type = scriptgen::FindScriptType(scriptgen::EngineBehind(*connection))) {
        RunPublished(*type, options, connection, true, console);
    } else {
        Print(tables.Create(connection), "created", console);
    }
}

void RunDrop(const DatabaseOptions& options, Console& console) {
    const TargetTables tables = OpenTables(options, console);
    const Connection connection = Connect(options.connection, console);
    const auto* type = scriptgen::FindScriptType(scriptgen::EngineBehind(*connection));
    if (!options.yes) {
        const std::vector<std::string> names =
            type == nullptr ? tables.TablesToDrop(*connection) : std::vector<std::string>();
        const std::string what = type != nullptr ? "All tables of the definition are"
                                 : names.empty() ? "No table is"
                                                 : JoinNames(names) + (names.size() == 1 ? " is" : " are");
        ExpectConsent(what + " to be dropped, with all records.", "--yes", console);
    }
    if (type != nullptr) {
        RunPublished(*type, options, connection, false, console);
    } else {
        Print(tables.Drop(connection), "dropped", console);
    }
}

void RunCheck(const DatabaseOptions& options, Console& console) {
    const TargetTables tables = OpenTables(options, console);
    const Connection connection = Connect(options.connection, console);
    const TargetComparison comparison = tables.Compare(*connection);
    const bool isEqual = comparison.Differences.empty();
    if (Json* document = console.Document()) {
        (*document)["equal"] = isEqual;
        (*document)["madeByFirstVersion"] = comparison.IsMadeByFirstVersion;
        (*document)["differences"] = Json::array();
        for (const TargetDifference& difference : comparison.Differences)
            (*document)["differences"].push_back(DifferenceJson(difference));
    } else {
        if (comparison.IsMadeByFirstVersion) console.Results() << "made by 0.1\n";
        for (const TargetDifference& difference : comparison.Differences)
            console.Results() << difference.Text << '\n';
        if (isEqual) console.Results() << "the tables are those of the definition\n";
    }
    if (!isEqual) throw CLI::RuntimeError(ExitFailed);
}

CLI::App* AddDatabaseOptions(CLI::App* command, DatabaseOptions& options) {
    AddRepositoryOption(*command, options.repository);
    AddStorageOption(*command, options.storage, "; without it all definitions, as one run");
    AddConnectionOption(*command, options.connection);
    command->add_option("--fk-prefix", options.fkPrefix, "Prefix of foreign-key columns (FK_ unless given)")
        ->type_name("P");
    return command;
}

}  // namespace

void CheckDefinition(const std::string& repository, const std::string& storage, const std::string& fkPrefix,
                     Console& console) {
    repository::Repository source(Session(console).platform);
    OpenComplete(source, repository);
    ExpectStorage(source, storage);
    const repository::Catalog catalog = repository::Catalog::Read(source.Open());
    source.Close();
    Findings findings;
    CheckDefinitions(catalog, storage, fkPrefix, findings);
    RefuseDanger(findings);
}

std::shared_ptr<ado::Connection> Connect(const std::string& connectionString, Console& console) {
    Connection connection = std::make_shared<CountedConnection>(
        Session(console).platform.targetProvider->CreateConnection(), console);
    connection->Open(connectionString);
    return connection;
}

void ExpectConsent(const std::string& question, const std::string& flag, Console& console) {
    if (isatty(STDIN_FILENO) != 1) {
        throw automation::Error(automation::InvalidProcedureCall,
                                question + " Nobody can be asked here: say so with " + flag + ".");
    }
    console.Text(question + " [y/N]");
    std::string answer;
    std::getline(std::cin, answer);
    if (answer != "y" && answer != "yes")
        throw automation::Error(automation::InvalidProcedureCall, "Nothing was dropped.");
}

void AddDatabaseCommands(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<DatabaseOptions>();
    const auto add = [&](const char* name, const char* text, void (*run)(const DatabaseOptions&, Console&),
                         const char* flags = "") {
        CLI::App* command = AddDatabaseOptions(parent.add_subcommand(name, text), *options);
        AddFormatOption(*command, console);
        AddExample(*command, "korvex database " + std::string(name) +
                                 " orders.db --connection \"Provider=SQLite;Data Source=target.db\"" + flags);
        command->callback([options, &console, run] { run(*options, console); });
        return command;
    };
    add("create", "Make the tables of a definition in its target database", RunCreate);
    add("drop", "Remove the tables of a definition, with their records", RunDrop, " --yes")
        ->add_flag("--yes", options->yes, "Do not ask");
    add("check", "Compare the tables of a target database with the definition", RunCheck);
    AddDatabaseUpdateCommand(parent, console);
}

}  // namespace korvex::cli
