#include "hosts/cli/app.h"

#include <iostream>

int main(int argc, char** argv) {
    korvex::cli::Console console(std::cout, std::cerr, korvex::cli::TerminalsOfProcess());
    return korvex::cli::RunCommandLine(argc, argv, console);
}
