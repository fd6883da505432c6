#include "automation/error.h"
#include "hosts/cli/check/check.h"
#include "scriptgen/engine_dialect.h"

#include <set>

namespace korvex::cli {

void CheckForEngine(repository::Repository& repository, const repository::Catalog& catalog,
                    std::string_view fkPrefix, const scriptgen::EngineDialect& dialect, Findings& findings) {
    // What has no end, or takes too many steps, is told by the other checks.
    if (Findings known; !CheckCycles(catalog, known)) return;
    std::set<std::string> storages;
    for (const repository::DataDefRow& dataDef : catalog.DataDefs()) {
        const bool isNew = storages.insert(dataDef.Storage).second;
        if (!isNew || PlanDefinition(catalog, dataDef, fkPrefix).isCutOff) continue;
        try {
            const auto tables = scriptgen::DescribeDefinition(repository, dataDef.Storage, fkPrefix);
            for (const std::string& problem : dialect.Problems(tables))
                findings.Error("definition " + dataDef.Storage + ": " + problem);
        } catch (const automation::Error& error) {
            findings.Error("definition " + dataDef.Storage + ": " + error.Description());
        }
    }
}

}  // namespace korvex::cli
