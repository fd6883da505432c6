#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// How the statements of a script file are divided. Quotes and comments are respected: nothing inside them
/// divides anything.
enum class ScriptStyle : std::uint8_t {
    /// As SQL Server's and Sybase's tools do: a line that holds only GO ends a batch, which is one statement.
    /// A batch that begins with ALTER TABLE may hold several of them, each at the start of a line.
    Batches,
    /// As SQL*Plus does: a semicolon at the end of a line ends a statement; a line that holds only "/" ends a
    /// block, which a procedure, function, trigger, package, type, DECLARE or BEGIN starts. "rem" lines are
    /// comments.
    SqlPlus,
};

/// One statement of a script file, without the mark that ended it. A SQL*Plus block keeps its last semicolon.
struct ScriptStatement {
    std::string file;
    std::size_t line = 0;  ///< where it begins, from 1; comments in front are left out
    std::string text;
};

/// The style of a script: batches when a line holds only GO; else SQL*Plus when a line ends in a semicolon,
/// holds only "/" or begins with "rem"; else batches.
ScriptStyle GuessStyle(std::string_view text);

/// The statements of a script, in order. Raises InvalidProcedureCall (5), naming file and line, for a quote
/// or comment that is never closed. `file` is for messages.
std::vector<ScriptStatement> ReadScript(const std::string& file, std::string_view text, ScriptStyle style);

}  // namespace korvex::cli
