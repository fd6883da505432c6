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
inline constexpr std::int32_t adUnspecified = -1;
inline constexpr std::int32_t adOpenForwardOnly = 0;
inline constexpr std::int32_t adOpenKeyset = 1;
inline constexpr std::int32_t adOpenStatic = 3;
inline constexpr std::int32_t adLockReadOnly = 1;
inline constexpr std::int32_t adLockOptimistic = 3;
inline constexpr std::int32_t adLockBatchOptimistic = 4;
inline constexpr std::int32_t adStateClosed = 0;
inline constexpr std::int32_t adStateOpen = 1;

enum DataType : std::int32_t {
    adEmpty = 0,
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBoolean = 11,
    adVariant = 12,
    adDecimal = 14,
    adUnsignedTinyInt = 17,
    adBigInt = 20,
    adChar = 129,
    adNumeric = 131,
    adBinary = 128,
    adDBTimeStamp = 135,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarBinary = 204,
    adLongVarBinary = 205,
};

inline constexpr std::int32_t adFldUpdatable = 4;
inline constexpr std::int32_t adFldIsNullable = 32;
inline constexpr std::int32_t adFldLong = 128;

/// ADO's error numbers, as signed 32-bit HRESULTs.
enum ErrorNumber : std::int32_t {
    adErrInvalidArgument = -2146825287,      ///< 0x800A0BB9
    adErrNoCurrentRecord = -2146825267,      ///< 0x800A0BCD: EOF, or the record is gone
    adErrIllegalOperation = -2146825069,     ///< 0x800A0C93: not allowed in this context
    adErrInTransaction = -2146825042,        ///< 0x800A0CAE
    adErrFeatureNotAvailable = -2146825037,  ///< 0x800A0CB3: the recordset is not updatable
    adErrItemNotFound = -2146825023,         ///< 0x800A0CC1: no field of that name
    adErrDataConversion = -2146824867,       ///< 0x800A0D5D: wrong type for the column
    adErrObjectClosed = -2146824584,         ///< 0x800A0E78
    adErrObjectOpen = -2146824583,           ///< 0x800A0E79
    adErrProviderNotFound = -2146824582,     ///< 0x800A0E7A
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

class Field : public automation::TableObject {
  public:
    virtual std::string Name() const = 0;
    virtual automation::Variant Value() = 0;
    virtual void Value(const automation::Variant& value) = 0;
    virtual std::int32_t Type() const = 0;         ///< DataType
    virtual std::int32_t DefinedSize() const = 0;  ///< in characters for text, bytes otherwise
    virtual std::int32_t
    ActualSize() = 0;  ///< of the current value: text in characters, else bytes; 0 for Null
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

/// A recordset closes itself when its last reference goes.
class Recordset : public automation::TableObject {
  public:
    virtual std::int32_t CursorType() const = 0;
    virtual void CursorType(std::int32_t type) = 0;
    virtual std::int32_t LockType() const = 0;
    virtual void LockType(std::int32_t type) = 0;
    virtual std::int32_t State() const = 0;
    virtual void Open(std::string_view source, const std::shared_ptr<Connection>& connection,
                      std::int32_t cursorType = adUnspecified, std::int32_t lockType = adUnspecified,
                      std::int32_t options = adUnspecified) = 0;
    virtual bool Eof() = 0;
    virtual void MoveNext() = 0;
    virtual void AddNew() = 0;
    virtual void Update() = 0;
    virtual void CancelUpdate() = 0;
    virtual void Close() = 0;
    /// The field of that name, in any case; adErrItemNotFound otherwise.
    virtual std::shared_ptr<Field> Fields(std::string_view name) = 0;
    virtual std::shared_ptr<Field> Fields(std::int32_t index) = 0;  ///< zero-based, as ADO's collection is
    virtual std::int32_t FieldCount() const = 0;
    /// Beside ADO's own members: WholeValue() of a field, for which no Field need be made.
    virtual automation::Variant FieldValue(std::string_view name) { return Fields(name)->WholeValue(); }
    virtual automation::Variant FieldValue(std::int32_t index) { return Fields(index)->WholeValue(); }
    /// Likewise: the index of the field of that name, and what all recordsets have in common whose fields are
    /// the same in the same order, so that an index found in one serves for the others; nullptr for nothing.
    virtual std::int32_t FieldIndex(std::string_view name);
    virtual std::shared_ptr<const void> Layout() { return nullptr; }
    const automation::ClassInfo& Class() const noexcept override;
};

class Connection : public automation::TableObject {
  public:
    virtual void Open(std::string_view connectionString, std::string_view user = {},
                      std::string_view password = {}, std::int32_t options = adUnspecified) = 0;
    virtual void Close() = 0;
    /// Runs a statement; the answer is a recordset for one that gives rows, else a closed one.
    /// `recordsAffected`, where given, receives the number of records that an action changed.
    virtual std::shared_ptr<Recordset> Execute(std::string_view text, std::int32_t options = adUnspecified,
                                               std::int32_t* recordsAffected = nullptr) = 0;
    virtual std::int32_t State() const = 0;
    virtual std::int32_t BeginTrans() = 0;  ///< answers the nesting level
    virtual void CommitTrans() = 0;
    virtual void RollbackTrans() = 0;
    const automation::ClassInfo& Class() const noexcept override;
};

/// Creates the engine's objects.
class Provider {
  public:
    virtual ~Provider() = default;
    virtual std::shared_ptr<Connection> CreateConnection() = 0;
    virtual std::shared_ptr<Recordset> CreateRecordset() = 0;
};

}  // namespace korvex::ado
