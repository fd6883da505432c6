#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/session.h"
#include "repository/names.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct ImportOptions {
    std::string repository;
    std::string model;
};

void RunImport(const ImportOptions& options, Console& console) {
    const Model model = ReadModel(options.model);
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    ImportModel(model, repository.Open());
    const repository::Catalog catalog = repository::Catalog::Read(repository.Open());
    repository.Close();
    Findings findings;
    for (const ModelDefinition& definition : model.definitions)
        CheckDefinitions(catalog, definition.storage, repository::DefaultFKPrefix, findings);
    WarnOfDanger(findings, console);
}

}  // namespace

void AddRepositoryImportCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<ImportOptions>();
    CLI::App* command =
        parent.add_subcommand("import", "Add the definitions of a JSON model to a repository");
    command->add_option("FILE", options->repository, "Repository file, or ODBC string with DSN=")->required();
    command->add_option("MODEL", options->model, "Model file (JSON)")->required();
    command->callback([options, &console] { RunImport(*options, console); });
}

}  // namespace korvex::cli
