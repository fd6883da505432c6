#include "platform/native/dao/dao_error.h"

#include "automation/error.h"
#include "platform/dao.h"

#include <cctype>

namespace korvex::native::dao_engine {
namespace {

using sql::ErrorKind;

std::int32_t DaoNumber(ErrorKind kind) noexcept {
    switch (kind) {
        case ErrorKind::Other:
            return dao::QueryFailed;
        case ErrorKind::FileNotFound:
            return dao::FileNotFound;
        case ErrorKind::CannotOpen:
            return dao::CannotOpenFile;
        case ErrorKind::NotADatabase:
            return dao::UnrecognizedFormat;
        case ErrorKind::ConnectFailed:
            return dao::OdbcConnectFailed;
        case ErrorKind::NoSuchTable:
            return dao::TableNotFound;
        case ErrorKind::NoSuchColumn:
        case ErrorKind::TooFewParameters:
            return dao::FieldNotFoundInQuery;
        case ErrorKind::Syntax:
            return dao::SyntaxError;
        case ErrorKind::SecondStatement:
            return dao::TextBehindStatement;
        case ErrorKind::Constraint:
            return dao::ConstraintViolated;
        case ErrorKind::DuplicateKey:
            return dao::DuplicateKey;
        case ErrorKind::ValueTooLarge:
        case ErrorKind::WrongType:
            return dao::ValueOutOfColumn;
        case ErrorKind::Locked:
            return dao::RecordLocked;
        case ErrorKind::ReadOnly:
            return dao::ReadOnlyDatabase;
        case ErrorKind::DiskFull:
            return dao::DiskIsFull;
        case ErrorKind::ConnectionLost:
            return dao::OdbcConnectFailed;
        case ErrorKind::RecordChanged:
            return dao::RecordChanged;
        case ErrorKind::NoCurrentRecord:
            return dao::NoCurrentRecord;
        case ErrorKind::NotUpdatable:
            return dao::OperationNotSupported;
        case ErrorKind::NotEditing:
            return dao::UpdateWithoutEdit;
        case ErrorKind::Closed:
            return dao::ObjectInvalid;
    }
    return dao::QueryFailed;
}

/// What the engine's own text does not say in words that a person knows.
std::string_view Explanation(ErrorKind kind) noexcept {
    switch (kind) {
        case ErrorKind::CannotOpen:
            return "The file cannot be opened. ";
        case ErrorKind::NotADatabase:
            return "Unrecognized database format. ";
        case ErrorKind::ConnectFailed:
            return "The data source cannot be connected. ";
        case ErrorKind::NoSuchTable:
            return "The table was not found. ";
        case ErrorKind::NoSuchColumn:
            return "The column was not found. ";
        case ErrorKind::Syntax:
            return "Syntax error. ";
        case ErrorKind::DuplicateKey:
            return "The record would duplicate a key. ";
        case ErrorKind::Locked:
            return "The data is locked by another user. ";
        case ErrorKind::ReadOnly:
            return "The database is read-only. ";
        case ErrorKind::DiskFull:
            return "The disk is full. ";
        case ErrorKind::ConnectionLost:
            return "The connection to the data source was lost. ";
        default:
            return "";
    }
}

}  // namespace

void RaiseDaoError(const sql::EngineError& error, std::string_view context) {
    std::string message = error.what();
    if (!message.empty())
        message.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(message.front())));
    std::string description(Explanation(error.Kind()));
    description += message;
    if (!context.empty()) description.append(" (").append(context).append(")");
    throw automation::Error(DaoNumber(error.Kind()), std::move(description));
}

}  // namespace korvex::native::dao_engine
