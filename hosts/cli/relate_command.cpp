#include "hosts/cli/commands.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"
#include "repository/names.h"
#include "surface/cls_create_db.h"

#include <memory>
#include <optional>
#include <string>

namespace korvex::cli {

namespace {

using automation::Variant;

struct RelateOptions {
    std::string repository;
    std::string storage;
    std::optional<std::string> fkPrefix;
};

void RunRelate(const RelateOptions& options, Console& console) {
    ExpectWritable(options.repository);
    const Session session(console);
    CheckBeforeRun(options.repository, options.storage,
                   options.fkPrefix.value_or(std::string(repository::DefaultFKPrefix)), console);
    const auto scripts = std::make_shared<clsCreateDb>(session.platform);
    scripts->OpenRepository(options.repository);
    scripts->CreateRelationship(options.storage,
                                options.fkPrefix ? Variant(*options.fkPrefix) : Variant::Missing());
    scripts->CloseRepository();
    session.ExpectNoFailedQuery("the keys are not complete");
}

}  // namespace

void AddRelateCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<RelateOptions>();
    CLI::App* command = parent.add_subcommand(
        "relate", "Bring tables, columns and keys of definitions up to date in the repository");
    AddRepositoryOption(*command, options->repository);
    AddStorageOption(*command, options->storage, " (all of them)");
    command->add_option("--fk-prefix", options->fkPrefix, "Prefix of foreign-key columns (FK_ unless given)")
        ->type_name("P");
    AddExample(*command, "korvex relate orders.db");
    command->callback([options, &console] { RunRelate(*options, console); });
}

}  // namespace korvex::cli
