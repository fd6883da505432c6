#include "platform/native/sql/engine_error.h"

#include "automation/text.h"
#include "platform/ado.h"
#include "platform/dao.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace korvex::native::sql {

namespace {

constexpr std::size_t LongestMessage = 500;
constexpr std::size_t LongestContext = 160;

/// How the ports number a kind of failure, and for one that no statement is to blame for, what it means and
/// what to do about it.
struct KindFacts {
    ErrorKind kind;
    std::int32_t dao;
    std::int32_t ado;
    std::string_view meaning = {};
};

/// In the order of ErrorKind.
constexpr KindFacts FactsOfKinds[] = {
    {ErrorKind::Other, dao::QueryFailed, ado::DbEFail},
    {ErrorKind::FileNotFound, dao::FileNotFound, ado::DbEFail},
    {ErrorKind::CannotOpen, dao::CannotOpenFile, ado::DbEFail},
    {ErrorKind::NotADatabase, dao::UnrecognizedFormat, ado::DbEFail},
    {ErrorKind::ConnectFailed, dao::OdbcConnectFailed, ado::DbEFail},
    {ErrorKind::NoSuchTable, dao::TableNotFound, ado::DbENoTable},
    {ErrorKind::NoSuchColumn, dao::FieldNotFoundInQuery, ado::DbEStatement},
    {ErrorKind::Syntax, dao::SyntaxError, ado::DbEStatement},
    {ErrorKind::SecondStatement, dao::TextBehindStatement, ado::DbEStatement},
    {ErrorKind::TooFewParameters, dao::FieldNotFoundInQuery, ado::DbEStatement},
    {ErrorKind::Constraint, dao::ConstraintViolated, ado::DbEConstraint},
    {ErrorKind::DuplicateKey, dao::DuplicateKey, ado::DbEConstraint},
    {ErrorKind::ValueTooLarge, dao::ValueOutOfColumn, ado::DbEOverflow},
    {ErrorKind::WrongType, dao::ValueOutOfColumn, ado::adErrDataConversion},
    {ErrorKind::TableExists, dao::TableExists, ado::DbETableExists},
    {ErrorKind::Locked, dao::RecordLocked, ado::DbEFail,
     "The data is locked by another user, try again when that work is done"},
    {ErrorKind::ReadOnly, dao::ReadOnlyDatabase, ado::DbEPermissionDenied,
     "The database cannot be written, check its mode and the rights to it"},
    {ErrorKind::NoRights, dao::NoPermission, ado::DbEPermissionDenied, "The user lacks the right to do this"},
    {ErrorKind::DiskFull, dao::DiskIsFull, ado::DbEFail, "The disk is full, make room and try again"},
    {ErrorKind::DiskFailed, dao::QueryFailed, ado::DbEFail,
     "The database cannot be read or written, check its disk"},
    {ErrorKind::ConnectionLost, dao::OdbcConnectFailed, ado::DbEFail,
     "The connection was lost, connect again"},
    {ErrorKind::LoginRefused, dao::OdbcConnectFailed, ado::DbELoginRefused,
     "The user or the password is refused"},
    {ErrorKind::RecordChanged, dao::RecordChanged, ado::DbEConcurrencyViolation},
    {ErrorKind::NoCurrentRecord, dao::NoCurrentRecord, ado::adErrNoCurrentRecord},
    {ErrorKind::NotUpdatable, dao::OperationNotSupported, ado::adErrFeatureNotAvailable},
    {ErrorKind::NotEditing, dao::UpdateWithoutEdit, ado::adErrIllegalOperation},
    {ErrorKind::Closed, dao::ObjectInvalid, ado::adErrObjectClosed},
};

constexpr const KindFacts& FactsOf(ErrorKind kind) noexcept {
    return FactsOfKinds[static_cast<std::size_t>(kind)];
}
static_assert(std::size(FactsOfKinds) == static_cast<std::size_t>(ErrorKind::Closed) + 1);
static_assert(std::ranges::all_of(FactsOfKinds,
                                  [](const KindFacts& facts) { return &facts == &FactsOf(facts.kind); }));

}  // namespace

ErrorKind MeaningOf(std::int32_t code, std::span<const CodeMeaning> known) noexcept {
    const auto found = std::ranges::find(known, code, &CodeMeaning::code);
    return found == known.end() ? ErrorKind::Other : found->kind;
}

std::string BehindMessage(std::string_view statement) {
    return " (" + automation::Readable(statement, LongestContext) + ")";
}

std::string DescribeFailure(const EngineError& error, std::string_view context) {
    const std::string words = automation::Readable(error.what(), LongestMessage);
    std::string text(FactsOf(error.Kind()).meaning);
    if (!text.empty()) {
        if (!error.Database().empty()) {
            text.append(": ").append(automation::Readable(error.Database(), LongestContext));
        }
        return text.append(" (").append(words).append(")");
    }
    text = words;
    if (!text.empty()) {
        text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    }
    if (context.empty()) context = error.Database();
    if (context.empty() || automation::ContainsIgnoreCase(error.what(), context)) return text;
    return text + BehindMessage(context);
}

}  // namespace korvex::native::sql

namespace korvex {

automation::Error native::AdoError(const sql::EngineError& error, std::string_view context) {
    return automation::Error(sql::FactsOf(error.Kind()).ado, sql::DescribeFailure(error, context));
}

automation::Error native::DaoError(const sql::EngineError& error, std::string_view context) {
    return automation::Error(sql::FactsOf(error.Kind()).dao, sql::DescribeFailure(error, context));
}

}  // namespace korvex
