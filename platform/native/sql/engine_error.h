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
    SecondStatement,  ///< a text that holds more than one statement
    Constraint,
    DuplicateKey,
    ValueTooLarge,  ///< out of the column's range or size
    WrongType,      ///< does not convert to the column's type
    Locked,
    ReadOnly,
    DiskFull,
    ConnectionLost,
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
