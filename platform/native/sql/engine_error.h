#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace korvex::native::sql {

/// What went wrong, whichever driver reports it; the DAO and ADO shapes turn it into their own numbers.
enum class ErrorKind : std::uint8_t {
    Other,
    FileNotFound,
    CannotOpen,
    NotADatabase,
    ConnectFailed,
    NoSuchTable,
    NoSuchColumn,
    Syntax,
    SecondStatement,   ///< a text that holds more than one statement
    TooFewParameters,  ///< a text with placeholders, for which nobody gives values
    Constraint,
    DuplicateKey,
    ValueTooLarge,  ///< out of the column's range or size
    WrongType,      ///< does not convert to the column's type
    Locked,
    ReadOnly,
    DiskFull,
    ConnectionLost,
    RecordChanged,    ///< the record to update is not there any more, or is not one alone
    NoCurrentRecord,  ///< a cursor that stands on no record
    NotUpdatable,     ///< the rows of this cursor, or this column, cannot be written
    NotEditing,       ///< a column set, or an update, without AddNew or Edit
    Closed,           ///< the cursor or its session was closed
};

/// A failed engine call.
class EngineError : public std::runtime_error {
  public:
    /// `message` is the engine's own text; `nativeCode` its own number.
    EngineError(ErrorKind kind, std::int32_t nativeCode, const std::string& message)
        : std::runtime_error(message), m_kind(kind), m_nativeCode(nativeCode) {}

    ErrorKind Kind() const noexcept { return m_kind; }
    std::int32_t NativeCode() const noexcept { return m_nativeCode; }

  private:
    ErrorKind m_kind;
    std::int32_t m_nativeCode;
};

}  // namespace korvex::native::sql
