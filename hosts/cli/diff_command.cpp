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

struct DiffOptions : DiffSettings {
    std::vector<std::string> sources;
    std::string dialect;
    std::string out;
    std::string format = "text";
    bool exitCode = false;
};

std::unique_ptr<scriptgen::DefinitionDiff> CompareSources(const DiffOptions& options, Console& console) {
    const bool isAlone = options.sources.size() == 1 && options.connection.empty();
    const std::string place = isAlone ? ValueOf(ConnectionVariable) : options.connection;
    const bool isLive = !place.empty();
    if (options.sources.size() != (isLive ? 1U : 2U))
        throw CLI::ValidationError("diff", isLive ? "NEW alone stands beside --connection"
                                                  : "two definitions are compared: OLD NEW");
    if (!isLive && options.dialect.empty()) throw CLI::RequiredError("--dialect");
    const DefinitionState now = DescribeSource(options.sources.back(), options, console);
    if (!isLive)
        return Compare(options.dialect, DescribeSource(options.sources.front(), options, console), now,
                       options);
    const auto connection = Session(console).platform.targetProvider->CreateConnection();
    connection->Open(place);
    const scriptgen::EngineDialect& dialect = ReadableDialect(*connection);
    if (!options.dialect.empty() && options.dialect != dialect.Name())
        throw Error(
            automation::InvalidProcedureCall,
            "The connection leads to " + std::string(dialect.Name()) + ", not to " + options.dialect + ".");
    return CompareLive(dialect, *connection, now, options);
}

std::string WriteScript(const scriptgen::DefinitionDiff& diff, const DiffOptions& options, Console& console) {
    if (options.out.empty()) return {};
    CreateFolder(options.out);
    const Session session(console);
    std::string path = (std::filesystem::path(options.out) / diff.FileName()).string();
    session.platform.files->WriteText(path, diff.Script(options.allowsLoss), "");
    return path;
}

void RunDiff(const DiffOptions& options, Console& console) {
    const auto diff = CompareSources(options, console);
    const std::string path = WriteScript(*diff, options, console);
    if (options.format == "json") {
        Json document = {{"changes", ChangesJson(*diff)}};
        if (!path.empty()) document["script"] = path;
        console.Results() << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
        PrintChanges(*diff, console);
        if (!path.empty()) console.Results() << path << '\n';
    }
    if (options.exitCode && !diff->Changes().empty()) throw CLI::RuntimeError(ExitChanges);
}

}  // namespace

void AddDiffCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "diff", "Compare two states of a definition",
                   "korvex diff old.json orders.db --dialect sqlite --out sql", RunDiff);
    AddOption(command, "sources", "OLD NEW", options.sources,
              "OLD NEW: repository files, ODBC strings with DSN=, or models (JSON)")
        ->required()
        ->expected(1, 2);
    AddOption(
        command, "--connection", "C", options.connection,
        "In place of OLD: a database as it stands; KORVEX_CONNECTION stands in for it where NEW is alone");
    AddChoice(command, "--dialect", "D", options.dialect,
              {"sqlite", "mariadb", "postgresql", "mssql", "oracle", "sybase"},
              "sqlite, mariadb, postgresql, mssql or oracle");
    AddOption(command, "--out", "FOLDER", options.out, "Folder of the script, created when missing");
    AddChoice(command, "--format", "FORMAT", options.format, {"text", "json"}, "text (the default) or json");
    command.add_flag("--exit-code", options.exitCode, "End with 3 when there are changes");
    AddDiffOptions(command, options);
}

}  // namespace korvex::cli
