#include "hosts/cli/app.h"

#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    const bool isTerminal = isatty(STDERR_FILENO) == 1;
    korvex::cli::Console console(std::cout, std::cerr, isTerminal);
    return korvex::cli::RunCommandLine(argc, argv, console);
}
