#include "hosts/cli/commands.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct RemoveOptions {
    std::string repository;
    std::string storage;
    bool isDry = false;
};

void RunRemove(const RemoveOptions& options, Console& console) {
    ExpectWritable(options.repository);
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    ExpectStorage(repository, options.storage);
    for (const std::string& line :
         ReplaceDefinitions({}, {&options.storage, 1}, repository.Open(), options.isDry))
        console.Results() << line << '\n';
    repository.Close();
}

}  // namespace

void AddRepositoryRemoveCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<RemoveOptions>();
    CLI::App* command =
        parent.add_subcommand("remove", "Remove a definition, with all objects that no other one uses");
    AddRepositoryOption(*command, options->repository);
    AddStorageOption(*command, options->storage)->required();
    command->add_flag("--dry-run", options->isDry, "Print what would be removed, and change nothing");
    AddExample(*command, "korvex repository remove orders.db --storage Orders --dry-run");
    command->callback([options, &console] { RunRemove(*options, console); });
}

}  // namespace korvex::cli
