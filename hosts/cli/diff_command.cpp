#include "automation/error.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/diff_source.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/variables.h"
#include "hosts/cli/text_file.h"

#include <nlohmann/json.hpp>

#include <filesystem>

namespace korvex::cli {

namespace {

using automation::Error;
using Json = nlohmann::ordered_json;

constexpr int ExitChanges = 3;

struct DiffCommand {
    std::vector<std::string> sources;
    std::string connection;
    std::string dialect;
    std::string out;
    std::string format = "text";
    bool exitCode = false;
    DiffSettings settings;
};

std::unique_ptr<scriptgen::DefinitionDiff> CompareSources(DiffCommand& command, Console& console) {
    if (command.sources.size() == 1 && command.connection.empty())
        command.connection = ValueOf(ConnectionVariable);
    const bool isLive = !command.connection.empty();
    if (command.sources.size() != (isLive ? 1U : 2U))
        throw CLI::ValidationError("diff", isLive ? "NEW alone stands beside --connection"
                                                  : "two definitions are compared: OLD NEW");
    if (!isLive && command.dialect.empty()) throw CLI::RequiredError("--dialect");
    const DefinitionState now = DescribeSource(command.sources.back(), command.settings, console);
    if (!isLive)
        return Compare(command.dialect, DescribeSource(command.sources.front(), command.settings, console),
                       now, command.settings);
    const auto connection = Session(console).platform.targetProvider->CreateConnection();
    connection->Open(command.connection);
    const scriptgen::EngineDialect& dialect = ReadableDialect(*connection);
    if (!command.dialect.empty() && command.dialect != dialect.Name())
        throw Error(
            automation::InvalidProcedureCall,
            "The connection leads to " + std::string(dialect.Name()) + ", not to " + command.dialect + ".");
    return CompareLive(dialect, *connection, now, command.settings);
}

std::string WriteScript(const scriptgen::DefinitionDiff& diff, const DiffCommand& command, Console& console) {
    if (command.out.empty()) return {};
    CreateFolder(command.out);
    const Session session(console);
    std::string path = (std::filesystem::path(command.out) / diff.FileName()).string();
    session.platform.files->WriteText(path, diff.Script(command.settings.allowsLoss), "");
    return path;
}

void RunDiff(DiffCommand& command, Console& console) {
    const auto diff = CompareSources(command, console);
    const std::string path = WriteScript(*diff, command, console);
    if (command.format == "json") {
        Json document = {{"changes", ChangesJson(*diff)}};
        if (!path.empty()) document["script"] = path;
        console.Results() << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
        PrintChanges(*diff, console);
        if (!path.empty()) console.Results() << path << '\n';
    }
    if (command.exitCode && !diff->Changes().empty()) throw CLI::RuntimeError(ExitChanges);
}

}  // namespace

void AddDiffCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<DiffCommand>();
    CLI::App* command = parent.add_subcommand("diff", "Compare two states of a definition");
    command
        ->add_option("sources", options->sources,
                     "OLD NEW: repository files, ODBC strings with DSN=, or models (JSON)")
        ->required()
        ->expected(1, 2)
        ->type_name("OLD NEW");
    command
        ->add_option(
            "--connection", options->connection,
            "In place of OLD: a database as it stands; KORVEX_CONNECTION stands in for it where NEW is alone")
        ->type_name("C");
    command->add_option("--dialect", options->dialect, "sqlite, mariadb, postgresql, mssql or oracle")
        ->type_name("D")
        ->check(CLI::IsMember({"sqlite", "mariadb", "postgresql", "mssql", "oracle", "sybase"}));
    command->add_option("--out", options->out, "Folder of the script, created when missing")
        ->type_name("FOLDER");
    command->add_option("--format", options->format, "text (the default) or json")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"text", "json"}));
    command->add_flag("--exit-code", options->exitCode, "End with 3 when there are changes");
    AddDiffOptions(*command, options->settings);
    AddExample(*command, "korvex diff old.json orders.db --dialect sqlite --out sql");
    command->callback([options, &console] { RunDiff(*options, console); });
}

}  // namespace korvex::cli
