#pragma once

#include "automation/collection.h"
#include "automation/dispatch.h"
#include "automation/error.h"
#include "platform/platform.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex {

/// Schema script generator. One object serves one job after another; it is used from one thread. While a
/// message box of it is open, members that run, or that open or close a repository, raise
/// InvalidProcedureCall (5).
///
/// The members stand in the slot order of the automation interface and are virtual: calls between members go
/// through them, so a derived class sees them. Arguments that automation passes by reference are only read.
class clsCreateDb : public automation::TableObject {
  public:
    /// Works with the parts of this build.
    clsCreateDb();
    /// Works with the host's own parts.
    explicit clsCreateDb(const Platform& platform);
    ~clsCreateDb() override;

    /// The three dialect identifiers: "90", "92", "94", or with a language service (an object with a member
    /// GetString(16-bit, 16-bit, long)) its names for them, by default "MS SQL", "Oracle", "Sybase".
    virtual std::shared_ptr<automation::Collection> ScriptTypes(
        const automation::Variant& oLanguageSvr = automation::Variant::Missing());

    /// Runs the dialect that `sID` names, exactly as ScriptTypes spells it; any other text does nothing.
    /// `sFilename` is the repository: a database file, or an ODBC connection string with DSN=.
    virtual void DoScript(const std::string& sID, const std::string& sFilename,
                          const std::string& storageName = {},
                          const automation::Variant& sFKPrefix = automation::Variant::Missing(),
                          const automation::Variant& oLanguageSvr = automation::Variant::Missing());

    /// Prefix of foreign-key column names; set anew by every CreateRelationship ("FK_" unless given).
    virtual std::string FKPrefix();
    virtual void FKPrefix(const std::string& value);

    /// Folder of the script files; at first the library's own.
    virtual std::string ScriptFilePath();
    virtual void ScriptFilePath(const std::string& value);

    /// One whole run: opens the repository `FileName`, brings its keys up to date, generates the scripts of
    /// `storageName` (of all definitions when empty), writes the five files and opens them. Raises the first
    /// error that is not a query's.
    virtual void DoMSsqlDb(const std::string& FileName, const std::string& storageName = {},
                           const automation::Variant& sFKPrefix = automation::Variant::Missing());
    virtual void DoOracleDb(const std::string& FileName, const std::string& storageName = {},
                            const automation::Variant& sFKPrefix = automation::Variant::Missing());
    virtual void DoSybaseDb(const std::string& FileName, const std::string& storageName = {},
                            const automation::Variant& sFKPrefix = automation::Variant::Missing());

    /// Brings the relational keys of a definition up to date in the open repository.
    virtual void CreateRelationship(const std::string& storageName = {},
                                    const automation::Variant& sFKPrefix = automation::Variant::Missing());

    /// Ends a run: closes the repository (ObjectVariableNotSet, 91, when none is open), then ShowLog.
    virtual void ShutDown();

    /// The five script texts of the last run.
    virtual const std::string& DbSQL();
    virtual const std::string& DropSQL();
    virtual const std::string& StoredProcSQL();
    virtual const std::string& FkConstraintSQL();
    virtual const std::string& DropFkConstraintSQL();

    /// Writes the five texts of the last run to their files and opens each in an editor. Only a failure of
    /// the first file is raised; PathNotFound (76) before any run.
    virtual void ShowLog();

    /// Kept for old hosts: does nothing and answers Empty.
    virtual automation::Variant ConnectDB(const std::string& sConnection);

    const automation::ClassInfo& Class() const noexcept override;

    /// For C++ hosts only, no part of the automation interface: opens a repository for calls of
    /// CreateRelationship on their own, and closes it without writing files (nothing when none is open).
    void OpenRepository(const std::string& sConnection);
    void CloseRepository();

    /// For C++ hosts only: why files of the last run were not written, but for the first one, which ends it.
    const std::vector<automation::Error>& UnwrittenFiles() const noexcept;

    /// For C++ hosts only: one whole run for a database engine, as DoMSsqlDb; `sEngine` is "sqlite",
    /// "mariadb" or "postgresql" (InvalidProcedureCall, 5, for any other). There are no procedures, and every
    /// table is written once. Gives, for people, what the engine will not take, what is left out and what is
    /// not as the definition has it.
    std::vector<std::string> DoEngineDb(
        const std::string& sEngine, const std::string& FileName, const std::string& storageName = {},
        const automation::Variant& sFKPrefix = automation::Variant::Missing());

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
