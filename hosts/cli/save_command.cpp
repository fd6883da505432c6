#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/data/json_input.h"
#include "hosts/cli/shell/progress.h"
#include "objects/json.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

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

}  // namespace

void AddSaveCommand(CLI::App& parent, Console& console) {
    const auto [command, options] = AddCommand(parent, console, "save", "Save new objects; prints their keys",
                                               DataExample("save", "order.json"), RunSave);
    AddDataOptions(command, options);
    AddJsonFile(command, options.file);
}

}  // namespace korvex::cli
