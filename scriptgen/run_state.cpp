#include "scriptgen/run_state.h"

#include "scriptgen/script_types.h"

namespace korvex::scriptgen {

void ResetRun(RunState& run) {
    run.m_sDbSQL.clear();
    run.m_sDropSQL.clear();
    run.m_sStoredProcSQL.clear();
    run.m_sDropFkConstraintSQL.clear();
    run.m_lCurrentObjectID = -1;
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
    const auto path = [&](std::size_t buffer) {
        return ScriptFilePath(folder, separator, info->fileNames[buffer]);
    };
    run.m_sCreateFile = path(0);
    run.m_sDropFile = path(1);
    run.m_sProcFile = path(2);
    run.m_sFkCreateFile = path(3);
    run.m_sFkDropFile = path(4);
}

}  // namespace korvex::scriptgen
