#include "hosts/cli/show/svg.h"

#include "hosts/cli/program.h"
#include "hosts/cli/show/render.h"

#include <chrono>

namespace korvex::cli {

Picture DrawPicture(const ShownDefinition& shown, bool links) {
    constexpr std::chrono::seconds limit(60);
    ProgramResult result = RunProgram({"dot", "-Tsvg"}, DotText(shown, links), limit);
    if (result.failure.empty()) return {std::move(result.output), {}};
    return {{}, "There is no picture, because " + result.failure + " (Debian: graphviz)."};
}

}  // namespace korvex::cli
