#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// How the statements of a script file are divided. Quotes, $$ ... $$ among them, and comments are
/// respected: nothing inside them divides anything.
enum class ScriptStyle : std::uint8_t {
    /// As SQL Server's and Sybase's tools do: a line that holds only GO ends a batch, which is one statement.
    /// A batch that begins with ALTER TABLE may hold several of them, each at the start of a line.
    Batches,
    /// As SQL*Plus does: a semicolon at the end of a line ends a statement; a line that holds only "/" ends a
    /// block, which a procedure, function, trigger, package, type, DECLARE or BEGIN starts. "rem" lines are
    /// comments.
    SqlPlus,
    /// As the clients of most engines do: every semicolon ends a statement, save in the body between BEGIN
    /// and
    /// END of a trigger, procedure or function. A line "DELIMITER mark" between statements puts another mark
    /// in the semicolon's place.
    Plain,
};

/// One statement of a script file, without the mark that ended it. A SQL*Plus block keeps its last semicolon.
struct ScriptStatement {
    std::string file;
    std::size_t line = 0;  ///< where it begins, from 1; comments in front are left out
    std::string text;
    ScriptStyle style = ScriptStyle::Batches;  ///< of the file
};

/// The style of a script: batches when a line holds only GO; else SQL*Plus when one holds only "/" or begins
/// with "rem"; else plain when a line ends in a semicolon, and at once at a DELIMITER line; else batches.
ScriptStyle GuessStyle(std::string_view text);

/// The statements of a script, in order. Raises InvalidProcedureCall (5), naming file and line, for a quote
/// or comment that is never closed and for DELIMITER without a mark. `file` is for messages.
std::vector<ScriptStatement> ReadScript(const std::string& file, std::string_view text, ScriptStyle style);

}  // namespace korvex::cli
