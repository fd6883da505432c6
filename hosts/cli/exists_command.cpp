#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"

#include <memory>

namespace korvex::cli {

namespace {

void RunExists(const KeyOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const auto object = std::make_shared<objects::DataObject>(OpenDefinition(options, console));
    console.Results() << (DataSession(options, console).Exists(object, key) ? "true" : "false") << '\n';
}

}  // namespace

void AddExistsCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "exists", "Print whether a record has that key: true or false",
                   DataExample("exists", "--key 1"), RunExists);
    AddDataOptions(command, options);
    AddKeyOption(command, options);
}

}  // namespace korvex::cli
