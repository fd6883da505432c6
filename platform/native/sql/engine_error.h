#pragma once

#include "automation/error.h"

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

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
    TableExists,
    Locked,
    ReadOnly,
    NoRights,  ///< the engine refuses this to its user
    DiskFull,
    DiskFailed,  ///< the file cannot be read or written
    ConnectionLost,
    LoginRefused,
    RecordChanged,    ///< the record to update is not there any more, or is not one alone
    NoCurrentRecord,  ///< a cursor that stands on no record
    NotUpdatable,     ///< the rows of this cursor, or this column, cannot be written
    NotEditing,       ///< a column set, or an update, without AddNew or Edit
    Closed,           ///< the cursor or its session was closed
};

/// What a code of an engine's own means.
struct CodeMeaning {
    std::int32_t code;
    ErrorKind kind;
};

/// Other for a code that is not among the known ones.
ErrorKind MeaningOf(std::int32_t code, std::span<const CodeMeaning> known) noexcept;

/// A failed engine call.
class EngineError : public std::runtime_error {
  public:
    /// `message` is the engine's own text; `database` the file, or the connection string as a message may
    /// show it; `nativeCode` the engine's own number, where somebody asks for it.
    EngineError(ErrorKind kind, const std::string& message, std::string database = {},
                std::int32_t nativeCode = 0)
        : std::runtime_error(message),
          m_kind(kind),
          m_nativeCode(nativeCode),
          m_database(std::move(database)) {}

    ErrorKind Kind() const noexcept { return m_kind; }
    std::int32_t NativeCode() const noexcept { return m_nativeCode; }
    const std::string& Database() const noexcept { return m_database; }

  private:
    ErrorKind m_kind;
    std::int32_t m_nativeCode;
    std::string m_database;
};

/// A statement as a message shows it at its end: " (...)", cut to a line that can be read.
std::string BehindMessage(std::string_view statement);

/// The failure in one sentence for a person: what is wrong, with the database where that is at fault, the
/// engine's own words, and what to do. `context` (a statement, a column, a record) ends it, where it matters
/// and the engine's words do not hold it already.
std::string DescribeFailure(const EngineError& error, std::string_view context);

}  // namespace korvex::native::sql

namespace korvex::native {

/// An engine's failure as ADO or DAO reports it: with their own number, described by sql::DescribeFailure.
automation::Error AdoError(const sql::EngineError& error, std::string_view context);
automation::Error DaoError(const sql::EngineError& error, std::string_view context);

/// Runs `work`; its engine errors leave as `portError` (AdoError, DaoError) has them. `context` is a text, or
/// a function that gives one.
template <auto portError, class Context = std::string_view, class Work>
decltype(auto) WithErrors(const Context& context, Work&& work) {
    try {
        return work();
    } catch (const sql::EngineError& error) {
        if constexpr (std::is_invocable_v<Context>)
            throw portError(error, context());
        else
            throw portError(error, context);
    }
}

}  // namespace korvex::native
