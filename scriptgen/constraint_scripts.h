#pragma once

#include "scriptgen/run_state.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// The names that foreign keys refer to by number; "" for a number that stands for nothing.
class ReferencedNames {
  public:
    virtual ~ReferencedNames() = default;
    virtual std::string GetObjectTableName(repository::ObjectId lObjectID) = 0;
    virtual std::string GetFieldName(repository::ValueId lValueID) = 0;
};

/// Appends one constraint per object that the table in hand references to the create-foreign-key script, and
/// its drop to the drop-foreign-key script. `terminator` ends each statement, before its line break.
void AddForeignKeyScripts(RunState& run, std::string_view table, std::string_view terminator,
                          ReferencedNames& names);

}  // namespace korvex::scriptgen
