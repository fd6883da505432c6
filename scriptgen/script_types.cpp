#include "scriptgen/script_types.h"

#include <algorithm>

namespace korvex::scriptgen {

namespace {

// The drop-foreign-key file of Oracle has a capital D, those of the others a small one: hosts know the files
// by these names.
constexpr std::array<ScriptTypeInfo, 3> Types{{
    {ScriptType::SqlServer,
     "mssql",
     90,
     "MS SQL",
     255,
     {"MSCreate.sql", "MSDel.sql", "MSSProc.sql", "MSFKCr.sql", "MSFKdel.sql"}},
    {ScriptType::Oracle,
     "oracle",
     92,
     "Oracle",
     4000,
     {"OraCreate.sql", "OraDel.sql", "OraSProc.sql", "OraFKCr.sql", "OraFKDel.sql"}},
    {ScriptType::Sybase,
     "sybase",
     94,
     "Sybase",
     255,
     {"SyCreate.sql", "SyDel.sql", "SySProc.sql", "SyFKCr.sql", "SyFKdel.sql"}},
}};

}  // namespace

std::span<const ScriptTypeInfo> AllScriptTypes() noexcept { return Types; }

const ScriptTypeInfo* FindScriptType(ScriptType type) noexcept {
    const auto found = std::ranges::find(Types, type, &ScriptTypeInfo::type);
    return found == Types.end() ? nullptr : &*found;
}

const ScriptTypeInfo* FindScriptType(std::string_view engine) noexcept {
    const auto found = std::ranges::find(Types, engine, &ScriptTypeInfo::engine);
    return found == Types.end() ? nullptr : &*found;
}

void ResetRun(RunState& run) {
    for (const ScriptKind kind :
         {ScriptKind::Create, ScriptKind::Drop, ScriptKind::Procedures, ScriptKind::DropForeignKeys})
        run.Text(kind).clear();
}

std::string ScriptFilePath(std::string_view folder, char separator, std::string_view file) {
    std::string path(folder);
    if (!folder.ends_with(separator)) path += separator;
    return path.append(file);
}

void BuildScriptFileNames(RunState& run, std::string_view folder, char separator) {
    const ScriptTypeInfo* info = FindScriptType(run.m_nScriptType);
    if (info == nullptr) return;
    for (std::size_t i = 0; i < run.m_scripts.size(); ++i)
        run.m_scripts[i].path = ScriptFilePath(folder, separator, info->fileNames[i]);
}

}  // namespace korvex::scriptgen
