#pragma once

#include "automation/error.h"
#include "persistence/db_results.h"
#include "persistence/definition_reading.h"
#include "persistence/public_members.h"
#include "platform/platform.h"
#include "platform/stack.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace korvex::persistence {

/// What the steps of a session came to so far.
struct StepCounts {
    /// Statements that did not open. Steps that go on after one, as the inserts and deletes of a tree do,
    /// leave no other trace of it when later calls reset the last result.
    std::size_t failedOpens = 0;
    /// Changed objects that an update passed over, because their records are gone.
    std::size_t passedOver = 0;
    /// Inserts, changes and deletes that the last descent sent.
    std::size_t writes = 0;
};

/// What one clsCRUD keeps between calls: its connection, the foreign-key prefix and the last result.
class CrudState {
  public:
    CrudState(Platform platform, PublicMembers& members);

    /// The instance's own public members, for inner calls.
    PublicMembers& Members() const noexcept { return m_members; }

    dbResults LastResult() const noexcept { return m_lLastResult; }
    void ResetLastResult() noexcept {
        m_lLastResult = dbNoError;
        if (!m_stack) m_trapped.reset();
    }
    /// Leaves `code`; answers False, so that a failing check reads `return Fail(...)`.
    bool Fail(dbResults code) noexcept;

    const std::string& FKPrefix() const noexcept { return m_sFKPrefix; }
    void FKPrefix(const std::string& value) { m_sFKPrefix = value; }
    /// The column that links child records to a parent with that key column.
    std::string ForeignKeyColumn(const std::string& parentKeyColumn) const;

    const std::shared_ptr<ado::Connection>& DbConn() const noexcept { return m_oConn; }
    void DbConn(const std::shared_ptr<ado::Connection>& connection) { m_oConn = connection; }
    /// A ConnectDB succeeded and no DisconnectDB followed, whatever connection is in use.
    bool IsConnected() const noexcept { return m_bConnected; }

    bool ConnectDB(const automation::Variant& sConnection, const automation::Variant& sFKPrefix);
    void DisconnectDB();
    std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sSQL);

    /// Table of a definition; "" with dbTableNotIncluded for one that is not stored.
    std::string GetTableName(const QORObject::Ref& coDataDef);
    /// Column of the last primary-key entry that names the column of a plain value; "" when none does. Names
    /// compare exactly.
    std::string GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef);
    /// Column of the first foreign-key entry; "" when there is none.
    std::string GetForeignKeyFieldName(const QORObject::Ref& coDataDef);

    /// The first error of the engine that the call in hand, or the last one, answered with a code or passed
    /// over.
    const std::optional<automation::Error>& TrappedError() const noexcept { return m_trapped; }
    void Trap(const automation::Error& error) {
        if (!m_trapped) m_trapped = error;
    }
    StepCounts& Counts() noexcept { return m_counts; }
    /// Runs an action statement; engine errors reach the caller.
    void Execute(const std::string& sSQL);
    /// A working data object of the host's, without a definition; nullptr where the host makes none.
    QORObject::Ref NewDataObject() const;
    /// What a definition says of its values. Within a descent, each definition is read once.
    DefinitionReadings::Reading Read(const QORObject::Ref& definition);

    /// While an update runs, a record is not deleted when what stands beneath it did not open: the update can
    /// be made again. A delete by itself goes on.
    bool IsUpdating() const noexcept { return m_isUpdating; }

  private:
    friend class Descent;

    Platform m_platform;
    PublicMembers& m_members;
    std::shared_ptr<ado::Connection> m_oConn;
    bool m_bConnected = false;
    std::string m_sFKPrefix;
    dbResults m_lLastResult = dbNoError;
    std::optional<automation::Error> m_trapped;
    StepCounts m_counts;
    bool m_isUpdating = false;
    std::optional<platform::StackGuard> m_stack;  ///< of a descent; nothing outside of one
    DefinitionReadings m_readings;                ///< of the definitions met in a descent
};

/// Stands in every step that goes down a tree of data objects, once per level. Raises OutOfStackSpace (28)
/// while the thread still has stack left, so that a tree without end (an object that is its own ancestor) is
/// an error instead of a crash.
class Descent {
  public:
    /// `isUpdate` for the descent of an update, and so for all that go on beneath it.
    explicit Descent(CrudState& session, bool isUpdate = false);
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;
    ~Descent();

  private:
    CrudState& m_session;
    bool m_outermost;
    bool m_wasUpdating;
};

}  // namespace korvex::persistence
