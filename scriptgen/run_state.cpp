#include "scriptgen/run_state.h"

#include "scriptgen/script_types.h"

namespace korvex::scriptgen {

void ResetRun(RunState& run) {
    for (const ScriptKind kind :
         {ScriptKind::Create, ScriptKind::Drop, ScriptKind::Procedures, ScriptKind::DropForeignKeys})
        run.Text(kind).clear();
    run.m_lCurrentObjectID = repository::ObjectId{-1};
    run.m_sCurrentTable.clear();
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
