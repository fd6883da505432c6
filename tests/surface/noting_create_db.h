#pragma once

#include "support/call_note.h"
#include "support/recording_parts.h"
#include "surface/cls_create_db.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvex::surface {

/// Parts that note what reaches them; the engines are missing.
inline Platform NotingParts(const tests::Journal& journal) {
    return {.repositoryEngine = {},
            .targetProvider = {},
            .desktop = std::make_shared<tests::RecordingDesktop>(journal),
            .files = std::make_shared<tests::RecordingFiles>(journal)};
}

/// A host's own generator: notes the public members that are called, and does nothing else.
class NotingCreateDb : public clsCreateDb, public tests::CallNote {
  public:
    using Variant = automation::Variant;

    NotingCreateDb() : clsCreateDb(NotingParts(std::make_shared<std::vector<std::string>>())) {}

    std::shared_ptr<automation::Collection> ScriptTypes(const Variant& service) override {
        Note("ScriptTypes", service);
        return clsCreateDb::ScriptTypes();
    }
    void DoScript(const std::string& id, const std::string& file, const std::string& storage,
                  const Variant& prefix, const Variant& service) override {
        Note("DoScript", id, file, storage, prefix, service);
    }
    std::string FKPrefix() override { return Answer("FKPrefix"); }
    void FKPrefix(const std::string& value) override { Note("FKPrefix", value); }
    std::string ScriptFilePath() override { return Answer("ScriptFilePath"); }
    void ScriptFilePath(const std::string& value) override { Note("ScriptFilePath", value); }
    void DoMSsqlDb(const std::string& file, const std::string& storage, const Variant& prefix) override {
        Note("DoMSsqlDb", file, storage, prefix);
    }
    void DoOracleDb(const std::string& file, const std::string& storage, const Variant& prefix) override {
        Note("DoOracleDb", file, storage, prefix);
    }
    void DoSybaseDb(const std::string& file, const std::string& storage, const Variant& prefix) override {
        Note("DoSybaseDb", file, storage, prefix);
    }
    void CreateRelationship(const std::string& storage, const Variant& prefix) override {
        Note("CreateRelationship", storage, prefix);
    }
    void ShutDown() override { Note("ShutDown"); }
    const std::string& DbSQL() override { return Answer("DbSQL"); }
    const std::string& DropSQL() override { return Answer("DropSQL"); }
    const std::string& StoredProcSQL() override { return Answer("StoredProcSQL"); }
    const std::string& FkConstraintSQL() override { return Answer("FkConstraintSQL"); }
    const std::string& DropFkConstraintSQL() override { return Answer("DropFkConstraintSQL"); }
    void ShowLog() override { Note("ShowLog"); }
    Variant ConnectDB(const std::string& connection) override {
        return Noted("connected", "ConnectDB", connection);
    }
};

}  // namespace korvex::surface
