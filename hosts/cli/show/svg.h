#pragma once

#include "hosts/cli/show/shown_definition.h"

#include <string>

namespace korvex::cli {

/// The picture that the program `dot` makes of DotText, or why there is none, with what to do.
struct Picture {
    std::string svg;
    std::string problem;
};

Picture DrawPicture(const ShownDefinition& shown, bool links);

}  // namespace korvex::cli
