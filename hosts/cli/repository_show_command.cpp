#include "automation/error.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_writer.h"
#include "hosts/cli/program.h"
#include "hosts/cli/session.h"
#include "hosts/cli/show/page.h"
#include "hosts/cli/show/render.h"
#include "hosts/cli/source.h"

#include <filesystem>
#include <string>

namespace korvex::cli {

namespace {

struct ShowOptions : CommonOptions {
    std::string format = "tree";
    std::string out;
    bool open = false;
};

/// The definitions as they stand.
std::string RenderModel(const repository::Catalog& catalog, const ShowOptions& options, Console& console) {
    const Model exported = ExportModel(catalog, options.storage);
    console.TellLeftOut(exported.leftOut);
    return options.format == "json" ? ModelText(exported) : TreeText(exported);
}

std::string Svg(const ShownDefinition& shown) {
    Picture picture = DrawPicture(shown);
    if (picture.svg.empty()) throw automation::Error(automation::CannotCreateObject, picture.problem);
    return std::move(picture.svg);
}

/// A file by its name alone: where it stands is the reader's business, and strings may hold passwords.
std::string SourceName(const std::string& place) {
    return KindOfSource(place) == SourceKind::Odbc ? "an ODBC source"
                                                   : std::filesystem::path(place).filename().string();
}

std::string Page(const ShownDefinition& shown, const repository::Catalog& catalog, const ShowOptions& options,
                 Console& console) {
    const Findings findings = CheckCatalog(catalog, options.fkPrefix, options.storage);
    const Picture picture = DrawForPage(shown);
    if (picture.svg.empty()) console.Message(picture.problem);
    return PageText({SourceName(options.repository), shown, findings, picture});
}

/// The definitions with the keys and tables that a run gives them.
std::string RenderShown(const repository::Catalog& catalog, const ShowOptions& options, Console& console) {
    const ShownDefinition shown(catalog, options.storage, options.fkPrefix);
    console.TellLeftOut(shown.LeftOut());
    if (options.format == "mermaid") return MermaidText(shown);
    if (options.format == "dot") return DotText(shown);
    return options.format == "svg" ? Svg(shown) : Page(shown, catalog, options, console);
}

void RunShow(const ShowOptions& options, Console& console) {
    const repository::Catalog catalog = ReadCatalog(options, console, !options.storage.empty());
    const bool isModel = options.format == "tree" || options.format == "json";
    const std::string text = (isModel ? RenderModel : RenderShown)(catalog, options, console);
    if (options.out.empty()) {
        console.Results() << text;
        return;
    }
    Session(console).platform.files->WriteText(options.out, text, "");
    if (options.open) OpenInBrowser(options.out);
}

}  // namespace

void AddRepositoryShowCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "show", "Print definitions as a tree, as JSON, as a diagram or as a page",
                   "korvex repository show orders.db --format html --out orders.html --open", RunShow);
    AddRepositoryOption(command, options);
    AddStorageOption(command, options, " (all of them)");
    AddChoice(command, "--format", "FORMAT", options.format,
              {"tree", "json", "mermaid", "dot", "svg", "html"},
              "tree (the default), json, mermaid, dot, svg or html");
    AddFKPrefixOption(command, options, " in diagrams (FK_)");
    CLI::Option* out = AddOption(command, "--out", "FILE", options.out, "File to write to (standard output)");
    command.add_flag("--open", options.open, "Open the file in $BROWSER, else with xdg-open")->needs(out);
}

}  // namespace korvex::cli
