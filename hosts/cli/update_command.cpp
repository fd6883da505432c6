#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/data/json_input.h"
#include "hosts/cli/data/result_text.h"
#include "hosts/objects/json.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct UpdateOptions {
    DataOptions data;
    std::string key;
    bool retainRoot = false;
    std::string file = "-";
};

using DefinitionRef = std::shared_ptr<objects::Definition>;

/// The stored object takes what the text says, and what differs is written.
void Update(const DataSession& session, const DefinitionRef& definition, std::int32_t key,
            const std::string& file, Console& console) {
    clsCRUD& crud = session.Crud();
    const auto object = std::make_shared<objects::DataObject>(definition);
    const std::int32_t loaded = crud.DbGetData(object, key);
    session.ExpectAllOpened();
    if (loaded < 1) session.FailWithLastResult();
    WithJsonFile(file, [&](const std::string& text) { objects::ApplyJson(*object, text); });
    const std::int32_t updated = crud.DbUpdateData(object, key);
    const dbResults result = crud.LastResult();
    session.ExpectAllOpened();
    if (result == dbObjectNotModified) {
        console.Message(std::string(TextOf(result).name) + ": " + std::string(TextOf(result).meaning));
    } else if (updated < 1) {
        session.Fail(result);
    }
}

/// The text is the whole new object under the old key.
void Replace(const DataSession& session, const DefinitionRef& definition, std::int32_t key,
             const std::string& file) {
    const auto object =
        WithJsonFile(file, [&](const std::string& text) { return objects::FromJson(definition, text); });
    const std::int32_t updated = session.Crud().DbUpdateDataRetainRoot(object, key);
    session.ExpectAllOpened();
    if (updated < 1) session.FailWithLastResult();
}

void RunUpdate(const UpdateOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const DefinitionRef definition = OpenDefinition(options.data, console);
    const DataSession session(options.data.connection, options.data.fkPrefix, console);
    Transaction transaction(session.Crud());
    if (options.retainRoot) {
        Replace(session, definition, key, options.file);
    } else {
        Update(session, definition, key, options.file, console);
    }
    transaction.Commit();
}

}  // namespace

void AddUpdateCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<UpdateOptions>();
    CLI::App* command = parent.add_subcommand("update", "Change a stored object as a JSON file says");
    AddDataOptions(*command, options->data);
    AddKeyOption(*command, options->key);
    command->add_flag("--retain-root", options->retainRoot,
                      "The file is the whole object: keep only the key, and replace everything else");
    AddJsonFile(*command, options->file);
    command->callback([options, &console] { RunUpdate(*options, console); });
}

}  // namespace korvex::cli
