#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "objects/json_schema.h"

namespace korvex::cli {

namespace {

void PrintSchema(const CommonOptions& options, Console& console) {
    console.Results() << objects::JsonSchema(OpenDefinition(options, console));
}

}  // namespace

void AddSchemaCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(
        parent, console, "schema", "Print the JSON Schema of what save takes for a definition's objects",
        "korvex schema orders.db --storage Orders > orders.schema.json", PrintSchema);
    AddRepositoryOption(command, options);
    AddStorageOption(command, options)->required();
    AddFKPrefixOption(command, options);
}

}  // namespace korvex::cli
