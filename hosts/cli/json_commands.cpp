#include "automation/convert.h"
#include "automation/error.h"
#include "hosts/cli/app.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/shell/progress.h"
#include "hosts/cli/text_file.h"
#include "objects/json.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <string>
#include <vector>

/// The commands that write objects as a JSON file says: save and update.
namespace korvex::cli {

namespace {

/// The JSON file of a command, standard input unless given.
void AddJsonFile(CLI::App& command, std::string& file) {
    AddOption(command, "FILE", "FILE", file, "JSON file; - for standard input, which is read unless given");
}

std::string JsonFileName(const std::string& file) { return file == "-" ? "standard input" : file; }

/// Hands the text of a JSON file to `read`, with a list for members that are not stored, which are named on
/// the console. Errors leave with the file's name in front.
template <class Read>
auto WithJsonFile(const std::string& file, Console& console, Read&& read) {
    const std::string text = ReadTextFile(file);
    const std::string prefix = JsonFileName(file) + ": ";
    objects::UnstoredMembers unstored;
    try {
        auto result = read(text, unstored);
        for (const std::string& member : unstored)
            console.Message(prefix + member + " is left out: its definition does not have it stored.");
        return result;
    } catch (const automation::Error& error) {
        throw automation::Error(error.Number(), prefix + error.Description(), error.Source());
    }
}

struct SaveOptions : CommonOptions {
    std::string file = "-";
};

using DataObjects = std::vector<std::shared_ptr<objects::DataObject>>;

/// Saves the objects in one transaction; their keys.
std::vector<std::int32_t> SaveAll(const DataSession& session, const DataObjects& objects, Console& console) {
    std::vector<std::int32_t> keys;
    const Progress progress(console, "objects", objects.size());
    ado::Transaction transaction(session.Crud().DbConn());
    for (const auto& object : objects) {
        const std::int32_t key = session.Crud().DbSaveData(object);
        session.ExpectAllOpened();
        if (key < 1) session.FailWithLastResult();
        keys.push_back(key);
        console.Step();
    }
    transaction.Commit();
    return keys;
}

void RunSave(const SaveOptions& options, Console& console) {
    const auto definition = OpenDefinitionForWriting(options, console);
    const DataObjects objects = WithJsonFile(options.file, console, [&](const auto& text, auto& unstored) {
        return objects::ListFromJson(definition, text, &unstored);
    });
    const DataSession session(options, console);
    for (const std::int32_t key : SaveAll(session, objects, console))
        console.Results() << key << '\n';
}

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
    if (session.Crud().Writes() == 0) session.Say(dbObjectNotModified);
    transaction.Commit();
}

}  // namespace

void AddSaveCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(parent, console, "save", "Save new objects; prints their keys",
                                               DataExample("save", "order.json"), RunSave);
    AddDataOptions(command, options);
    AddJsonFile(command, options.file);
}

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
