#include "hosts/cli/shell/terminal.h"

#include "hosts/cli/shell/variables.h"

#include <unistd.h>

namespace korvex::cli {

Terminals TerminalsOfProcess() {
    const std::string kind = ValueOf("TERM");
    if (kind.empty() || kind == "dumb") return {};
    return {isatty(STDOUT_FILENO) == 1, isatty(STDERR_FILENO) == 1, ValueOf("NO_COLOR").empty()};
}

std::string Coloured(std::string_view line) {
    const std::string_view severity = line.substr(0, line.find(':'));
    const bool isError = severity == "error" || severity.starts_with("error ");
    if ((!isError && severity != "warning") || severity.size() == line.size()) return std::string(line);
    const char* colour = isError ? "\033[1;31m" : "\033[1;33m";
    return colour + std::string(severity) + "\033[0m" + std::string(line.substr(severity.size()));
}

}  // namespace korvex::cli
