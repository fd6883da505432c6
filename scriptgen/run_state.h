#pragma once

#include "scriptgen/column.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::scriptgen {

/// Target dialect of a run; None before the first one.
enum class ScriptType : std::int32_t { None = 0, SqlServer = 1, Oracle = 2, Sybase = 3 };

/// The scripts of a run, in the order in which their files are written.
enum class ScriptKind : std::uint8_t { Create, Drop, Procedures, CreateForeignKeys, DropForeignKeys };

struct Script {
    std::string text;
    std::string path;  ///< full path of its file
};

/// What one run of the generator works on and leaves behind.
struct RunState {
    std::array<Script, 5> m_scripts;  ///< by ScriptKind

    std::string& Text(ScriptKind kind) { return m_scripts[static_cast<std::size_t>(kind)].text; }
    const std::string& Text(ScriptKind kind) const { return m_scripts[static_cast<std::size_t>(kind)].text; }

    ScriptType m_nScriptType = ScriptType::None;
    std::int16_t m_nMaxCharLen = 0;  ///< longest variable-length character column of the dialect
    bool m_bLongWarning = false;     ///< a table has more than one long column (Oracle)

    // The table in hand.
    repository::ObjectId m_lCurrentObjectID{-1};
    std::string m_sCurrentTable;
    std::vector<Column> m_colFields;
};

/// Clears the state for a new run. The create-foreign-key buffer is left as it is: it grows from run to run.
void ResetRun(RunState& run);

/// `folder`, one separator, the file's name. An empty folder gives a path at the root.
std::string ScriptFilePath(std::string_view folder, char separator, std::string_view file);

/// Sets the paths of the five files for the state's script type. Without a script type they stay as they are.
void BuildScriptFileNames(RunState& run, std::string_view folder, char separator);

}  // namespace korvex::scriptgen
