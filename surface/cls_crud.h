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
/// Each member but the property accessors first sets LastResult to dbNoError; the first check that fails sets
/// one code and ends the call with a neutral result (False, 0, "", Nothing). Errors of the engine are trapped
/// only where a connection or a recordset is opened and where a single field is read or written; elsewhere
/// they, and errors of data objects, reach the caller as automation::Error. Nothing is a transaction of its
/// own: DbConn has BeginTrans, CommitTrans and RollbackTrans.
///
/// The members stand in the slot order of the automation interface and are virtual: calls between members go
/// through them, so a derived class sees them, and each resets LastResult. LastResult therefore holds the
/// code set last in the whole call tree.
///
/// Keys (`lKey`) are whole numbers, or texts that are numbers: they stand in statements without quotes, and
/// TypeMismatch (13) refuses any other text before a statement runs. Empty and Null give dbPrimaryKeyMissing.
/// Names of tables and columns stand in statements as they are given.
class clsCRUD : public automation::TableObject {
  public:
    /// Works with the parts of this build.
    clsCRUD();
    /// Works with the host's own parts.
    /// @param platform the parts; of these, the target provider, the desktop (for a connection that fails)
    ///     and the factory of data objects are used
    explicit clsCRUD(Platform platform);
    ~clsCRUD() override;

    /// The code that the last member left.
    /// @return dbNoError on a new object. The first ConnectDB that succeeds leaves dbNotConnected, as its
    /// inner
    ///     DisconnectDB found no connection; later ones leave dbNoError.
    virtual dbResults LastResult();
    /// Prefix of foreign-key column names. ConnectDB sets it anew.
    /// @param value any text, stored as given: the prefix under which the tables were made, case included
    /// @return "" on a new object
    virtual std::string FKPrefix();
    virtual void FKPrefix(const std::string& value);
    /// The connection in use, for transactions and statements of the host's own.
    /// @param connection replaces it; that does not connect the object: members want a successful ConnectDB
    ///     before
    /// @return nullptr when there is none
    virtual std::shared_ptr<ado::Connection> DbConn();
    virtual void DbConn(const std::shared_ptr<ado::Connection>& connection);
    /// Drops an earlier connection and opens another. A failure shows the engine's description in a message
    /// box (Platform::desktop) and gives dbConnectError; TrappedError has the error.
    /// @param sConnection an ADO connection string; natively `Provider=SQLite;Data Source=FILE` or one of
    /// ODBC
    /// @param sFKPrefix becomes FKPrefix, also when it is ""; `FK_` where it is missing
    /// @return whether the object is connected
    virtual bool ConnectDB(const automation::Variant& sConnection,
                           const automation::Variant& sFKPrefix = automation::Variant::Missing());
    /// Closes and lets go of the connection; dbNotConnected when there is none. An error of the close reaches
    /// the caller. The destructor does the same, and drops the error.
    /// @return Empty
    virtual automation::Variant DisconnectDB();
    /// Whether there is a record with that key. That there is none is no failure. Codes: dbNotConnected,
    /// dbPrimaryKeyFieldNameMissing, dbPrimaryKeyMissing, dbTableNameMissing, dbCannotOpenRecordset.
    /// @param coData a data object, for its definition
    /// @param lKey the key; where it is missing, the one in the object
    /// @return False also on failure
    virtual bool DbDataExists(const QORObject::Ref& coData,
                              const automation::Variant& lKey = automation::Variant::Missing());
    /// Reads one column of one record, without a data object. Codes: dbNotConnected, dbBadParameter for a
    /// name that is "", dbCannotOpenRecordset, dbNoMatchingRecord. A column that the table does not have
    /// gives False and no code; TrappedError has the error.
    /// @param lKey the key of the record
    /// @param sKeyFieldName the column that holds it
    /// @param sTableName the table
    /// @param sFieldName the column to read
    /// @param vntFieldValue receives the value, Null for SQL's NULL; untouched where the result is False
    /// @return whether the value was read
    virtual bool DbGetField(const automation::Variant& lKey, const std::string& sKeyFieldName,
                            const std::string& sTableName, const std::string& sFieldName,
                            automation::Variant& vntFieldValue);
    /// Writes one column of one record. Codes as for DbGetField. True says that the column took the value: an
    /// update that the engine refuses afterwards is passed over, and only TrappedError tells.
    /// @param lKey the key of the record
    /// @param sKeyFieldName the column that holds it
    /// @param sTableName the table
    /// @param sFieldName the column to write
    /// @param vntFieldValue the value; Null stores NULL
    /// @return whether the column took the value
    virtual bool DbSaveField(const automation::Variant& lKey, const std::string& sKeyFieldName,
                             const std::string& sTableName, const std::string& sFieldName,
                             const automation::Variant& vntFieldValue);
    /// Loads a record and everything beneath it; what is loaded reads Modified False. Elements are appended,
    /// so an object is loaded once. Codes: dbNotConnected, dbPrimaryKeyMissing, dbPrimaryKeyFieldNameMissing,
    /// dbTableNameMissing, dbCannotOpenRecordset, dbNoMatchingRecord; the last one is also left where the
    /// record was loaded and the child that was looked for last has none. Judge the call by its result.
    /// @param coData the object to fill; what was loaded before a failure stays in it
    /// @param lKey the key that selects the record; the first one counts where there are several
    /// @param sKeyFieldName the column that holds it; "" for the definition's own key
    /// @return the object's own key, 0 when nothing was loaded or the key is no value of the definition
    virtual std::int32_t DbGetData(const QORObject::Ref& coData, const automation::Variant& lKey,
                                   const std::string& sKeyFieldName = {});
    /// Inserts a record and everything beneath it, as new records. The objects receive their keys and
    /// foreign keys and read Modified False. Blank values become "", or 0 where the column refuses that; text
    /// is cut to the size of its column. Records that were written stay when a later one fails. Codes:
    /// dbNotConnected; dbParentNotInDatabase and dbPrimaryKeyMissing for a parent that is not stored;
    /// dbTableNotIncluded, dbCannotOpenRecordset.
    /// @param coData an object from any point of a definition's tree; one with a foreign key needs it in its
    ///     value (above 0), or a Parent that is stored
    /// @return the new key of the topmost record, 0 when nothing was written
    virtual std::int32_t DbSaveData(const QORObject::Ref& coData);
    /// Writes only what differs from the stored records: columns of objects that read Modified True, new
    /// children and elements; of a collection whose list changed (QORObject::ListModified) the elements that
    /// it no longer holds are deleted. Codes: those of DbGetData; dbObjectNotModified when the whole tree
    /// reads Modified False; dbNoMatchingRecord and dbCannotOpenRecordset also when all else was written, but
    /// a changed element's record is gone, or a statement did not open: the same call once more goes on
    /// there.
    /// @param coData the root of the tree
    /// @param lKey the key of the root's record; where it is missing, the one in the object
    /// @param sKeyFieldName the column that holds it; "" for the definition's own key
    /// @return the key, also with dbObjectNotModified; 0 on failure
    virtual std::int32_t DbUpdateData(const QORObject::Ref& coData,
                                      const automation::Variant& lKey = automation::Variant::Missing(),
                                      const std::string& sKeyFieldName = {});
    /// Gives the root's record all values of the object and keeps its key, deletes everything stored beneath
    /// it and saves the tree's children and elements anew, with new keys. Codes as for DbUpdateData, but for
    /// dbObjectNotModified.
    /// @param coData the root of the tree
    /// @param lKey the key of the root's record
    /// @return the key, 0 on failure
    virtual std::int32_t DbUpdateDataRetainRoot(const QORObject::Ref& coData,
                                                const automation::Variant& lKey);
    /// Deletes the record and everything beneath it, what is beneath first; a delete that fails stays
    /// partial. Codes: dbNotConnected, dbPrimaryKeyMissing (also for a record whose own key is below 1),
    /// dbPrimaryKeyFieldNameMissing, dbTableNameMissing, dbCannotOpenRecordset, dbNoMatchingRecord.
    /// @param coData a data object, for its definition; its values are not read
    /// @param lKey the key that selects the record
    /// @param sSelKey the column that holds it; "" for the definition's own key
    /// @return the key once it was looked up, also when there is no such record; 0 when the call stopped
    ///     earlier
    virtual std::int32_t DbDeleteData(const QORObject::Ref& coData, const automation::Variant& lKey,
                                      const std::string& sSelKey = {});
    /// The table of a definition: its attTableName. dbTableNotIncluded where attIsIncluded is False.
    /// @param coDataDef a definition; ObjectVariableNotSet (91) for Nothing
    /// @return "" for objects without a table
    virtual std::string GetTableName(const QORObject::Ref& coDataDef);
    /// The column of a definition's own key: the attFieldName of a value that an entry of attPrimaryKeys
    /// names, case included. Of several the last one counts.
    /// @param coDataDef a definition; ObjectVariableNotSet (91) for Nothing
    /// @return "" where there is none, without a code
    virtual std::string GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef);
    /// The column that refers to the parent: the attForeignKeyField of the first entry of attForeignKeys.
    /// @param coDataDef a definition; ObjectVariableNotSet (91) for Nothing
    /// @return "" where there is none, without a code
    virtual std::string GetForeignKeyFieldName(const QORObject::Ref& coDataDef);
    /// Opens a recordset with a keyset cursor and optimistic locks, on its first record. A plain
    /// `select * from T` is executed when it is first read, and fails there. Codes: dbNotConnected,
    /// dbCannotOpenRecordset.
    /// @param sSQL one statement, sent as it is
    /// @return nullptr for a statement that fails; an unopened recordset when the object is not connected
    virtual std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sSQL);

    /// How many inserts, changes and deletes the last load, save, update or delete of an object tree sent.
    /// For C++ hosts; it is in no member table.
    /// @return 0 where nothing differed
    std::size_t Writes() const noexcept;

    /// The engine's error behind a code or an answer of the last call: of a connection or the first statement
    /// that did not open (dbConnectError, dbCannotOpenRecordset), and of a field that DbGetField could not
    /// read or DbSaveField not write. For C++ hosts; it is in no member table.
    /// @return nothing when the call trapped none
    const std::optional<automation::Error>& TrappedError() const noexcept;

    const automation::ClassInfo& Class() const noexcept override;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
