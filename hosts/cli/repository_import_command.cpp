#include "hosts/cli/check/check.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/session.h"
#include "hosts/cli/shell/variables.h"
#include "hosts/cli/source.h"
#include "repository/names.h"
#include "repository/whole_tables.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

struct ImportOptions : CommonOptions {
    std::vector<std::string> words;
    bool replace = false;
    bool isDry = false;
};

/// The repository of the words, the option or the variable.
std::string PlaceOf(const ImportOptions& options) {
    std::string place = options.repository;
    const bool isInWords = options.words.size() > 1;
    if (place.empty() && !isInWords) place = ValueOf(RepositoryVariable);
    if (place.empty() && !isInWords) throw CLI::RequiredError("MODEL");
    if (!place.empty() && isInWords)
        throw CLI::ParseError("The repository is named twice.", CLI::ExitCodes::InvalidError);
    if (options.isDry && !options.replace)
        throw CLI::ParseError("--dry-run goes with --replace.", CLI::ExitCodes::InvalidError);
    return isInWords ? options.words.front() : place;
}

void Warn(const Model& model, dao::Database& database, Console& console) {
    const repository::Catalog catalog = repository::Catalog::Read(database);
    Findings findings;
    for (const ModelDefinition& definition : model.definitions)
        CheckDefinitions(catalog, definition.storage, repository::DefaultFKPrefix, findings);
    WarnOfDanger(findings, console);
}

bool IsEmpty(dao::Database& database) {
    return std::ranges::all_of(repository::ReadAll(database),
                               [](const dao::WholeTable& table) { return table.values.empty(); });
}

/// What another repository holds, as a model with the places of its JSON form.
Model ModelOf(repository::Repository& from, Console& console) {
    Model model = ExportModel(repository::Catalog::Read(from.Open()), "");
    console.TellLeftOut(model.leftOut);
    for (std::size_t i = 0; i < model.definitions.size(); ++i)
        model.definitions[i].place = "definitions[" + std::to_string(i) + "]";
    for (std::size_t i = 0; i < model.objects.size(); ++i)
        model.objects[i].place = "objects[" + std::to_string(i) + "]";
    return model;
}

void RunImport(const ImportOptions& options, Console& console) {
    const std::string place = PlaceOf(options);
    const std::string& source = options.words.back();
    const SourceKind kind = KindOfSource(source);
    const bool isRepository =
        kind == SourceKind::Odbc || (kind == SourceKind::File && std::filesystem::exists(source));
    Model model = isRepository ? Model() : ReadModel(source);
    ExpectWritable(place);
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, place);
    repository::Repository from(Session(console).platform);
    if (isRepository) OpenComplete(from, source);
    // Where there is nothing yet, rows are taken over as they stand, also those that no model can say.
    const bool isCopy = isRepository && !options.isDry && IsEmpty(repository.Open());
    if (isCopy) {
        repository::AddRows(repository.Open(), repository::ReadAll(from.Open()));
        model = ExportModel(repository::Catalog::Read(repository.Open()), "");
    } else if (isRepository) {
        model = ModelOf(from, console);
    }
    if (options.replace && !isCopy) {
        console.Lines(ReplaceDefinitions(model, {}, repository.Open(), options.isDry));
    } else if (!isCopy) {
        ImportModel(model, repository.Open());
    }
    if (!options.isDry) Warn(model, repository.Open(), console);
}

}  // namespace

void AddRepositoryImportCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "import", "Add the definitions of a model or of another repository",
                   "korvex repository import orders.db orders.json --replace", RunImport);
    AddOption(command, "R_MODEL", "R MODEL", options.words,
              "R, unless --repository names it, and the model file (JSON) or repository to add")
        ->required()
        ->expected(1, 2);
    AddOption(command, "--repository", "R", options.repository,
              "Repository file, or ODBC string with DSN=; KORVEX_REPOSITORY stands in for it");
    command.add_flag("--replace", options.replace,
                     "Bring definitions that are there already to the model's state; prints what changes");
    command.add_flag("--dry-run", options.isDry, "Print what --replace would change, and change nothing");
}

}  // namespace korvex::cli
