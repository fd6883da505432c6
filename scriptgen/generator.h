#pragma once

#include "repository/definition_rows.h"
#include "scriptgen/script_types.h"

#include <string_view>

namespace korvex::scriptgen {

/// Walks every data definition of that storage name (all of them when it is empty) and appends the scripts of
/// its tables to the state's buffers, in the dialect of `run.m_nScriptType`. An object that is its own
/// ancestor raises OutOfStackSpace (28).
void GenerateForStorage(RunState& run, repository::DefinitionRows& rows, std::string_view storageName);

}  // namespace korvex::scriptgen
