#include "hosts/cli/commands.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"
#include "surface/cls_create_db.h"

#include <memory>

namespace korvex::cli {

namespace {

void RunRelate(const CommonOptions& options, Console& console) {
    ExpectWritable(options.repository);
    const Session session(console);
    CheckBeforeRun(options, console);
    const auto scripts = std::make_shared<clsCreateDb>(session.platform);
    scripts->OpenRepository(options.repository);
    scripts->CreateRelationship(options.storage, options.fkPrefix);
    scripts->CloseRepository();
    session.ExpectNoFailedQuery("the keys are not complete");
}

}  // namespace

void AddRelateCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddCommand(parent, console, "relate",
                   "Bring tables, columns and keys of definitions up to date in the repository",
                   "korvex relate orders.db", RunRelate);
    AddRepositoryOption(command, options);
    AddStorageOption(command, options, " (all of them)");
    AddFKPrefixOption(command, options);
}

}  // namespace korvex::cli
