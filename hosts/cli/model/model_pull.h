#pragma once

#include "hosts/cli/model/model.h"
#include "scriptgen/engine_dialect.h"

#include <span>
#include <string>
#include <vector>

namespace korvex::cli {

struct PulledModel {
    Model model;
    std::vector<std::string> untold;  ///< what no model can say, or the tables do not tell, in words
};

/// A model whose tables are those of a database, as ReadLiveTables gives them: an object for each, named
/// after its key where that is the key of a run's; children and elements where foreign keys refer to a table;
/// a definition for each object that refers to none.
PulledModel PullModel(std::span<const scriptgen::DescribedTable> tables,
                      const scriptgen::EngineDialect& dialect);

}  // namespace korvex::cli
