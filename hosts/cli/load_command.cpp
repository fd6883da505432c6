#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "objects/json.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct LoadOptions {
    DataOptions data;
    std::string key;
};

void RunLoad(const LoadOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const auto object = std::make_shared<objects::DataObject>(OpenDefinition(options.data, console));
    const DataSession session(options.data.connection, options.data.fkPrefix, console);
    session.ExpectUsableKey(object, key);
    const std::int32_t loaded = session.Crud().DbGetData(object, key);
    session.ExpectAllOpened();
    if (loaded < 1) session.FailWithLastResult(RecordText(object->Type(), key));
    console.Results() << objects::ToJson(*object) << '\n';
}

}  // namespace

void AddLoadCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<LoadOptions>();
    CLI::App* command = parent.add_subcommand("load", "Print a stored object as JSON");
    AddDataOptions(*command, options->data);
    AddKeyOption(*command, options->key);
    command->callback([options, &console] { RunLoad(*options, console); });
}

}  // namespace korvex::cli
