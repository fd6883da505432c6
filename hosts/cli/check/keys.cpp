#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "repository/key_values.h"

#include <algorithm>
#include <map>
#include <set>

namespace korvex::cli {

namespace {

using repository::Catalog;
using repository::ForeignKeyRow;

/// A key interface that has the name of none of its objects was made for an earlier name.
void CheckKeyInterfaces(const Catalog& catalog, Findings& findings) {
    for (const repository::ObjectInterfaceRow& row : catalog.ObjectInterfaces()) {
        const Findings::About about(findings, {row.ObjectID});
        const repository::InterfaceRow* interface = catalog.FindInterface(row.InterfaceID);
        const repository::ObjectRow* object = catalog.FindObject(row.ObjectID);
        if (interface == nullptr || object == nullptr) continue;
        const bool isOwn =
            automation::EqualsIgnoreCase(interface->Name, repository::KeyInterfaceName(object->Name));
        if (isOwn || !repository::IsKeyInterfaceName(interface->Name)) continue;
        const std::vector<const repository::ValueRow*> values = catalog.ValuesOfInterface(row.InterfaceID);
        const bool holdsKeys = values.empty() || std::any_of(values.begin(), values.end(),
                                                             [](const repository::ValueRow* value) {
                                                                 return repository::IsKeyVid(value->VID);
                                                             });
        if (holdsKeys) {
            findings.Warning(ObjectText(catalog, row.ObjectID) + ": the key interface " + interface->Name +
                             " is left from an earlier name");
        }
    }
}

/// Key values that are no key of any table stay ordinary columns of theirs.
void CheckKeyValues(const Catalog& catalog, Findings& findings) {
    std::set<repository::ValueId> keys;
    for (const repository::PrimaryKeyRow& row : catalog.PrimaryKeys())
        keys.insert(row.ValueID);
    for (const ForeignKeyRow& row : catalog.ForeignKeys())
        keys.insert(row.ValueID);
    for (const repository::ValueRow& row : catalog.Values()) {
        const Findings::About about(findings, catalog.ObjectsWith(row.InterfaceID));
        const repository::InterfaceRow* interface = catalog.FindInterface(row.InterfaceID);
        const bool isKey = interface != nullptr && repository::IsKeyValue(row.VID, interface->Name);
        if (!isKey || keys.contains(row.ValueID)) continue;
        findings.Warning(ValueText(row) + " was a key once and is none any more; it stays a column");
    }
}

void CheckParents(const Catalog& catalog, Findings& findings) {
    std::map<repository::ObjectId, std::set<repository::ObjectId>> heldBy;  // those that were asked for
    for (const ForeignKeyRow& row : catalog.ForeignKeys()) {
        const Findings::About about(findings, {row.ObjectID});
        if (catalog.FindObject(row.FKObjectID) == nullptr) continue;
        const auto [held, isNew] = heldBy.try_emplace(row.FKObjectID);
        if (isNew) {
            const auto children = catalog.ChildrenOf(row.FKObjectID);
            held->second.insert(children.begin(), children.end());
        }
        if (held->second.contains(row.ObjectID)) continue;
        findings.Warning(ObjectText(catalog, row.ObjectID) + " still refers to " +
                         ObjectText(catalog, row.FKObjectID) + ", which does not hold it any more");
    }
}

}  // namespace

void CheckKeys(const Catalog& catalog, Findings& findings) {
    CheckKeyInterfaces(catalog, findings);
    CheckKeyValues(catalog, findings);
    CheckParents(catalog, findings);
}

}  // namespace korvex::cli
