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
///
/// Arguments of the same name mean the same in all members:
/// - `FileName`, `sFilename`: the repository, a database file or an ODBC connection string that holds `DSN=`.
/// - `storageName`: the storage name of a definition. Empty means all definitions; of one that nobody has,
///   scripts are empty. One with a single quote raises InvalidProcedureCall (5) before any statement.
/// - `sFKPrefix`: the prefix of foreign-key columns, converted to text; `FK_` where it is missing.
///   InvalidProcedureCall (5) for one that leaves no room for a key in the 30 characters of a name, or holds
///   a single quote.
///
/// Errors are raised as automation::Error; only a query of the repository that fails is shown in a message
/// box (Platform::desktop), and the run goes on without its rows.
class clsCreateDb : public automation::TableObject {
  public:
    /// Works with the parts of this build.
    clsCreateDb();
    /// Works with the host's own parts.
    /// @param platform the parts; ScriptFilePath begins as what its `files` call the library's folder
    explicit clsCreateDb(const Platform& platform);
    ~clsCreateDb() override;

    /// The identifiers of the three published dialects, as DoScript takes them.
    /// @param oLanguageSvr an object with a member GetString(16-bit 410, 16-bit 13, 32-bit text number),
    /// which
    ///     is asked for the texts 90, 92 and 94; Missing and Nothing stand for none. ObjectRequired (424) for
    ///     what is no object; errors of the service reach the caller.
    /// @return a new collection of three texts: "90", "92", "94" without a service, else its names; "MS SQL",
    ///     "Oracle", "Sybase" for those that it answers with ""
    virtual std::shared_ptr<automation::Collection> ScriptTypes(
        const automation::Variant& oLanguageSvr = automation::Variant::Missing());

    /// One whole run in the dialect of that identifier, through DoMSsqlDb, DoOracleDb or DoSybaseDb.
    /// @param sID an identifier exactly as ScriptTypes spells it; any other text does nothing
    /// @param sFilename the repository
    /// @param storageName the definition
    /// @param sFKPrefix the prefix of foreign-key columns
    /// @param oLanguageSvr as for ScriptTypes: with one, `sID` is a name, without one a number
    virtual void DoScript(const std::string& sID, const std::string& sFilename,
                          const std::string& storageName = {},
                          const automation::Variant& sFKPrefix = automation::Variant::Missing(),
                          const automation::Variant& oLanguageSvr = automation::Variant::Missing());

    /// Prefix of foreign-key column names. Every CreateRelationship, and so every run, sets it anew.
    /// @param value any text; the next run replaces it
    /// @return "" on a new object
    virtual std::string FKPrefix();
    virtual void FKPrefix(const std::string& value);

    /// Folder of the script files; at first the one that the library was loaded from.
    /// @param value a folder that exists, with or without a separator at its end; "" means the root. It is
    ///     looked at when files are written.
    /// @return the folder as it was set
    virtual std::string ScriptFilePath();
    virtual void ScriptFilePath(const std::string& value);

    /// One whole run for MS SQL: opens the repository, brings its keys up to date, generates the scripts,
    /// writes `MSCreate.sql`, `MSDel.sql`, `MSSProc.sql`, `MSFKCr.sql` and `MSFKdel.sql` into ScriptFilePath
    /// and opens them in an editor. Lines end in CR LF. The first error ends the run: the repository stays
    /// open until the next one, and no further file is written. OutOfStackSpace (28) for an object that is
    /// its own ancestor; else errors of the repository's engine (dao::ErrorNumber) and of ShowLog.
    /// @param FileName the repository
    /// @param storageName the definition
    /// @param sFKPrefix the prefix of foreign-key columns
    virtual void DoMSsqlDb(const std::string& FileName, const std::string& storageName = {},
                           const automation::Variant& sFKPrefix = automation::Variant::Missing());
    /// As DoMSsqlDb, for Oracle: `OraCreate.sql`, `OraDel.sql`, `OraSProc.sql`, `OraFKCr.sql` and
    /// `OraFKDel.sql`. A table of which lengths over 4000 make more than one LONG or LONG RAW, which Oracle
    /// does not take, is told of in a message box before the files are written.
    /// @param FileName the repository
    /// @param storageName the definition
    /// @param sFKPrefix the prefix of foreign-key columns
    virtual void DoOracleDb(const std::string& FileName, const std::string& storageName = {},
                            const automation::Variant& sFKPrefix = automation::Variant::Missing());
    /// As DoMSsqlDb, for Sybase: `SyCreate.sql`, `SyDel.sql`, `SySProc.sql`, `SyFKCr.sql` and `SyFKdel.sql`.
    /// @param FileName the repository
    /// @param storageName the definition
    /// @param sFKPrefix the prefix of foreign-key columns
    virtual void DoSybaseDb(const std::string& FileName, const std::string& storageName = {},
                            const automation::Variant& sFKPrefix = automation::Variant::Missing());

    /// Brings the relational keys of a definition up to date in the open repository (OpenRepository): table
    /// names, key interfaces and columns, rows of primary and foreign keys. Called twice it leaves the same
    /// rows. Where the engine has transactions it succeeds as a whole or changes nothing.
    /// ObjectVariableNotSet (91) when no repository is open, OutOfStackSpace (28) for an object that is its
    /// own ancestor; errors of the engine reach the caller.
    /// @param storageName the definition
    /// @param sFKPrefix the prefix of foreign-key columns; FKPrefix reads it from then on
    virtual void CreateRelationship(const std::string& storageName = {},
                                    const automation::Variant& sFKPrefix = automation::Variant::Missing());

    /// Ends a run: closes the repository (ObjectVariableNotSet, 91, when none is open), then ShowLog.
    virtual void ShutDown();

    /// The script of the last run that creates the tables; "" before any. As all five texts it has CR LF line
    /// ends and lasts until the next run begins.
    /// @return the text, valid as long as this object and until its next run
    virtual const std::string& DbSQL();
    /// The script of the last run that drops tables and stored procedures.
    /// @return as DbSQL
    virtual const std::string& DropSQL();
    /// The script of the last run that creates the stored procedures.
    /// @return as DbSQL
    virtual const std::string& StoredProcSQL();
    /// The script that creates the foreign-key constraints. A run does not empty it: its text goes on from
    /// run to run of one object.
    /// @return as DbSQL
    virtual const std::string& FkConstraintSQL();
    /// The script of the last run that drops the foreign-key constraints.
    /// @return as DbSQL
    virtual const std::string& DropFkConstraintSQL();

    /// Writes the five texts of the last run to their files and opens each in an editor (Platform::desktop).
    /// Only a failure of the first file is raised: PathNotFound (76), also before any run, PermissionDenied
    /// (70), DiskFull (61) or PathFileAccessError (75). UnwrittenFiles has the others.
    virtual void ShowLog();

    /// Kept for old hosts: does nothing.
    /// @param sConnection is not looked at
    /// @return Empty
    virtual automation::Variant ConnectDB(const std::string& sConnection);

    const automation::ClassInfo& Class() const noexcept override;

    /// Opens a repository for calls of CreateRelationship on their own; one that is still open is let go.
    /// Raises the engine's error. For C++ hosts only, no part of the automation interface.
    /// @param sConnection the repository
    void OpenRepository(const std::string& sConnection);
    /// Closes the repository without writing files; nothing happens when none is open. For C++ hosts only.
    void CloseRepository();

    /// Why files of the last run were not written, but for the first one, which ends it. For C++ hosts only.
    /// @return an error for each such file, in their order; valid until the next run
    const std::vector<automation::Error>& UnwrittenFiles() const noexcept;

    /// One whole run for an engine dialect: two files on SQLite, four on the others, as there are no
    /// procedures; every table is written once. The five texts stay as they were. For C++ hosts only.
    /// @param sEngine "sqlite", "mariadb" or "postgresql"; InvalidProcedureCall (5) for any other
    /// @param FileName the repository
    /// @param storageName the definition
    /// @param sFKPrefix the prefix of foreign-key columns
    /// @return sentences for people: what the engine will not take, what is left out and what is not as the
    ///     definition has it; none where all is well
    std::vector<std::string> DoEngineDb(
        const std::string& sEngine, const std::string& FileName, const std::string& storageName = {},
        const automation::Variant& sFKPrefix = automation::Variant::Missing());

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
