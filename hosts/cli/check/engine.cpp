#include "automation/error.h"
#include "hosts/cli/check/check.h"

#include <set>

namespace korvex::cli {

void CheckForEngine(const repository::Catalog& catalog, std::string_view fkPrefix,
                    const scriptgen::EngineDialect& dialect, Findings& findings) {
    std::set<std::string> seen;
    for (const repository::DataDefRow& dataDef : catalog.DataDefs()) {
        if (!seen.insert(dataDef.Storage).second) continue;
        try {
            const auto tables = scriptgen::DescribeDefinition(catalog, dataDef.Storage, fkPrefix);
            for (const std::string& problem : dialect.Problems(tables))
                findings.Error("definition " + dataDef.Storage + ": " + problem);
        } catch (const automation::Error& error) {
            // What has no end is told by the other checks.
            if (error.Number() == automation::OutOfStackSpace) continue;
            findings.Error("definition " + dataDef.Storage + ": " + error.Description());
        }
    }
}

}  // namespace korvex::cli
