#pragma once

#include "repository/repository.h"
#include "scriptgen/dialect.h"
#include "scriptgen/run_state.h"

#include <cstdint>

namespace korvex::scriptgen {

/// Fills the run's columns, empty until now, with those of the object's table: the stored values in the
/// repository's order, then the state columns of its kind; keys marked, types in the dialect's wording.
void BuildTableFields(RunState& run, repository::Repository& repository, const Dialect& dialect,
                      std::int32_t lObjectID);

}  // namespace korvex::scriptgen
