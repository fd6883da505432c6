#pragma once

#include "automation/dispatch.h"
#include "automation/error.h"
#include "persistence/db_results.h"
#include "persistence/qor_object.h"
#include "platform/platform.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace korvex {

/// Reads and writes QORObject data to and from a relational database. One object is used from one thread.
///
/// The members stand in the slot order of the automation interface and are virtual: calls between members go
/// through them, so a derived class sees them, and each resets LastResult. LastResult therefore holds the
/// code set last in the whole call tree.
class clsCRUD : public automation::TableObject {
  public:
    clsCRUD();
    explicit clsCRUD(Platform platform);
    ~clsCRUD() override;

    virtual dbResults LastResult();
    /// Prefix of foreign-key column names, stored as given.
    virtual std::string FKPrefix();
    virtual void FKPrefix(const std::string& value);
    /// The connection in use. Setting one does not connect the object: operations want a successful ConnectDB
    /// before.
    virtual std::shared_ptr<ado::Connection> DbConn();
    virtual void DbConn(const std::shared_ptr<ado::Connection>& connection);
    /// Drops an earlier connection and opens `sConnection`. A failure shows the engine's description and
    /// gives dbConnectError.
    virtual bool ConnectDB(const automation::Variant& sConnection,
                           const automation::Variant& sFKPrefix = automation::Variant::Missing());
    virtual automation::Variant DisconnectDB();
    virtual bool DbDataExists(const QORObject::Ref& coData,
                              const automation::Variant& lKey = automation::Variant::Missing());
    virtual bool DbGetField(const automation::Variant& lKey, const std::string& sKeyFieldName,
                            const std::string& sTableName, const std::string& sFieldName,
                            automation::Variant& vntFieldValue);
    virtual bool DbSaveField(const automation::Variant& lKey, const std::string& sKeyFieldName,
                             const std::string& sTableName, const std::string& sFieldName,
                             const automation::Variant& vntFieldValue);
    /// Loads a record and everything beneath it; the object's own key, 0 when nothing was loaded.
    virtual std::int32_t DbGetData(const QORObject::Ref& coData, const automation::Variant& lKey,
                                   const std::string& sKeyFieldName = {});
    /// Inserts a record and everything beneath it; the new key of the topmost record, 0 when nothing was
    /// written.
    virtual std::int32_t DbSaveData(const QORObject::Ref& coData);
    /// Writes only what differs from the stored records; the key, 0 on failure.
    virtual std::int32_t DbUpdateData(const QORObject::Ref& coData,
                                      const automation::Variant& lKey = automation::Variant::Missing(),
                                      const std::string& sKeyFieldName = {});
    /// Keeps the root's record and key, replaces everything beneath it; the key, 0 on failure.
    virtual std::int32_t DbUpdateDataRetainRoot(const QORObject::Ref& coData,
                                                const automation::Variant& lKey);
    /// Deletes the record and everything beneath it; the key once it was looked up, 0 when the call stopped
    /// earlier.
    virtual std::int32_t DbDeleteData(const QORObject::Ref& coData, const automation::Variant& lKey,
                                      const std::string& sSelKey = {});
    virtual std::string GetTableName(const QORObject::Ref& coDataDef);
    virtual std::string GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef);
    virtual std::string GetForeignKeyFieldName(const QORObject::Ref& coDataDef);
    /// Keyset, optimistic, on its first record; nullptr when that fails, an unopened one when not connected.
    /// Only a plain "select * from T" is executed when it is first read, and fails there.
    virtual std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sSQL);

    /// Inserts, changes and deletes that the last load, save, update or delete of an object tree sent. For
    /// C++ hosts; it is in no member table.
    std::size_t Writes() const noexcept;

    /// The engine's error behind a code or an answer of the last call: of a connection or the first statement
    /// that did not open (dbConnectError, dbCannotOpenRecordset), and of a field that DbGetField could not
    /// read or DbSaveField not write. Nothing when the call trapped none. For C++ hosts; it is in no member
    /// table.
    const std::optional<automation::Error>& TrappedError() const noexcept;

    const automation::ClassInfo& Class() const noexcept override;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
