#include "automation/convert.h"
#include "hosts/cli/app.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/data/json_input.h"
#include "objects/json.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct UpdateOptions : KeyOptions {
    bool retainRoot = false;
    std::string file = "-";
};

/// The key of the option counts, whatever key the file gives.
void KeepKey(objects::DataObject& object, std::int32_t key, const std::string& file, Console& console) {
    const auto* definition = object.Type().KeyValue();
    if (definition == nullptr) return;
    const automation::Variant given = object.Value(definition->Index());
    if (given.IsEmpty() || given == automation::Variant(key)) return;
    console.Message(JsonFileName(file) + ": " + definition->Info().name + " is " +
                    (given.IsNull() ? "null" : automation::ToString(given)) +
                    ", which is passed over: --key names the record " + std::to_string(key) + ".");
    object.Value(definition->Index(), key);
}

/// The stored object takes what the text says, and what differs is written.
std::int32_t Update(const DataSession& session, const UpdateOptions& options,
                    objects::DataObject::Shared object, std::int32_t key, Console& console) {
    clsCRUD& crud = session.Crud();
    session.Load(object, key);
    WithJsonFile(options.file, console, [&](const auto& text, auto& unstored) {
        objects::ApplyJson(*object, text, &unstored);
        return true;
    });
    KeepKey(*object, key, options.file, console);
    const std::int32_t updated = crud.DbUpdateData(object, key);
    if (updated < 1 && crud.LastResult() == dbNoMatchingRecord) {
        console.Message(
            std::string(NameOf(dbNoMatchingRecord)) +
            ": A record that the file changes has been deleted meanwhile, and nothing is changed. "
            "Load the object again.");
        throw CLI::RuntimeError(ExitFailed);
    }
    return updated;
}

/// The text is the whole new object under the old key.
std::int32_t Replace(const DataSession& session, const UpdateOptions& options,
                     const std::shared_ptr<objects::Definition>& definition, std::int32_t key,
                     Console& console) {
    const auto object = WithJsonFile(options.file, console, [&](const auto& text, auto& unstored) {
        auto whole = std::make_shared<objects::DataObject>(definition);
        objects::ApplyJson(*whole, text, &unstored);
        return whole;
    });
    KeepKey(*object, key, options.file, console);
    return session.Crud().DbUpdateDataRetainRoot(object, key);
}

void RunUpdate(const UpdateOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const auto definition = OpenDefinitionForWriting(options, console);
    const DataSession session(options, console);
    ado::Transaction transaction(session.Crud().DbConn());
    const std::int32_t updated =
        options.retainRoot
            ? Replace(session, options, definition, key, console)
            : Update(session, options, std::make_shared<objects::DataObject>(definition), key, console);
    session.ExpectAllOpened();
    if (updated < 1) session.FailWithLastResult(RecordText(*definition, key));
    const ResultText& unchanged = TextOf(dbObjectNotModified);
    if (session.Crud().Writes() == 0)
        console.Message(std::string(NameOf(unchanged.code)) + ": " + std::string(unchanged.meaning));
    transaction.Commit();
}

}  // namespace

void AddUpdateCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand<UpdateOptions>(parent, console, "update", "Change a stored object as a JSON file says",
                                  DataExample("update", "--key 1 order.json"), RunUpdate);
    AddDataOptions(command, options);
    AddKeyOption(command, options);
    command.add_flag("--retain-root", options.retainRoot,
                     "The file is the whole object: keep only the key, and replace everything else");
    AddJsonFile(command, options.file);
}

}  // namespace korvex::cli
