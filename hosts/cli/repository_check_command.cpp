#include "automation/text.h"
#include "hosts/cli/app.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/session.h"
#include "hosts/cli/wording.h"

#include <nlohmann/json.hpp>

#include <string>

namespace korvex::cli {

namespace {

using Json = nlohmann::ordered_json;

struct CheckOptions : CommonOptions {
    std::string dialect;
};

void WriteDocument(const Findings& findings, Json& document) {
    document["errors"] = findings.Count(Severity::Error);
    document["warnings"] = findings.Count(Severity::Warning);
    Json& list = document["findings"] = Json::array();
    for (const Finding& finding : findings.All())
        list.push_back({{"severity", WordOf(finding.severity)},
                        {"text", finding.text},
                        {"endangersData", finding.endangersData}});
}

void RunCheck(const CheckOptions& options, Console& console) {
    const repository::Catalog catalog = ReadCatalog(options, console, false);
    Findings findings = CheckCatalog(catalog, options.fkPrefix);
    for (const scriptgen::EngineDialect* dialect : scriptgen::AllEngineDialects()) {
        if (options.dialect == dialect->Name() || options.dialect == "all-engines")
            CheckForEngine(catalog, options.fkPrefix, *dialect, findings);
    }
    const std::size_t errors = findings.Count(Severity::Error);
    if (console.Document() != nullptr) {
        WriteDocument(findings, *console.Document());
    } else {
        for (const Finding& finding : findings.All()) {
            constexpr std::size_t longest = 1000;
            console.Result(std::string(WordOf(finding.severity)) + ": " +
                           automation::Readable(finding.text, longest));
        }
        console.Message(CountText(errors, "error") + ", " +
                        CountText(findings.Count(Severity::Warning), "warning"));
    }
    if (errors > 0) throw CLI::RuntimeError(ExitFailed);
}

}  // namespace

void AddRepositoryCheckCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand<CheckOptions>(
        parent, console, "check", "Report what is wrong, or would go wrong in a run, with the definitions",
        "korvex repository check orders.db --dialect all-engines", RunCheck);
    AddRepositoryOption(command, options);
    AddFKPrefixOption(command, options, " in the runs (FK_)");
    AddChoice(command, "--dialect", "NAME", options.dialect,
              {"sqlite", "mariadb", "postgresql", "all-engines"},
              "Report as errors what an engine will not take: sqlite, mariadb, postgresql, all-engines");
    AddFormatOption(command, console);
}

}  // namespace korvex::cli
