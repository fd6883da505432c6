#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"
#include "repository/names.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

struct ImportOptions {
    std::vector<std::string> words;
    std::string repository;
    std::string model;

    void TakeWords() {
        if (repository.empty() && words.size() < 2) throw CLI::RequiredError("MODEL");
        if (!repository.empty() && words.size() > 1)
            throw CLI::ParseError("The repository is named twice.", CLI::ExitCodes::InvalidError);
        if (repository.empty()) repository = words.front();
        model = words.back();
    }
};

void RunImport(const ImportOptions& options, Console& console) {
    const Model model = ReadModel(options.model);
    ExpectWritable(options.repository);
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
    command
        ->add_option("R_MODEL", options->words, "R, unless --repository names it, and the model file (JSON)")
        ->required()
        ->expected(1, 2)
        ->type_name("R MODEL");
    command->add_option("--repository", options->repository, "Repository file, or ODBC string with DSN=")
        ->type_name("R");
    command->callback([options, &console] {
        options->TakeWords();
        RunImport(*options, console);
    });
}

}  // namespace korvex::cli
