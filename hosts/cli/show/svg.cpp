#include "hosts/cli/show/svg.h"

#include "hosts/cli/program.h"
#include "hosts/cli/show/render.h"

#include <chrono>

namespace korvex::cli {

namespace {

Picture Draw(const std::string& dot) {
    constexpr std::chrono::seconds limit(60);
    ProgramResult result = RunProgram({"dot", "-Tsvg"}, dot, limit);
    if (result.failure.empty()) return {std::move(result.output), {}};
    return {{}, "There is no picture, because " + result.failure + " (Debian: graphviz)."};
}

}  // namespace

Picture DrawPicture(const ShownDefinition& shown) { return Draw(DotText(shown)); }

Picture DrawForPage(const ShownDefinition& shown) {
    Picture picture = Draw(DotText(shown, true));
    const std::size_t begin = picture.svg.find("<svg ");
    if (begin == std::string::npos)
        return {{},
                picture.problem.empty() ? "There is no picture, because dot wrote none." : picture.problem};
    picture.svg.erase(0, begin);
    // A point of the drawing is a pixel of the page.
    const std::size_t head = picture.svg.find("viewBox");
    for (std::size_t unit = picture.svg.find("pt\""); unit < head; unit = picture.svg.find("pt\"", unit))
        picture.svg.replace(unit, 2, "");
    return picture;
}

}  // namespace korvex::cli
