#include "automation/error.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/program.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/progress.h"
#include "hosts/cli/text_file.h"
#include "scriptgen/engine_dialect.h"
#include "surface/cls_create_db.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::Variant;

struct ScriptOptions : CommonOptions {
    std::string dialect;
    std::string out = ".";
    bool open = false;
    bool quiet = false;
};

/// One of the published dialects, or, without `run`, that of a database engine.
struct Dialect {
    std::string name;
    void (clsCreateDb::*run)(const std::string& FileName, const std::string& storageName,
                             const Variant& sFKPrefix) = nullptr;
};

std::vector<Dialect> AllDialects() {
    std::vector<Dialect> dialects = {{"mssql", &clsCreateDb::DoMSsqlDb},
                                     {"oracle", &clsCreateDb::DoOracleDb},
                                     {"sybase", &clsCreateDb::DoSybaseDb}};
    for (const scriptgen::EngineDialect* engine : scriptgen::AllEngineDialects())
        dialects.push_back({std::string(engine->Name())});
    return dialects;
}

std::vector<Dialect> ChosenDialects(const std::string& name) {
    std::vector<Dialect> chosen = AllDialects();
    std::erase_if(chosen, [&](const Dialect& dialect) {
        return name != dialect.name && name != (dialect.run != nullptr ? "all" : "all-engines");
    });
    return chosen;
}

/// A run raises the failure of its first file only; the others are told here.
void ExpectAllWritten(const clsCreateDb& scripts) {
    const std::vector<Error>& failures = scripts.UnwrittenFiles();
    if (failures.empty()) return;
    std::string descriptions;
    for (const Error& failure : failures)
        descriptions += (descriptions.empty() ? "" : "; ") + failure.Description();
    throw Error(failures.front().Number(), descriptions);
}

/// One run of one dialect; the paths of its files. Every run has an instance of its own: the create script of
/// foreign keys grows from run to run of one instance.
std::vector<std::string> RunDialect(const Dialect& dialect, const ScriptOptions& options, Console& console) {
    const Session session(console);
    const auto scripts = std::make_shared<clsCreateDb>(session.platform);
    scripts->ScriptFilePath(options.out);
    if (dialect.run != nullptr) {
        (scripts.get()->*dialect.run)(options.repository, options.storage, options.fkPrefix);
    } else {
        for (const std::string& note :
             scripts->DoEngineDb(dialect.name, options.repository, options.storage, options.fkPrefix))
            console.Message(dialect.name + ": " + note);
    }
    ExpectAllWritten(*scripts);
    session.ExpectNoFailedQuery("the " + dialect.name + " scripts in " + options.out + " are not complete");
    return session.desktop->Paths();
}

void RunScript(const ScriptOptions& options, Console& console) {
    CheckBeforeRun(options, console);
    CreateFolder(options.out);
    const std::vector<Dialect> dialects = ChosenDialects(options.dialect);
    std::vector<std::string> paths;
    {
        std::optional<Progress> progress;
        if (!options.quiet) progress.emplace(console, "dialects", dialects.size());
        for (const Dialect& dialect : dialects) {
            for (const std::string& path : RunDialect(dialect, options, console)) {
                if (!options.quiet) console.Results() << path << '\n';
                paths.push_back(path);
            }
            console.Step();
        }
    }
    console.Finish();
    if (options.open) OpenInEditor(paths);
}

}  // namespace

void AddScriptCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "script", "Write the SQL script files of a definition",
                   "korvex script orders.db --dialect all --out sql", RunScript);
    AddRepositoryOption(command, options);
    std::vector<std::string> names;
    for (const Dialect& dialect : AllDialects())
        names.push_back(dialect.name);
    names.insert(names.end(), {"all", "all-engines"});
    AddChoice(command, "--dialect", "NAME", options.dialect, names,
              "mssql, oracle, sybase (all: these three), sqlite, mariadb, postgresql (all-engines)")
        ->required();
    AddStorageOption(command, options, "; without it all definitions go into the same files");
    AddFKPrefixOption(command, options);
    AddOption(command, "--out", "FOLDER", options.out,
              "Folder of the files, created when missing (the current one)");
    command.add_flag("--open", options.open, "Open the files in $VISUAL, $EDITOR or xdg-open");
    command.add_flag("--quiet", options.quiet, "Print neither the paths nor a progress line");
}

}  // namespace korvex::cli
