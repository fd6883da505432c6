#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct ExistsOptions {
    DataOptions data;
    std::string key;
};

void RunExists(const ExistsOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const auto object = std::make_shared<objects::DataObject>(OpenDefinition(options.data, console));
    const DataSession session(options.data.connection, options.data.fkPrefix, console);
    const bool exists = session.Crud().DbDataExists(object, key);
    session.ExpectAllOpened();
    if (!exists && session.Crud().LastResult() != dbNoError) session.FailWithLastResult();
    console.Results() << (exists ? "true" : "false") << '\n';
}

}  // namespace

void AddExistsCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<ExistsOptions>();
    CLI::App* command = parent.add_subcommand("exists", "Print whether a record has that key: true or false");
    AddDataOptions(*command, options->data);
    AddKeyOption(*command, options->key);
    AddExample(
        *command,
        "korvex exists --repository orders.db --storage Orders --connection \"Provider=SQLite;Data Source=target.db\" --key 1");
    command->callback([options, &console] { RunExists(*options, console); });
}

}  // namespace korvex::cli
