#pragma once

#include "automation/variant.h"
#include "platform/platform.h"
#include "repository/ids.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace korvex::repository {

/// The object that each foreign-key value refers to, by ValueID.
using KeyParents = std::unordered_map<ValueId, ObjectId>;

/// The definition repository of one clsCreateDb: opening, the query helpers through which everything else
/// reads and writes it, and closing.
class Repository {
  public:
    explicit Repository(Platform platform);

    /// Opens a database file, or through ODBC any string that holds "DSN=" in any case. Raises the engine's
    /// error. An earlier repository that was not closed is let go. A file that the engine only reads as a
    /// whole is copied, and the copy is opened: TableNotFound (3078) or ItemNotFound (3265) where the file
    /// holds no complete repository.
    void OpenRepository(std::string_view sConnection);

    /// An empty database that nobody else sees, opened as a repository with the same parts. The
    /// embedded engine makes them of an empty file name; others raise their error for it.
    Repository NewPrivate() const;

    /// Opens a read-only recordset. A statement that fails shows the engine's description in a message box
    /// and gives nullptr.
    std::unique_ptr<dao::Recordset> OpenSnapshot(std::string_view sSQL);
    /// As OpenSnapshot, for a recordset that adds and edits rows.
    std::unique_ptr<dao::Recordset> OpenDynaset(std::string_view sSQL);

    /// The field's value with Null turned into Empty. Every column value that is read passes through here.
    static automation::Variant FieldValue(dao::Field& field);

    /// Whether the object takes part in the scripts. A query that failed raises ObjectVariableNotSet (91).
    bool IsObjectIncluded(ObjectId lObjectID);

    /// Runs an action statement; engine errors reach the caller.
    void Execute(std::string_view sSQL);

    /// The open repository; ObjectVariableNotSet (91) when there is none.
    dao::Database& Open();
    bool IsOpen() const noexcept { return m_dbRepository != nullptr; }
    bool IsOdbc() const noexcept { return m_bOdbc; }

    /// What CreateRelationship has found out about the open repository: the parent that each foreign key it
    /// wrote stands for in the scripts. Where parents of one name share a child, it is the last of them.
    const KeyParents& ScriptedParents() const noexcept { return m_scriptedParents; }
    void ScriptedParents(KeyParents parents) { m_scriptedParents = std::move(parents); }

    /// Closes the repository; ObjectVariableNotSet (91) when none is open. The ODBC workspace stays.
    void Close();

    platform::Desktop& Desktop() noexcept { return *m_platform.desktop; }

  private:
    Platform m_platform;
    bool m_bOdbc = false;
    std::shared_ptr<dao::Workspace> m_wsOdbc;
    std::unique_ptr<dao::Database> m_dbRepository;
    KeyParents m_scriptedParents;
};

}  // namespace korvex::repository
