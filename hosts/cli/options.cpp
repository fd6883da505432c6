#include "hosts/cli/options.h"

#include "hosts/cli/shell/variables.h"

namespace korvex::cli {

void AddRepositoryOption(CLI::App& command, CommonOptions& options, bool isPositional) {
    command
        .add_option(isPositional ? "R,--repository" : "--repository", options.repository,
                    "Repository file, ODBC string with DSN=, or model (JSON)")
        ->required()
        ->envname(RepositoryVariable)
        ->type_name("R");
}

CLI::Option* AddStorageOption(CLI::App& command, CommonOptions& options, const std::string& rest) {
    return command.add_option("--storage", options.storage, "Storage name of the definition" + rest)
        ->envname(StorageVariable)
        ->type_name("NAME");
}

void AddConnectionOption(CLI::App& command, CommonOptions& options) {
    command
        .add_option(
            "--connection", options.connection,
            "Target database: \"Provider=SQLite;Data Source=FILE\", or an ODBC string with DSN= or Driver=")
        ->required()
        ->envname(ConnectionVariable)
        ->type_name("C");
}

void AddFKPrefixOption(CLI::App& command, CommonOptions& options, const std::string& rest) {
    command.add_option("--fk-prefix", options.fkPrefix, "Prefix of foreign-key columns" + rest)
        ->type_name("P");
}

void AddFormatOption(CLI::App& command, Console& console) {
    const auto choose = [&console](const std::string& format) {
        if (format == "json") console.UseDocument();
    };
    command.add_option_function<std::string>("--format", choose, "text (the default) or json")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"text", "json"}));
}

}  // namespace korvex::cli
