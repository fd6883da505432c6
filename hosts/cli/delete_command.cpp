#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <string>

namespace korvex::cli {

namespace {

struct DeleteOptions {
    DataOptions data;
    std::string key;
};

void RunDelete(const DeleteOptions& options, Console& console) {
    const std::int32_t key = ReadKey(options.key);
    const auto object =
        std::make_shared<objects::DataObject>(OpenDefinitionForWriting(options.data, console));
    const DataSession session(options.data.connection, options.data.fkPrefix, console);
    clsCRUD& crud = session.Crud();
    ado::Transaction transaction(crud.DbConn());
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
    transaction.Commit();
}

}  // namespace

void AddDeleteCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<DeleteOptions>();
    CLI::App* command = parent.add_subcommand("delete", "Delete a stored object with everything beneath it");
    AddDataOptions(*command, options->data);
    AddKeyOption(*command, options->key);
    command->callback([options, &console] { RunDelete(*options, console); });
}

}  // namespace korvex::cli
