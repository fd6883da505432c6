#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/shell/progress.h"
#include "objects/find.h"
#include "objects/json.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <vector>

/// The commands on stored objects that are named by their keys: load, delete and exists.
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

void Delete(const std::shared_ptr<objects::Definition>& definition, std::int32_t key,
            const DataSession& session) {
    const auto object = std::make_shared<objects::DataObject>(definition);
    // Afterwards a missing record could not be told from one without a child: both leave the same code.
    if (!session.Exists(object, key))
        session.Fail(dbNoMatchingRecord, "There is no " + RecordText(object->Type(), key) + ".");
    session.ExpectUsableKey(object, key);
    const std::int32_t deleted = session.Crud().DbDeleteData(object, key);
    session.ExpectAllOpened();
    if (deleted < 1) session.FailWithLastResult();
}

/// All of the keys or none.
void RunDelete(const KeyOptions& options, Console& console) {
    const std::vector<std::int32_t> keys = ReadKeys(options.key);
    const auto definition = OpenDefinitionForWriting(options, console);
    const DataSession session(options, console);
    ado::Transaction transaction(session.Crud().DbConn());
    const Progress progress(console, "objects", keys.size());
    for (const std::int32_t key : keys) {
        Delete(definition, key, session);
        console.Step();
    }
    transaction.Commit();
}

void RunExists(const KeyOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const auto object = std::make_shared<objects::DataObject>(OpenDefinition(options, console));
    console.Results() << (DataSession(options, console).Exists(object, key) ? "true" : "false") << '\n';
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

void AddDeleteCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "delete", "Delete stored objects with everything beneath them",
                   DataExample("delete", "--key 1"), RunDelete);
    AddDataOptions(command, options);
    AddKeyOption(command, options)
        ->description(
            "Key of the record; - for keys on standard input, one a line: all are deleted, or none");
}

void AddExistsCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "exists", "Print whether a record has that key: true or false",
                   DataExample("exists", "--key 1"), RunExists);
    AddDataOptions(command, options);
    AddKeyOption(command, options);
}

}  // namespace korvex::cli
