#pragma once

#include "automation/variant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Port to the definition repository's engine, in the shape of DAO 3.x. Every failure is an automation::Error
/// that carries DAO's number and a description which names the file, statement, table or column.
namespace korvex::dao {

/// DAO's own constants (RecordsetTypeEnum, WorkspaceTypeEnum, RecordsetOptionEnum, LockTypeEnum).
inline constexpr std::int32_t dbOpenDynaset = 2;    ///< a recordset that adds and edits rows
inline constexpr std::int32_t dbOpenSnapshot = 4;   ///< a recordset that is only read
inline constexpr std::int32_t dbUseODBC = 1;        ///< a workspace for ODBC
inline constexpr std::int32_t dbExecDirect = 2048;  ///< option: the statement is not prepared
inline constexpr std::int32_t dbOptimistic = 3;     ///< lock: a row is locked while it is stored
/// Stands for an argument of OpenRecordset that is left out.
inline constexpr std::int32_t dbOmitted = -1;

/// DAO's error numbers that the engines raise.
enum ErrorNumber : std::int32_t {
    NoCurrentRecord = 3021,       ///< behind the last record, or there is none
    UpdateWithoutEdit = 3020,     ///< Update without AddNew or Edit
    DuplicateKey = 3022,          ///< a value that a unique index has already
    TableExists = 3010,           ///< a table to create that is there
    FileNotFound = 3024,          ///< no file of that name
    DiskIsFull = 3026,            ///< no room to write
    ReadOnlyDatabase = 3027,      ///< the file or database may not be written
    NoPermission = 3033,          ///< the engine refuses this to its user
    WrongPassword = 3031,         ///< an encrypted file, without what would open it
    FieldNotFoundInQuery = 3061,  ///< "Too few parameters": an unknown column name in a statement
    DamagedFile = 3049,           ///< the file cannot be read to its end
    CannotOpenFile = 3051,        ///< no permission, a directory, opened exclusively by another
    SyntaxError = 3075,           ///< a statement that the engine does not understand
    TextBehindStatement = 3142,   ///< a statement text that holds a second statement
    TableNotFound = 3078,         ///< no table of that name
    QueryFailed = 3146,           ///< "ODBC--call failed"
    OdbcConnectFailed = 3151,     ///< the ODBC connection did not open
    RecordChanged = 3197,         ///< the record was changed or removed by another since it was read
    RecordLocked = 3260,
    ItemNotFound = 3265,           ///< no field of that name
    UnrecognizedFormat = 3343,     ///< the file is no database of this engine
    ObjectInvalid = 3420,          ///< the object was closed
    ConstraintViolated = 3201,     ///< an integrity rule refuses the row
    InvalidOperation = 3219,       ///< an action statement where a query is asked for
    OperationNotSupported = 3251,  ///< a write through a snapshot, or to rows of several tables
    ValueOutOfColumn = 3421,       ///< a value that does not convert to the column
};

/// One column of a recordset, of its current record.
class Field {
  public:
    virtual ~Field() = default;
    /// Name of the column as the engine spells it.
    virtual std::string_view Name() const = 0;
    /// NoCurrentRecord (3021) when there is none. SQL NULL is the automation value Null.
    virtual automation::Variant Value() = 0;
    /// Sets the value of the record being added or edited; UpdateWithoutEdit (3020) outside of both.
    virtual void Value(const automation::Variant& value) = 0;
};

/// A snapshot or dynaset. Closes itself when it goes out of scope.
class Recordset {
  public:
    virtual ~Recordset() = default;
    /// True when there is no current record (behind the last one, or none at all). (`EOF` is a macro of the C
    /// library.)
    virtual bool Eof() = 0;
    /// Goes to the next record; NoCurrentRecord (3021) behind the last one.
    virtual void MoveNext() = 0;
    /// Moves to the last record; records added through this recordset stand behind all others, in the order
    /// added.
    virtual void MoveLast() = 0;
    /// The field of that name, in any case; ItemNotFound (3265) otherwise. Stays valid until the recordset
    /// closes.
    virtual Field& Fields(std::string_view name) = 0;
    /// Starts a new record, which Update stores; OperationNotSupported (3251) in a snapshot.
    virtual void AddNew() = 0;
    /// Starts an edit of the current record, which Update stores; OperationNotSupported (3251) in a snapshot,
    /// NoCurrentRecord (3021) where there is none.
    virtual void Edit() = 0;
    /// Stores the record that AddNew or Edit has begun; only the columns that were set are sent.
    /// UpdateWithoutEdit (3020) without either; DuplicateKey (3022), ConstraintViolated (3201), RecordChanged
    /// (3197) ... where the engine refuses it.
    virtual void Update() = 0;
    /// Ends the recordset; further calls raise ObjectInvalid (3420).
    virtual void Close() = 0;
};

/// An open repository: DAO's Database (file) or Connection (ODBC), which offer the same members.
class Database {
  public:
    virtual ~Database() = default;
    /// `type` is dbOpenSnapshot or dbOpenDynaset; `options` and `lockEdit` may be dbOmitted. What fails up to
    /// the first record is reported here; in a dynaset of "select * from T" at the first read, if not before.
    virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view sql, std::int32_t type,
                                                     std::int32_t options = dbOmitted,
                                                     std::int32_t lockEdit = dbOmitted) = 0;
    /// Runs one action or definition statement.
    virtual void Execute(std::string_view sql) = 0;
    /// Closes the database; further calls raise ObjectInvalid (3420).
    virtual void Close() = 0;

    /// Begins a transaction of the workspace the database was opened in. Answers False, and does nothing,
    /// where a failing statement would spoil the whole transaction or the engine has none; then neither of
    /// the next two is called.
    virtual bool BeginTrans() = 0;
    /// Keeps what was done since BeginTrans.
    virtual void CommitTrans() = 0;
    /// Takes back what was done since BeginTrans.
    virtual void Rollback() = 0;
};

/// A table of a file that its engine can only read as a whole.
struct WholeTable {
    std::string name;                         ///< as it was asked for
    std::vector<std::string> columns;         ///< those asked for that are there
    std::vector<automation::Variant> values;  ///< a value for each column, row by row in the file's order
};

/// A session with the engine; of those, connections to ODBC come.
class Workspace {
  public:
    virtual ~Workspace() = default;
    /// Opens a connection through ODBC: OdbcConnectFailed (3151). `name` is what the engine calls it,
    /// `connect` a connection string ("ODBC;DSN=orders;DATABASE=shop").
    virtual std::unique_ptr<Database> OpenConnection(std::string_view name, bool readOnly,
                                                     std::string_view connect) = 0;
};

/// The engine: where files and sessions are opened.
class DBEngine {
  public:
    virtual ~DBEngine() = default;
    /// A session under that name; `type` is dbUseODBC. User and password are those of the session, not of a
    /// database.
    virtual std::shared_ptr<Workspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                       std::string_view password, std::int32_t type) = 0;
    /// Opens an existing database file, shared and read-write: FileNotFound (3024), CannotOpenFile (3051),
    /// UnrecognizedFormat (3343).
    virtual std::unique_ptr<Database> OpenDatabase(std::string_view name) = 0;
    /// Creates a new, empty database file, natively also in place of an empty one; PathFileAccessError (75)
    /// when the name is taken or cannot be written.
    virtual std::unique_ptr<Database> CreateDatabase(std::string_view name) = 0;
    /// Reads tables of a file that the engine can only read as a whole, and never writes: those of `wanted`
    /// that are there, each with those of the wanted columns that are there, with all rows. Gives nothing for
    /// a file that OpenDatabase is for, and for none. DamagedFile (3049), WrongPassword (3031),
    /// UnrecognizedFormat (3343), TableNotFound (3078) for a table that is only linked there.
    virtual std::optional<std::vector<WholeTable>> ReadTables(std::string_view /*name*/,
                                                              std::span<const WholeTable> /*wanted*/) {
        return std::nullopt;
    }
};

}  // namespace korvex::dao
