#pragma once

#include <string>
#include <string_view>

namespace korvex::cli {

/// What of the two outputs is a terminal that understands control sequences.
struct Terminals {
    bool results = false;
    bool messages = false;
    bool takesColours = false;  ///< both of them, as far as they are terminals
};

/// Those of this process. TERM=dumb says that there is none, NO_COLOR, unless empty, that colours are
/// unwanted.
Terminals TerminalsOfProcess();

/// A line with its severity, "error", "error 5" or "warning" in front of a colon, in colour.
std::string Coloured(std::string_view line);

}  // namespace korvex::cli
