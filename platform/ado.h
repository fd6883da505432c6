#pragma once

#include "automation/dispatch.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// Port to the target database, in the shape of ADO 1.5. Failures are automation::Errors with ADO's numbers
/// (its HRESULTs) and a description that names the table, column or statement. Connection, Recordset, Fields
/// and Field are automation objects: hosts also reach them late bound, by ADO's own member names. Default
/// members: Fields of a recordset, Item of its fields, Value of a field.
namespace korvex::ado {

/// ADO's own constants (CursorTypeEnum, LockTypeEnum, ObjectStateEnum, DataTypeEnum, FieldAttributeEnum).
inline constexpr std::int32_t adUnspecified = -1;         ///< an argument that is left out
inline constexpr std::int32_t adOpenForwardOnly = 0;      ///< cursor: records are met once
inline constexpr std::int32_t adOpenKeyset = 1;           ///< cursor: the records are those of the open
inline constexpr std::int32_t adOpenStatic = 3;           ///< cursor: a copy
inline constexpr std::int32_t adLockReadOnly = 1;         ///< lock: nothing can be changed
inline constexpr std::int32_t adLockOptimistic = 3;       ///< lock: records are written by Update
inline constexpr std::int32_t adLockBatchOptimistic = 4;  ///< lock: as adLockOptimistic, in batches
inline constexpr std::int32_t adStateClosed = 0;          ///< state of what is not open
inline constexpr std::int32_t adStateOpen = 1;            ///< state of what is open

/// Types of columns (DataTypeEnum). Length is told by Field::DefinedSize.
enum DataType : std::int32_t {
    adEmpty = 0,             ///< no type
    adSmallInt = 2,          ///< 16-bit integer
    adInteger = 3,           ///< 32-bit integer
    adSingle = 4,            ///< 32-bit floating point
    adDouble = 5,            ///< 64-bit floating point
    adCurrency = 6,          ///< four decimals, in 64 bits
    adDate = 7,              ///< date and time
    adBoolean = 11,          ///< True or False
    adVariant = 12,          ///< anything
    adDecimal = 14,          ///< exact number
    adUnsignedTinyInt = 17,  ///< a byte
    adBigInt = 20,           ///< 64-bit integer
    adChar = 129,            ///< text of fixed length
    adNumeric = 131,         ///< exact number of declared digits
    adBinary = 128,          ///< bytes of fixed length
    adDBTimeStamp = 135,     ///< date and time of a server
    adVarChar = 200,         ///< text of variable length: a save cuts what is longer
    adLongVarChar = 201,     ///< long text, read and written in chunks
    adVarBinary = 204,       ///< bytes of variable length
    adLongVarBinary = 205,   ///< long binary, read and written in chunks
};

inline constexpr std::int32_t adFldUpdatable = 4;    ///< the column can be written
inline constexpr std::int32_t adFldIsNullable = 32;  ///< the column takes Null
inline constexpr std::int32_t adFldLong = 128;       ///< a long column: AppendChunk and GetChunk serve it

/// ADO's error numbers, as signed 32-bit HRESULTs.
enum ErrorNumber : std::int32_t {
    adErrInvalidArgument = -2146825287,      ///< 0x800A0BB9: an argument that does not fit
    adErrNoCurrentRecord = -2146825267,      ///< 0x800A0BCD: EOF, or the record is gone
    adErrIllegalOperation = -2146825069,     ///< 0x800A0C93: not allowed in this context
    adErrInTransaction = -2146825042,        ///< 0x800A0CAE: a close within a transaction
    adErrFeatureNotAvailable = -2146825037,  ///< 0x800A0CB3: the recordset is not updatable
    adErrItemNotFound = -2146825023,         ///< 0x800A0CC1: no field of that name
    adErrDataConversion = -2146824867,       ///< 0x800A0D5D: wrong type for the column
    adErrObjectClosed = -2146824584,         ///< 0x800A0E78: the object is not open
    adErrObjectOpen = -2146824583,           ///< 0x800A0E79: the object is open already
    adErrProviderNotFound = -2146824582,     ///< 0x800A0E7A: a provider that is not installed
    DbEPermissionDenied = -2147217911,       ///< 0x80040E09: a read-only database, a missing right
    DbELoginRefused = -2147217843,           ///< 0x80040E4D: authentication failed
    DbETableExists = -2147217857,            ///< 0x80040E3F: the table to create exists already
    DbEConstraint = -2147217873,             ///< 0x80040E2F: integrity violation
    DbENoTable = -2147217865,                ///< 0x80040E37: table does not exist
    DbEStatement = -2147217900,              ///< 0x80040E14: errors in the statement, unknown column
    DbEOverflow = -2147217887,               ///< 0x80040E21: a value does not fit its column
    DbEConcurrencyViolation = -2147217864,   ///< 0x80040E38: the record to update is gone or not one alone
    DbEInitString = -2147217805,             ///< 0x80040E73: malformed connection string
    XactENoTransaction = -2147168242,        ///< 0x8004D00E: no transaction is active
    XactEExists = -2147168237,               ///< 0x8004D013: a transaction is active already
    DbEFail = -2147467259,                   ///< 0x80004005: unspecified provider error
};

/// One column of a recordset, of its current record. Once the recordset was closed it raises
/// adErrObjectClosed.
class Field : public automation::TableObject {
  public:
    /// Name of the column as the engine spells it.
    virtual std::string Name() const = 0;
    /// The value, Null for NULL; adErrNoCurrentRecord when there is no record. Setting one wants a recordset
    /// with locks: adErrFeatureNotAvailable for one that cannot be updated, adErrDataConversion for a value
    /// of another kind than the column's, DbEOverflow for one that does not fit it. Update stores it.
    virtual automation::Variant Value() = 0;
    virtual void Value(const automation::Variant& value) = 0;
    virtual std::int32_t Type() const = 0;         ///< DataType
    virtual std::int32_t DefinedSize() const = 0;  ///< in characters for text, bytes otherwise
    /// Size of the current value: text in characters, else bytes; 0 for Null.
    virtual std::int32_t ActualSize() = 0;
    virtual std::int32_t Attributes() const = 0;  ///< adFld... bits
    /// The next `length` characters (text) or bytes (binary) of a long value, from where the last chunk
    /// ended; Null at its end.
    virtual automation::Variant GetChunk(std::int32_t length) = 0;
    /// The first call on a record replaces the long value, later ones extend it.
    virtual void AppendChunk(const automation::Variant& data) = 0;
    /// Beside ADO's own members: False when the column is known to refuse "", so that nobody has to try it
    /// for the error.
    virtual bool TakesBlankText() const { return true; }
    /// Likewise: the value, a long one that is not empty in one chunk.
    automation::Variant WholeValue();
    const automation::ClassInfo& Class() const noexcept override;
};

class Connection;

/// The records that a statement gives, one of them current. A recordset closes itself when its last reference
/// goes. Members that need it open raise adErrObjectClosed.
class Recordset : public automation::TableObject {
  public:
    /// An adOpen... constant, for the next Open; adErrObjectOpen when it is set while open,
    /// adErrInvalidArgument for any other number.
    virtual std::int32_t CursorType() const = 0;
    virtual void CursorType(std::int32_t type) = 0;
    /// An adLock... constant, for the next Open; errors as for CursorType.
    virtual std::int32_t LockType() const = 0;
    virtual void LockType(std::int32_t type) = 0;
    /// adStateOpen or adStateClosed.
    virtual std::int32_t State() const = 0;
    /// Runs one statement that gives records and stands on the first of them. `source` is its text. What
    /// is adUnspecified is taken from the properties; `options` is ADO's command type, which the text tells.
    /// Engine errors reach the caller: DbENoTable, DbEStatement ...
    virtual void Open(std::string_view source, const std::shared_ptr<Connection>& connection,
                      std::int32_t cursorType = adUnspecified, std::int32_t lockType = adUnspecified,
                      std::int32_t options = adUnspecified) = 0;
    /// Whether there is no current record: behind the last one, or none at all.
    virtual bool Eof() = 0;
    /// Goes to the next record; adErrNoCurrentRecord behind the last one.
    virtual void MoveNext() = 0;
    /// Begins a new record, whose fields are Empty until they are set.
    virtual void AddNew() = 0;
    /// Stores what was set in the current or the new record, which then has the key that the database gave
    /// it. DbEConstraint for what an integrity rule refuses, DbEConcurrencyViolation for a record that is
    /// gone.
    virtual void Update() = 0;
    /// Forgets what was set since the last Update.
    virtual void CancelUpdate() = 0;
    /// Ends the recordset; adErrIllegalOperation between AddNew, or the first change of a record, and Update.
    virtual void Close() = 0;
    /// The field of that name, in any case; adErrItemNotFound otherwise.
    virtual std::shared_ptr<Field> Fields(std::string_view name) = 0;
    virtual std::shared_ptr<Field> Fields(std::int32_t index) = 0;  ///< zero-based, as ADO's collection is
    /// How many columns the records have.
    virtual std::int32_t FieldCount() const = 0;
    /// Beside ADO's own members: WholeValue() of a field, for which no Field need be made.
    virtual automation::Variant FieldValue(std::string_view name) { return Fields(name)->WholeValue(); }
    virtual automation::Variant FieldValue(std::int32_t index) { return Fields(index)->WholeValue(); }
    /// Likewise: the zero-based index of the field of that name, in any case; adErrItemNotFound otherwise.
    virtual std::int32_t FieldIndex(std::string_view name);
    /// Likewise: what all recordsets have in common whose fields are the same in the same order, so that an
    /// index found in one serves for the others; nullptr for nothing.
    virtual std::shared_ptr<const void> Layout() { return nullptr; }
    const automation::ClassInfo& Class() const noexcept override;
};

/// A way to a database. Members that need it open raise adErrObjectClosed.
class Connection : public automation::TableObject {
  public:
    /// Opens it. A user and a password count where the string names no user. adErrObjectOpen when it is open;
    /// DbEInitString, DbELoginRefused, adErrProviderNotFound or the engine's error. `options` is not used.
    virtual void Open(std::string_view connectionString, std::string_view user = {},
                      std::string_view password = {}, std::int32_t options = adUnspecified) = 0;
    /// Closes it; adErrInTransaction within a transaction.
    virtual void Close() = 0;
    /// Runs a statement; the answer is a recordset for one that gives rows, else a closed one.
    /// `recordsAffected`, where given, receives the number of records that an action changed.
    virtual std::shared_ptr<Recordset> Execute(std::string_view text, std::int32_t options = adUnspecified,
                                               std::int32_t* recordsAffected = nullptr) = 0;
    /// adStateOpen or adStateClosed.
    virtual std::int32_t State() const = 0;
    /// Begins a transaction and answers the nesting level, 1; XactEExists where there is one already.
    virtual std::int32_t BeginTrans() = 0;
    /// Keeps what was done since BeginTrans; XactENoTransaction without one.
    virtual void CommitTrans() = 0;
    /// Takes back what was done since BeginTrans; XactENoTransaction without one.
    virtual void RollbackTrans() = 0;
    const automation::ClassInfo& Class() const noexcept override;
};

/// Creates the engine's objects.
class Provider {
  public:
    virtual ~Provider() = default;
    /// A closed connection.
    virtual std::shared_ptr<Connection> CreateConnection() = 0;
    /// A closed recordset.
    virtual std::shared_ptr<Recordset> CreateRecordset() = 0;
};

}  // namespace korvex::ado
