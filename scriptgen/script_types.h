#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The published dialects, and the scripts that a run writes in one of them.
namespace korvex::scriptgen {

/// Target dialect of a run; None before the first one.
enum class ScriptType : std::int32_t { None = 0, SqlServer = 1, Oracle = 2, Sybase = 3 };

/// The scripts of a run, in the order in which their files are written.
enum class ScriptKind : std::uint8_t { Create, Drop, Procedures, CreateForeignKeys, DropForeignKeys };

/// What is fixed for a target dialect.
struct ScriptTypeInfo {
    ScriptType type = ScriptType::None;
    std::string_view engine;  ///< what its engine is called, and the dialect by people who choose one
    /// Number of the dialect's name at a language service; as text the identifier without one.
    std::int32_t stringNumber = 0;
    std::string_view displayName;               ///< when the language service has no name of its own
    std::int16_t maxCharLen = 0;                ///< longest variable-length character column
    std::array<std::string_view, 5> fileNames;  ///< by ScriptKind
};

/// The three dialects in the order in which hosts are offered them.
std::span<const ScriptTypeInfo> AllScriptTypes() noexcept;

/// The row of a dialect; nullptr for None, and for an engine that has none of these.
const ScriptTypeInfo* FindScriptType(ScriptType type) noexcept;
const ScriptTypeInfo* FindScriptType(std::string_view engine) noexcept;

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
    bool m_bLongWarning = false;  ///< a table has more than one long column (Oracle)
};

/// Clears the texts for a new run. The create-foreign-key text is left as it is: it grows from run to run.
void ResetRun(RunState& run);

/// `folder`, one separator, the file's name. An empty folder gives a path at the root.
std::string ScriptFilePath(std::string_view folder, char separator, std::string_view file);

/// Sets the paths of the five files for the state's script type. Without a script type they stay as they are.
void BuildScriptFileNames(RunState& run, std::string_view folder, char separator);

}  // namespace korvex::scriptgen
