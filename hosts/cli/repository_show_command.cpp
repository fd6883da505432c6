#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_writer.h"
#include "hosts/cli/session.h"
#include "hosts/cli/show/render.h"
#include "hosts/cli/source.h"
#include "repository/catalog.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct ShowOptions {
    std::string repository;
    std::string storage;
    std::string format = "tree";
};

std::string Render(const Model& model, const std::string& format) {
    if (format == "json") return ModelText(model);
    if (format == "mermaid") return MermaidText(model);
    if (format == "dot") return DotText(model);
    return TreeText(model);
}

void RunShow(const ShowOptions& options, Console& console) {
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    if (!options.storage.empty()) ExpectStorage(repository, options.storage);
    const ExportedModel exported = ExportModel(repository::Catalog::Read(repository.Open()), options.storage);
    repository.Close();
    for (const std::string& what : exported.leftOut) {
        console.Message("Left out: " + what);
    }
    console.Results() << Render(exported.model, options.format);
}

}  // namespace

void AddRepositoryShowCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* command = parent.add_subcommand("show", "Print definitions as a tree, as JSON or as a diagram");
    AddRepositoryOption(*command, options->repository);
    command->add_option("--storage", options->storage, "Storage name of the definition (all of them)")
        ->type_name("NAME");
    command->add_option("--format", options->format, "tree (the default), json, mermaid or dot")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"tree", "json", "mermaid", "dot"}));
    command->callback([options, &console] { RunShow(*options, console); });
}

}  // namespace korvex::cli
