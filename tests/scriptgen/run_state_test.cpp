#include "scriptgen/script_types.h"

#include <gtest/gtest.h>

namespace korvex::scriptgen {
namespace {

std::vector<std::string> Files(ScriptType type, const std::string& folder, char separator) {
    RunState run;
    run.m_nScriptType = type;
    BuildScriptFileNames(run, folder, separator);
    std::vector<std::string> paths;
    for (const Script& script : run.m_scripts)
        paths.push_back(script.path);
    return paths;
}

using Names = std::vector<std::string>;

TEST(BuildScriptFileNames, JoinsFolderAndNamesWithOneSeparator) {
    EXPECT_EQ(Files(ScriptType::SqlServer, "/out", '/'),
              (Names{"/out/MSCreate.sql", "/out/MSDel.sql", "/out/MSSProc.sql", "/out/MSFKCr.sql",
                     "/out/MSFKdel.sql"}));
    EXPECT_EQ(Files(ScriptType::Oracle, "C:\\out\\", '\\'),
              (Names{"C:\\out\\OraCreate.sql", "C:\\out\\OraDel.sql", "C:\\out\\OraSProc.sql",
                     "C:\\out\\OraFKCr.sql", "C:\\out\\OraFKDel.sql"}));
    EXPECT_EQ(Files(ScriptType::Sybase, "", '/'),
              (Names{"/SyCreate.sql", "/SyDel.sql", "/SySProc.sql", "/SyFKCr.sql", "/SyFKdel.sql"}));
}

TEST(BuildScriptFileNames, KeepsThePathsWithoutAScriptType) {
    RunState run;
    run.m_scripts[1].path = "earlier";
    BuildScriptFileNames(run, "/out", '/');
    EXPECT_EQ(run.m_scripts[1].path, "earlier");
    EXPECT_EQ(run.m_scripts[0].path, "");
}

}  // namespace
}  // namespace korvex::scriptgen
