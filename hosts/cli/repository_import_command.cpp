#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"
#include "repository/catalog.h"
#include "repository/names.h"
#include "repository/whole_tables.h"

#include <algorithm>
#include <filesystem>
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

bool IsEmpty(dao::Database& database) {
    return std::ranges::all_of(repository::ReadAll(database),
                               [](const dao::WholeTable& table) { return table.values.empty(); });
}

/// Adds what another repository holds. Where there is nothing yet its rows are taken over as they stand, also
/// those that no model can say.
Model AddRepository(repository::Repository& from, dao::Database& to, Console& console) {
    ExportedModel exported = ExportModel(repository::Catalog::Read(from.Open()), "");
    if (IsEmpty(to)) {
        repository::AddRows(to, repository::ReadAll(from.Open()));
    } else {
        for (const std::string& what : exported.leftOut)
            console.Message("Left out: " + what);
        ImportModel(exported.model, to);
    }
    return std::move(exported.model);
}

void RunImport(const ImportOptions& options, Console& console) {
    const SourceKind kind = KindOfSource(options.model);
    const bool isRepository =
        kind == SourceKind::Odbc || (kind == SourceKind::File && std::filesystem::exists(options.model));
    Model model = isRepository ? Model() : ReadModel(options.model);
    ExpectWritable(options.repository);
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    if (isRepository) {
        repository::Repository from(Session(console).platform);
        OpenComplete(from, options.model);
        model = AddRepository(from, repository.Open(), console);
    } else {
        ImportModel(model, repository.Open());
    }
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
        parent.add_subcommand("import", "Add the definitions of a model or of another repository");
    command
        ->add_option("R_MODEL", options->words,
                     "R, unless --repository names it, and the model file (JSON) or repository to add")
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
