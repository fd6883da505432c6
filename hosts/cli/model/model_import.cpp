#include "hosts/cli/model/model_import.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/model/model_changes.h"
#include "hosts/cli/model/model_export.h"
#include "hosts/cli/model/model_merge.h"
#include "hosts/cli/model/model_store.h"
#include "repository/catalog.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace korvex::cli {

namespace {

using automation::Error;

void RefuseClashes(const Model& model, dao::Database& database) {
    const repository::Catalog catalog = repository::Catalog::Read(database);
    std::unordered_set<std::string_view> storages;
    for (const repository::DataDefRow& row : catalog.DataDefs())
        storages.insert(row.Storage);
    for (const ModelDefinition& definition : model.definitions) {
        if (!storages.contains(definition.storage)) continue;
        throw Error(automation::InvalidProcedureCall,
                    PlaceText(model, definition.place, "storage") +
                        "the repository already has a definition with the storage name " +
                        automation::Quoted(definition.storage) + "; nothing was imported.");
    }
    std::unordered_map<std::string_view, const repository::ObjectRow*> guids;
    for (const repository::ObjectRow& row : catalog.Objects())
        guids.emplace(row.Guid, &row);
    for (const ModelObject& object : model.objects) {
        const auto same = object.Guid.empty() ? guids.end() : guids.find(object.Guid);
        if (same == guids.end()) continue;
        RefuseGuid(model, object, same->second->Name);
    }
}

/// Does all of `work` or none of it.
template <class Work>
auto InTransaction(dao::Database& database, Work&& work) {
    const bool isOffered = database.BeginTrans();
    // It is not offered where a failure spoils it; here the first one ends the work anyway.
    if (!isOffered) database.Execute("BEGIN");
    try {
        auto result = work();
        isOffered ? database.CommitTrans() : database.Execute("COMMIT");
        return result;
    } catch (...) {
        isOffered ? database.Rollback() : database.Execute("ROLLBACK");
        throw;
    }
}

}  // namespace

Model ImportModel(const Model& model, dao::Database& database) {
    return InTransaction(database, [&] {
        RefuseClashes(model, database);
        Model added = MergeModel({}, model);
        StoreModel({}, added, database);
        return added;
    });
}

std::vector<std::string> ReplaceDefinitions(const Model& model, std::span<const std::string> removed,
                                            dao::Database& database, bool isDry) {
    return InTransaction(database, [&] {
        const Model before = ExportModel(repository::Catalog::Read(database), "");
        Model after = MergeModel(before, model, removed);
        std::vector<std::string> changes = DescribeChanges(before, after);
        if (!isDry) StoreModel(before, after, database);
        return changes;
    });
}

}  // namespace korvex::cli
