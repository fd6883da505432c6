#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/shell/progress.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex::cli {

namespace {

struct DeleteOptions {
    DataOptions data;
    std::string key;
};

void Delete(const std::shared_ptr<objects::Definition>& definition, std::int32_t key,
            const DataSession& session) {
    const auto object = std::make_shared<objects::DataObject>(definition);
    clsCRUD& crud = session.Crud();
    // Afterwards a missing record could not be told from one without a child: both leave the same code.
    const bool exists = crud.DbDataExists(object, key);
    session.ExpectAllOpened();
    if (!exists && crud.LastResult() == dbNoError) {
        session.Fail(dbNoMatchingRecord, "There is no " + RecordText(object->Type(), key) + ".");
    }
    if (!exists) session.FailWithLastResult();
    session.ExpectUsableKey(object, key);
    const std::int32_t deleted = crud.DbDeleteData(object, key);
    session.ExpectAllOpened();
    if (deleted < 1) session.FailWithLastResult();
}

/// All of the keys or none.
void RunDelete(const DeleteOptions& options, Console& console) {
    const std::vector<std::int32_t> keys = ReadKeys(options.key);
    const auto definition = OpenDefinitionForWriting(options.data, console);
    const DataSession session(options.data.connection, options.data.fkPrefix, console);
    ado::Transaction transaction(session.Crud().DbConn());
    const Progress progress(console, "objects", keys.size());
    for (const std::int32_t key : keys) {
        Delete(definition, key, session);
        console.Step();
    }
    transaction.Commit();
}

}  // namespace

void AddDeleteCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<DeleteOptions>();
    CLI::App* command = parent.add_subcommand("delete", "Delete stored objects with everything beneath them");
    AddDataOptions(*command, options->data);
    AddKeyOption(*command, options->key)
        ->description(
            "Key of the record; - for keys on standard input, one a line: all are deleted, or none");
    AddExample(
        *command,
        "korvex delete --repository orders.db --storage Orders --connection \"Provider=SQLite;Data Source=target.db\" --key 1");
    command->callback([options, &console] { RunDelete(*options, console); });
}

}  // namespace korvex::cli
