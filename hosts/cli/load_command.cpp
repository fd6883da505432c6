#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/shell/progress.h"
#include "objects/find.h"
#include "objects/json.h"

#include <memory>
#include <vector>

namespace korvex::cli {

namespace {

struct LoadOptions : KeyOptions {
    bool isAll = false;
};

void Load(const LoadOptions& options, const std::shared_ptr<objects::Definition>& definition,
          std::int32_t key, const DataSession& session, Console& console) {
    const auto object = std::make_shared<objects::DataObject>(definition);
    session.Load(object, key);
    const bool isOne = !options.isAll && options.key != "-";
    console.Results() << objects::ToJson(*object,
                                         isOne ? objects::JsonForm::Indented : objects::JsonForm::Line);
}

/// The keys of all objects; those of records that are no objects (0 and less) left aside.
std::vector<std::int32_t> AllKeys(objects::Definition& definition, const DataSession& session) {
    const objects::ValueDefinition* key = definition.KeyValue();
    objects::Search search;
    if (key != nullptr) search.fields.push_back(key->Info().name);
    objects::FoundObjects found = objects::Find(definition, session.Crud().DbConn(), search);
    std::vector<std::int32_t> keys;
    while (const auto object = found.Next())
        if (object->key > 0) keys.push_back(object->key);
    return keys;
}

void RunLoad(const LoadOptions& options, Console& console) {
    if (!options.isAll && options.key.empty()) throw CLI::RequiredError("--key or --all");
    const auto keys = options.isAll ? std::vector<std::int32_t>() : ReadKeys(options.key);
    const auto definition = OpenDefinition(options, console);
    const DataSession session(options, console);
    const auto wanted = options.isAll ? AllKeys(*definition, session) : keys;
    const Progress progress(console, "objects", wanted.size());
    for (const std::int32_t key : wanted) {
        Load(options, definition, key, session, console);
        console.Step();
    }
}

}  // namespace

void AddLoadCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(parent, console, "load", "Print stored objects as JSON",
                                               DataExample("load", "--key 1 > loaded.json"), RunLoad);
    AddDataOptions(command, options);
    CLI::Option* all = command.add_flag("--all", options.isAll, "All objects; as with -, one a line");
    AddKeyOption(command, options)
        ->required(false)
        ->excludes(all)
        ->description("Key of the record; - for keys on standard input, one a line");
}

}  // namespace korvex::cli
