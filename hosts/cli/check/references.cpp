#include "hosts/cli/check/check.h"
#include "repository/catalog_ways.h"

#include <set>

namespace korvex::cli {

namespace {

using repository::Catalog;

std::string Id(const char* column, repository::RowId auto id) {
    return std::string(column) + " " + std::to_string(Number(id));
}

void CheckDataDefs(const Catalog& catalog, Findings& findings) {
    std::set<std::string> storages;
    for (const repository::DataDefRow& row : catalog.DataDefs()) {
        if (catalog.FindObject(row.RootObjectID) == nullptr) {
            findings.Error("definition " + row.Storage + ": its root object, " +
                           Id("ObjectID", row.RootObjectID) + ", does not exist");
        }
        if (!storages.insert(row.Storage).second) {
            findings.Warning("storage name " + row.Storage +
                             " stands for several definitions; their scripts go into the same files");
        }
    }
}

void CheckObjects(const Catalog& catalog, Findings& findings) {
    for (const repository::ObjectRow& row : catalog.Objects()) {
        const Findings::About about(findings, {row.ObjectID});
        if (row.CollectionObjectID != repository::NoObject &&
            catalog.FindObject(row.CollectionObjectID) == nullptr) {
            findings.Error(ObjectText(catalog, row.ObjectID) + ": the object of its elements, " +
                           Id("ObjectID", row.CollectionObjectID) + ", does not exist");
        }
    }
    std::set<std::pair<repository::ObjectId, repository::InterfaceId>> links;
    for (const repository::ObjectInterfaceRow& row : catalog.ObjectInterfaces()) {
        const Findings::About about(findings, {row.ObjectID});
        if (catalog.FindObject(row.ObjectID) == nullptr) {
            findings.Error("tObjectInterfaces: " + Id("ObjectID", row.ObjectID) + " does not exist");
        }
        if (catalog.FindInterface(row.InterfaceID) == nullptr) {
            findings.Error(ObjectText(catalog, row.ObjectID) + ": its interface, " +
                           Id("InterfaceID", row.InterfaceID) + ", does not exist");
        }
        if (!links.insert({row.ObjectID, row.InterfaceID}).second) {
            findings.Error(ObjectText(catalog, row.ObjectID) + " has the interface " +
                           Id("InterfaceID", row.InterfaceID) + " twice");
        }
    }
}

void CheckValues(const Catalog& catalog, Findings& findings) {
    for (const repository::ValueRow& row : catalog.Values()) {
        const Findings::About about(findings, catalog.ObjectsWith(row.InterfaceID));
        if (catalog.FindInterface(row.InterfaceID) == nullptr) {
            findings.Error(ValueText(row) + ": its interface, " + Id("InterfaceID", row.InterfaceID) +
                           ", does not exist");
        }
        if (row.ChildObjectID != repository::NoObject && catalog.FindObject(row.ChildObjectID) == nullptr) {
            findings.Error(ValueText(row) + ": its child, " + Id("ObjectID", row.ChildObjectID) +
                           ", does not exist");
        }
    }
}

void CheckKeyRows(const Catalog& catalog, Findings& findings) {
    for (const repository::PrimaryKeyRow& row : catalog.PrimaryKeys()) {
        const Findings::About about(findings, {row.ObjectID});
        const bool dangles =
            catalog.FindObject(row.ObjectID) == nullptr || catalog.FindValue(row.ValueID) == nullptr;
        if (dangles) {
            findings.Error("tPrimaryKeys: " + Id("ObjectID", row.ObjectID) + " or " +
                           Id("ValueID", row.ValueID) + " does not exist");
        }
    }
    for (const repository::ForeignKeyRow& row : catalog.ForeignKeys()) {
        const Findings::About about(findings, {row.ObjectID});
        const bool dangles =
            catalog.FindObject(row.ObjectID) == nullptr || catalog.FindValue(row.ValueID) == nullptr ||
            catalog.FindObject(row.FKObjectID) == nullptr || catalog.FindValue(row.FKValueID) == nullptr;
        if (dangles) {
            findings.Error("tForeignKeys: " + Id("ObjectID", row.ObjectID) + ", " +
                           Id("ValueID", row.ValueID) + ", " + Id("FKObjectID", row.FKObjectID) + " or " +
                           Id("FKValueID", row.FKValueID) + " does not exist");
        }
    }
}

/// Objects and interfaces that no definition leads to.
void CheckUse(const Catalog& catalog, Findings& findings) {
    std::set<repository::ObjectId> reached;
    std::vector<repository::ObjectId> waiting;
    for (const repository::DataDefRow& row : catalog.DataDefs())
        waiting.push_back(row.RootObjectID);
    while (!waiting.empty()) {
        const repository::ObjectId id = waiting.back();
        waiting.pop_back();
        if (!reached.insert(id).second) continue;
        const auto children = catalog.ChildrenOf(id);
        waiting.insert(waiting.end(), children.begin(), children.end());
    }
    for (const repository::ObjectRow& row : catalog.Objects()) {
        const Findings::About about(findings, {row.ObjectID});
        if (!reached.contains(row.ObjectID)) {
            findings.Warning(ObjectText(catalog, row.ObjectID) + " is part of no definition");
        }
    }
    std::set<repository::InterfaceId> used;
    for (const repository::ObjectInterfaceRow& row : catalog.ObjectInterfaces())
        used.insert(row.InterfaceID);
    for (const repository::InterfaceRow& row : catalog.Interfaces()) {
        if (!used.contains(row.InterfaceID)) {
            findings.Warning("interface " + row.Name + " (" + Id("InterfaceID", row.InterfaceID) +
                             ") belongs to no object");
        }
    }
}

}  // namespace

void CheckReferences(const Catalog& catalog, Findings& findings) {
    CheckDataDefs(catalog, findings);
    CheckObjects(catalog, findings);
    CheckValues(catalog, findings);
    CheckKeyRows(catalog, findings);
    CheckUse(catalog, findings);
}

bool CheckCycles(const Catalog& catalog, Findings& findings) {
    std::vector<repository::ObjectId> objects;
    for (const repository::ObjectRow& row : catalog.Objects())
        objects.push_back(row.ObjectID);
    std::vector<repository::ObjectId> finished;
    const auto cycle = repository::FindOwnAncestor(catalog, objects, finished);
    if (cycle) findings.Error("an object is its own ancestor: " + *cycle);
    return !cycle;
}

}  // namespace korvex::cli
