#include "hosts/cli/check/check.h"

#include "automation/error.h"
#include "automation/text.h"
#include "repository/catalog_ways.h"
#include "repository/key_names.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace korvex::cli {

namespace {

using repository::Catalog;

/// A definition with objects shared in layers has more ways than anybody could script.
constexpr std::int64_t MostWays = 1'000'000;

void CheckDefinition(const Catalog& catalog, const std::string& storage, std::string_view fkPrefix,
                     Findings& findings) {
    const auto ways = repository::CountWays(catalog, storage);
    std::int64_t all = 0;
    for (const auto& [objectID, count] : ways)
        all += std::min(count, MostWays);
    if (all > MostWays) {
        return findings.Error("definition " + storage +
                              ": its objects are reached along more than a million ways, too many for a run");
    }
    repository::RelatedCatalog related(catalog);
    related.Relate(storage, fkPrefix);
    const CheckedDefinition definition{storage, related, scriptgen::DescribeTables(related, storage)};
    for (const scriptgen::DescribedTable& table : definition.tables) {
        const Findings::About about(findings, {table.ObjectID});
        if (const std::int64_t count = ways.at(table.ObjectID); count > 1) {
            findings.Warning(ObjectText(catalog, table.ObjectID) + " is reached along " +
                             std::to_string(count) + " ways; the scripts hold table " + table.Name +
                             " as often");
        }
    }
    CheckColumns(definition, findings);
    CheckScriptNames(definition, findings);
}

/// Definitions of one storage name (of each when it is empty) are one for a run. What `check` raises is an
/// error of the definition.
template <class Check>
void ForEachDefinition(const Catalog& catalog, std::string_view storage, Findings& findings, Check&& check) {
    std::set<std::string_view> seen;
    for (const repository::DataDefRow& row : catalog.DataDefs()) {
        if ((!storage.empty() && row.Storage != storage) || !seen.insert(row.Storage).second) continue;
        try {
            check(row.Storage);
        } catch (const automation::Error& error) {
            findings.Error("definition " + row.Storage + ": " + error.Description());
        }
    }
}

/// Columns are stored without the blanks around their names, and looked for with them.
void CheckPrefix(std::string_view fkPrefix, Findings& findings) {
    if (!fkPrefix.starts_with(' ')) return;
    findings.Warning("the foreign-key prefix \"" + std::string(fkPrefix) +
                     "\" begins with a blank, which the columns lose; foreign keys are not found by it");
}

std::string Printable(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '\n') {
            line += "\\n";
        } else if (code < 0x20 || code == 0x7F) {
            char escape[8];
            static_cast<void>(std::snprintf(escape, sizeof escape, "\\x%02x", code));
            line += escape;
        } else {
            line += c;
        }
    }
    return line;
}

/// Lines that a person reads; `korvex repository check` has the rest.
constexpr std::size_t MostWarnings = 20;

}  // namespace

void Findings::Add(Severity severity, std::string_view text, bool endangersData) {
    std::string line = Printable(text);
    if (m_texts.insert(line).second)
        m_findings.push_back({severity, std::move(line), endangersData, m_objects});
}

std::size_t Findings::Count(Severity severity) const {
    return static_cast<std::size_t>(
        std::count_if(m_findings.begin(), m_findings.end(),
                      [severity](const Finding& finding) { return finding.severity == severity; }));
}

std::string ObjectText(const Catalog& catalog, repository::ObjectId objectID) {
    const repository::ObjectRow* object = catalog.FindObject(objectID);
    return object == nullptr ? "ObjectID " + std::to_string(Number(objectID)) : ObjectText(*object);
}

std::string ValueText(const repository::ValueRow& value) {
    return "value " + value.Name + " (ValueID " + std::to_string(Number(value.ValueID)) + ")";
}

std::string ObjectText(const repository::ObjectRow& object) {
    return "object " + object.Name + " (ObjectID " + std::to_string(Number(object.ObjectID)) + ")";
}

Findings CheckCatalog(const Catalog& catalog, std::string_view fkPrefix, std::string_view storage) {
    Findings findings;
    CheckReferences(catalog, findings);
    CheckNames(catalog, findings);
    CheckKeys(catalog, findings);
    CheckPrefix(fkPrefix, findings);
    static_cast<void>(repository::KeyNames(fkPrefix));
    // Without an end there is nothing to plan.
    if (CheckCycles(catalog, findings)) CheckDefinitions(catalog, storage, fkPrefix, findings);
    return findings;
}

void CheckDefinitions(const Catalog& catalog, std::string_view storage, std::string_view fkPrefix,
                      Findings& findings) {
    ForEachDefinition(catalog, storage, findings,
                      [&](const std::string& name) { CheckDefinition(catalog, name, fkPrefix, findings); });
}

void CheckForEngine(const Catalog& catalog, std::string_view fkPrefix,
                    const scriptgen::EngineDialect& dialect, Findings& findings) {
    ForEachDefinition(catalog, {}, findings, [&](const std::string& name) {
        try {
            const auto tables = scriptgen::DescribeDefinition(catalog, name, fkPrefix);
            for (const std::string& problem : dialect.Problems(tables))
                findings.Error("definition " + name + ": " + problem);
        } catch (const automation::Error& error) {
            // What has no end is told by the other checks.
            if (error.Number() != automation::OutOfStackSpace) throw;
        }
    });
}

void WarnOfDanger(const Findings& findings, Console& console) {
    std::size_t warnings = 0;
    for (const Finding& finding : findings.All()) {
        if (finding.endangersData && ++warnings <= MostWarnings) console.Message("warning: " + finding.text);
    }
    if (warnings > MostWarnings) {
        console.Message("warning: " + std::to_string(warnings - MostWarnings) +
                        " more of the kind; korvex repository check lists them");
    }
}

void RefuseDanger(const Catalog& catalog, std::string_view storage, std::string_view fkPrefix) {
    Findings findings;
    CheckDefinitions(catalog, storage, fkPrefix, findings);
    const auto& all = findings.All();
    const auto first = std::ranges::find_if(all, &Finding::endangersData);
    if (first == all.end()) return;
    throw automation::Error(automation::InvalidProcedureCall,
                            "Nothing was done, because data would be mixed up or lost: " + first->text +
                                ". Change the definition; korvex repository check lists all such places.");
}

}  // namespace korvex::cli
