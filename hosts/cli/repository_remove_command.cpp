#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"

namespace korvex::cli {

namespace {

struct RemoveOptions : CommonOptions {
    bool isDry = false;
};

void RunRemove(const RemoveOptions& options, Console& console) {
    ExpectWritable(options.repository);
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    ExpectStorage(repository, options.storage);
    console.Lines(ReplaceDefinitions({}, {&options.storage, 1}, repository.Open(), options.isDry));
}

}  // namespace

void AddRepositoryRemoveCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "remove", "Remove a definition, with all objects that no other one uses",
                   "korvex repository remove orders.db --storage Orders --dry-run", RunRemove);
    AddRepositoryOption(command, options);
    AddStorageOption(command, options)->required();
    command.add_flag("--dry-run", options.isDry, "Print what would be removed, and change nothing");
}

}  // namespace korvex::cli
