#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/source.h"
#include "objects/json_schema.h"

#include <memory>

namespace korvex::cli {

void AddSchemaCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<DataOptions>();
    CLI::App* command = parent.add_subcommand(
        "schema", "Print the JSON Schema of what save takes for a definition's objects");
    AddRepositoryOption(*command, options->repository);
    AddStorageOption(*command, options->storage)->required();
    command->add_option("--fk-prefix", options->fkPrefix, "Prefix of foreign-key columns (FK_ unless given)")
        ->type_name("P");
    AddExample(*command, "korvex schema orders.db --storage Orders > orders.schema.json");
    command->callback(
        [options, &console] { console.Results() << objects::JsonSchema(OpenDefinition(*options, console)); });
}

}  // namespace korvex::cli
