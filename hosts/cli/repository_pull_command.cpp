#include "automation/error.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_pull.h"
#include "hosts/cli/model/model_writer.h"
#include "hosts/cli/session.h"
#include "scriptgen/migration/live_tables.h"
#include "surface/target_tables.h"

#include <filesystem>
#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct PullOptions : CommonOptions {
    std::string model;
};

void RunPull(const PullOptions& options, Console& console) {
    if (std::filesystem::exists(options.model))
        throw automation::Error(automation::PathFileAccessError, "The file exists: " + options.model);
    const Session session(console);
    const std::shared_ptr<ado::Connection> connection = Connect(options.connection, console);
    const scriptgen::EngineDialect& dialect =
        scriptgen::EngineDialectOf(scriptgen::EngineBehind(*connection));
    const Model pulled = PullModel(scriptgen::ReadLiveTables(*connection, dialect), dialect);
    if (pulled.objects.empty())
        throw automation::Error(automation::InvalidProcedureCall, "The database holds no tables.");
    session.platform.files->WriteText(options.model, ModelText(pulled), "");
    for (const std::string& what : pulled.leftOut)
        console.Message(what);
    // Whatever a run names or adds otherwise than the database has it.
    for (const std::string& line : TargetTables(session.platform, options.model).Check(*connection))
        console.Message("another than in the model: " + line);
    console.Results() << options.model << '\n';
}

}  // namespace

void AddRepositoryPullCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(
        parent, console, "pull", "Write the tables of an existing database as a model",
        "korvex repository pull --connection \"Provider=SQLite;Data Source=target.db\" pulled.json", RunPull);
    AddConnectionOption(command, options);
    AddOption(command, "MODEL", "NEW.json", options.model, "Model file to be made (JSON)")->required();
}

}  // namespace korvex::cli
