#include "hosts/cli/check/check.h"

#include <algorithm>

namespace korvex::cli {

namespace {

using repository::Catalog;

void CheckDefinition(const Catalog& catalog, const repository::DataDefRow& dataDef, std::string_view fkPrefix,
                     Findings& findings) {
    const PlannedDefinition definition = PlanDefinition(catalog, dataDef, fkPrefix);
    if (definition.isCutOff) {
        findings.Warning("definition " + dataDef.Storage +
                         ": its objects are reached along more than a million ways; it is checked in part");
    }
    for (const PlannedTable& table : definition.tables) {
        if (table.visits > 1) {
            findings.Warning(ObjectText(*table.object) + " is reached along " + std::to_string(table.visits) +
                             " ways; the scripts hold table " + table.name + " as often");
        }
        CheckColumns(table, findings);
    }
    CheckScriptNames(definition, findings);
}

}  // namespace

void Findings::Add(Severity severity, std::string text) {
    if (m_texts.insert(text).second) m_findings.push_back({severity, std::move(text)});
}

std::size_t Findings::Count(Severity severity) const {
    return static_cast<std::size_t>(
        std::count_if(m_findings.begin(), m_findings.end(),
                      [severity](const Finding& finding) { return finding.severity == severity; }));
}

std::string ObjectText(const Catalog& catalog, std::int32_t objectID) {
    const repository::ObjectRow* object = catalog.FindObject(objectID);
    return object == nullptr ? "ObjectID " + std::to_string(objectID) : ObjectText(*object);
}

std::string ObjectText(const repository::ObjectRow& object) {
    return "object " + object.Name + " (ObjectID " + std::to_string(object.ObjectID) + ")";
}

Findings CheckCatalog(const Catalog& catalog, std::string_view fkPrefix) {
    Findings findings;
    CheckReferences(catalog, findings);
    CheckNames(catalog, findings);
    CheckKeys(catalog, findings);
    // Without an end there is nothing to plan.
    if (!CheckCycles(catalog, findings)) return findings;
    for (const repository::DataDefRow& dataDef : catalog.DataDefs()) {
        CheckDefinition(catalog, dataDef, fkPrefix, findings);
    }
    return findings;
}

}  // namespace korvex::cli
