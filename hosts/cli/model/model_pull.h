#pragma once

#include "hosts/cli/model/model.h"
#include "scriptgen/engine_dialect.h"

#include <span>

namespace korvex::cli {

/// A model whose tables are those of a database, as ReadLiveTables gives them: an object for each, named
/// after its key where that is the key of a run's; children and elements where foreign keys refer to a table;
/// a definition for each object that refers to none. What no model can say, or the tables do not tell, is
/// left out.
Model PullModel(std::span<const scriptgen::DescribedTable> tables, const scriptgen::EngineDialect& dialect);

}  // namespace korvex::cli
