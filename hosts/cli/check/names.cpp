#include "hosts/cli/check/check.h"

#include <map>
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
    } else if (name.find_first_of("%*?#[") != std::string::npos && what.starts_with("object ")) {
        findings.Warning(what + ": its name holds a wildcard, so its key interface may be taken for another");
    }
}

bool HasValues(const Catalog& catalog, std::int32_t objectID) {
    for (const repository::ValueRow* value : catalog.ValuesOf(objectID)) {
        const bool isKey = [&] {
            for (const repository::PrimaryKeyRow* key : catalog.PrimaryKeysOf(objectID)) {
                if (key->ValueID == value->ValueID) return true;
            }
            for (const repository::ForeignKeyRow* key : catalog.ForeignKeysOf(objectID)) {
                if (key->ValueID == value->ValueID) return true;
            }
            return false;
        }();
        if (!isKey) return true;
    }
    return false;
}

}  // namespace

void CheckNames(const Catalog& catalog, Findings& findings) {
    for (const repository::DataDefRow& row : catalog.DataDefs()) {
        CheckName("definition with root ObjectID " + std::to_string(row.RootObjectID), row.Storage, findings);
    }
    std::map<std::string, std::int32_t> guids;
    for (const repository::ObjectRow& row : catalog.Objects()) {
        const std::string what = ObjectText(catalog, row.ObjectID);
        CheckName(what, row.Name, findings);
        if (!row.Guid.empty()) {
            const auto [entry, isNew] = guids.emplace(row.Guid, row.ObjectID);
            if (!isNew) findings.Warning(what + " has the guid of " + ObjectText(catalog, entry->second));
        }
        if (!HasValues(catalog, row.ObjectID) && row.CollectionObjectID == 0) {
            findings.Warning(what + " has no values; its table will hold keys only");
        }
    }
    for (const repository::ValueRow& row : catalog.Values()) {
        if (row.Name.empty()) {
            findings.Error("value with ValueID " + std::to_string(row.ValueID) + " has no name");
        }
    }
}

}  // namespace korvex::cli
