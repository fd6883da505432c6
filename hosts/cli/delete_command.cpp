#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/shell/progress.h"
#include "platform/ado_transaction.h"

#include <memory>
#include <vector>

namespace korvex::cli {

namespace {

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

}  // namespace

void AddDeleteCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "delete", "Delete stored objects with everything beneath them",
                   DataExample("delete", "--key 1"), RunDelete);
    AddDataOptions(command, options);
    AddKeyOption(command, options)
        ->description(
            "Key of the record; - for keys on standard input, one a line: all are deleted, or none");
}

}  // namespace korvex::cli
