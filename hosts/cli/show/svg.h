#pragma once

#include "hosts/cli/show/shown_definition.h"

#include <string>

namespace korvex::cli {

/// What the program `dot` makes of DotText, or why there is no picture, with what to do.
struct Picture {
    std::string svg;
    std::string problem;
};

/// A whole SVG file.
Picture DrawPicture(const ShownDefinition& shown);

/// An element for the page, with links to its objects.
Picture DrawForPage(const ShownDefinition& shown);

}  // namespace korvex::cli
