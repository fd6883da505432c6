#include "repository/names.h"

#include "hosts/cli/check/check.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace korvex::cli {

namespace {

using repository::Catalog;

/// Names are put between single quotes in the statements that look for them.
void CheckName(const std::string& what, const std::string& name, Findings& findings) {
    if (name.empty()) {
        findings.Error(what + " has no name");
    } else if (name.find('\'') != std::string::npos) {
        findings.Error(what + ": its name holds a single quote");
    } else if (repository::HasControlCharacter(name)) {
        findings.Error(what + ": its name holds a control character");
    } else if (name.find_first_of("%*?#[") != std::string::npos && what.starts_with("object ")) {
        findings.Warning(what + ": its name holds a wildcard, so its key interface may be taken for another");
    }
}

/// Whether an object has values besides its keys.
bool HasValues(const Catalog& catalog, repository::ObjectId objectID) {
    std::set<repository::ValueId> keys;
    for (const repository::PrimaryKeyRow* key : catalog.PrimaryKeysOf(objectID))
        keys.insert(key->ValueID);
    for (const repository::ForeignKeyRow* key : catalog.ForeignKeysOf(objectID))
        keys.insert(key->ValueID);
    const std::vector<const repository::ValueRow*> values = ValuesOf(catalog, objectID);
    return std::any_of(values.begin(), values.end(),
                       [&keys](const repository::ValueRow* value) { return !keys.contains(value->ValueID); });
}

}  // namespace

void CheckNames(const Catalog& catalog, Findings& findings) {
    for (const repository::DataDefRow& row : catalog.DataDefs()) {
        CheckName("definition with root ObjectID " + std::to_string(Number(row.RootObjectID)), row.Storage,
                  findings);
    }
    std::map<std::string, repository::ObjectId> guids;
    for (const repository::ObjectRow& row : catalog.Objects()) {
        const Findings::About about(findings, {row.ObjectID});
        const std::string what = ObjectText(catalog, row.ObjectID);
        CheckName(what, row.Name, findings);
        if (!row.Guid.empty()) {
            const auto [entry, isNew] = guids.emplace(row.Guid, row.ObjectID);
            if (!isNew) findings.Warning(what + " has the guid of " + ObjectText(catalog, entry->second));
        }
        if (!HasValues(catalog, row.ObjectID) && row.CollectionObjectID == repository::NoObject) {
            findings.Warning(what + " has no values; its table will hold keys only");
        }
    }
    for (const repository::InterfaceRow& row : catalog.Interfaces()) {
        if (repository::HasControlCharacter(row.Name))
            findings.Error("interface " + row.Name + ": its name holds a control character");
    }
    for (const repository::ValueRow& row : catalog.Values()) {
        const Findings::About about(findings, catalog.ObjectsWith(row.InterfaceID));
        if (row.Name.empty()) findings.Error(NamelessText(row));
        if (repository::HasControlCharacter(row.Name))
            findings.Error(ValueText(row) + ": its name holds a control character");
    }
}

std::string NamelessText(const repository::ValueRow& value) {
    return "value with ValueID " + std::to_string(Number(value.ValueID)) + " has no name";
}

void CheckIdentifier(const std::string& what, const std::string& name, bool isInStatements,
                     Findings& findings) {
    if (repository::IsIdentifier(name)) return;
    const std::string mark = repository::FindSqlMark(name);
    if (mark.empty())
        return findings.Error(what + name + " is no identifier; names stand in SQL text without quotes");
    const std::string text = what + name + " holds " + mark + ", which SQL takes for more than a name";
    isInStatements ? findings.Danger(text) : findings.Error(text);
}

}  // namespace korvex::cli
