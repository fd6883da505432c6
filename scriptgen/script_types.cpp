#include "scriptgen/script_types.h"

#include <algorithm>

namespace korvex::scriptgen {

namespace {

// The drop-foreign-key file of Oracle has a capital D, those of the others a small one: hosts know the files
// by these names.
constexpr std::array<ScriptTypeInfo, 3> Types{{
    {ScriptType::SqlServer,
     90,
     "90",
     "MS SQL",
     255,
     {"MSCreate.sql", "MSDel.sql", "MSSProc.sql", "MSFKCr.sql", "MSFKdel.sql"}},
    {ScriptType::Oracle,
     92,
     "92",
     "Oracle",
     4000,
     {"OraCreate.sql", "OraDel.sql", "OraSProc.sql", "OraFKCr.sql", "OraFKDel.sql"}},
    {ScriptType::Sybase,
     94,
     "94",
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

}  // namespace korvex::scriptgen
