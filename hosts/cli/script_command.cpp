#include "automation/error.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/editor.h"
#include "hosts/cli/session.h"
#include "surface/cls_create_db.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::Variant;

struct ScriptOptions {
    std::string repository;
    std::string dialect;
    std::string storage;
    std::optional<std::string> fkPrefix;
    std::string out = ".";
    bool open = false;
    bool quiet = false;
};

struct Dialect {
    const char* name;
    void (clsCreateDb::*run)(const std::string& FileName, const std::string& storageName,
                             const Variant& sFKPrefix);
};

constexpr Dialect Dialects[] = {{"mssql", &clsCreateDb::DoMSsqlDb},
                                {"oracle", &clsCreateDb::DoOracleDb},
                                {"sybase", &clsCreateDb::DoSybaseDb}};

std::vector<Dialect> ChosenDialects(const std::string& name) {
    std::vector<Dialect> chosen;
    for (const Dialect& dialect : Dialects) {
        if (name == "all" || name == dialect.name) chosen.push_back(dialect);
    }
    return chosen;
}

void CreateFolder(const std::string& folder) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    // An existing link to a folder counts as a failure above on some systems.
    if (!failure || std::filesystem::is_directory(folder)) return;
    throw Error(automation::PathFileAccessError,
                "The folder cannot be created: " + folder + " (" + failure.message() + ")");
}

/// A run raises the failure of its first file only; the others are told here.
void ExpectAllWritten(const RecordingFiles& files) {
    if (files.Failures().empty()) return;
    std::string descriptions;
    for (const Error& failure : files.Failures()) {
        descriptions += (descriptions.empty() ? "" : "; ") + failure.Description();
    }
    throw Error(files.Failures().front().Number(), descriptions);
}

/// One run of one dialect; the paths of its files. Every run has an instance of its own: the create script of
/// foreign keys grows from run to run of one instance.
std::vector<std::string> RunDialect(const Dialect& dialect, const ScriptOptions& options, Console& console) {
    const Session session(console);
    const auto scripts = std::make_shared<clsCreateDb>(session.platform);
    scripts->ScriptFilePath(options.out);
    const Variant prefix = options.fkPrefix ? Variant(*options.fkPrefix) : Variant::Missing();
    (scripts.get()->*dialect.run)(options.repository, options.storage, prefix);
    ExpectAllWritten(*session.files);
    session.ExpectNoFailedQuery("the " + std::string(dialect.name) + " scripts in " + options.out +
                                " are not complete");
    return session.desktop->Paths();
}

void RunScript(const ScriptOptions& options, Console& console) {
    CheckBeforeRun(Session(console).platform, options.repository, options.storage);
    CreateFolder(options.out);
    const std::vector<Dialect> dialects = ChosenDialects(options.dialect);
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < dialects.size(); ++i) {
        if (!options.quiet) {
            console.Progress(std::string(dialects[i].name) + " (" + std::to_string(i + 1) + " of " +
                             std::to_string(dialects.size()) + ")");
        }
        for (const std::string& path : RunDialect(dialects[i], options, console)) {
            if (!options.quiet) console.Results() << path << '\n';
            paths.push_back(path);
        }
    }
    console.Finish();
    if (options.open) OpenInEditor(paths);
}

}  // namespace

void AddScriptCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<ScriptOptions>();
    CLI::App* command = parent.add_subcommand("script", "Write the SQL script files of a definition");
    command->add_option("--repository", options->repository, "Repository file, or ODBC string with DSN=")
        ->required()
        ->type_name("R");
    command->add_option("--dialect", options->dialect, "mssql, oracle, sybase or all")
        ->required()
        ->type_name("NAME")
        ->check(CLI::IsMember({"mssql", "oracle", "sybase", "all"}));
    command
        ->add_option("--storage", options->storage,
                     "Storage name of the definition; without it all definitions go into the same files")
        ->type_name("NAME");
    command->add_option("--fk-prefix", options->fkPrefix, "Prefix of foreign-key columns (FK_ unless given)")
        ->type_name("P");
    command->add_option("--out", options->out, "Folder of the files, created when missing (the current one)")
        ->type_name("FOLDER");
    command->add_flag("--open", options->open, "Open the files in $VISUAL, $EDITOR or xdg-open");
    command->add_flag("--quiet", options->quiet, "Print neither the paths nor a progress line");
    command->callback([options, &console] { RunScript(*options, console); });
}

}  // namespace korvex::cli
