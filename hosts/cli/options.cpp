#include "hosts/cli/options.h"

#include "hosts/cli/shell/variables.h"

namespace korvex::cli {

CLI::Option* AddChoice(CLI::App& command, const std::string& names, const std::string& label,
                       std::string& value, const std::vector<std::string>& words, const std::string& text) {
    return AddOption(command, names, label, value, text)->check(CLI::IsMember(words));
}

void AddRepositoryOption(CLI::App& command, CommonOptions& options, bool isPositional) {
    AddOption(command, isPositional ? "R,--repository" : "--repository", "R", options.repository,
              "Repository file, ODBC string with DSN=, or model (JSON)")
        ->required()
        ->envname(RepositoryVariable);
}

CLI::Option* AddStorageOption(CLI::App& command, CommonOptions& options, const std::string& rest) {
    return AddOption(command, "--storage", "NAME", options.storage, "Storage name of the definition" + rest)
        ->envname(StorageVariable);
}

void AddConnectionOption(CLI::App& command, CommonOptions& options) {
    AddOption(command, "--connection", "C", options.connection,
              "Target database: \"Provider=SQLite;Data Source=FILE\", or an ODBC string with DSN= or Driver=")
        ->required()
        ->envname(ConnectionVariable);
}

void AddFKPrefixOption(CLI::App& command, CommonOptions& options, const std::string& rest) {
    AddOption(command, "--fk-prefix", "P", options.fkPrefix, "Prefix of foreign-key columns" + rest);
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
