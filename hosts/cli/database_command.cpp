#include "hosts/cli/app.h"
#include "hosts/cli/apply/apply_run.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/database_file.h"
#include "hosts/cli/session.h"
#include "hosts/cli/wording.h"
#include "repository/related_catalog.h"
#include "scriptgen/generator.h"
#include "scriptgen/migration/live_tables.h"
#include "scriptgen/script_types.h"
#include "surface/target_tables.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

using Connection = std::shared_ptr<ado::Connection>;
using Json = nlohmann::ordered_json;

struct DatabaseOptions : CommonOptions {
    bool yes = false;
};

TargetTables OpenTables(const DatabaseOptions& options, Console& console) {
    RefuseDanger(ReadCatalog(options, console), options.storage, options.fkPrefix);
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
        console.Lines(report.Lines);
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
    const repository::Catalog catalog = ReadCatalog(options, console);
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
    console.Lines(done.Lines());
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
        console.ExpectConsent(what + " to be dropped, with all records.", "--yes");
    }
    if (type != nullptr) {
        RunPublished(*type, options, connection, false, console);
    } else {
        Print(tables.Drop(connection), "dropped", console);
    }
}

void RunComparison(const DatabaseOptions& options, Console& console) {
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

}  // namespace

void AddDatabaseCommands(CLI::App& parent, Console& console) {
    const auto add = [&](const std::string& name, const char* text,
                         void (*run)(const DatabaseOptions&, Console&), const char* flags = "") {
        const auto added =
            AddCommand(parent, console, name, text,
                       "korvex database " + name +
                           " orders.db --connection \"Provider=SQLite;Data Source=target.db\"" + flags,
                       run);
        AddRepositoryOption(added.app, added.options);
        AddStorageOption(added.app, added.options, "; without it all definitions, as one run");
        AddConnectionOption(added.app, added.options);
        AddFKPrefixOption(added.app, added.options);
        AddFormatOption(added.app, console);
        return added;
    };
    add("create", "Make the tables of a definition in its target database", RunCreate);
    const auto [drop, options] =
        add("drop", "Remove the tables of a definition, with their records", RunDrop, " --yes");
    drop.add_flag("--yes", options.yes, "Do not ask");
    add("check", "Compare the tables of a target database with the definition", RunComparison);
}

}  // namespace korvex::cli
