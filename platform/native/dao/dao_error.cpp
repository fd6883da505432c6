#include "platform/native/dao/dao_error.h"

#include "automation/error.h"
#include "platform/dao.h"

namespace korvex::native::dao_engine {
namespace {

using sql::ErrorKind;

std::int32_t DaoNumber(ErrorKind kind) noexcept {
    switch (kind) {
        case ErrorKind::Other:
        case ErrorKind::DiskFailed:
            return dao::QueryFailed;
        case ErrorKind::FileNotFound:
            return dao::FileNotFound;
        case ErrorKind::CannotOpen:
            return dao::CannotOpenFile;
        case ErrorKind::NotADatabase:
            return dao::UnrecognizedFormat;
        case ErrorKind::ConnectFailed:
        case ErrorKind::ConnectionLost:
        case ErrorKind::LoginRefused:
            return dao::OdbcConnectFailed;
        case ErrorKind::NoRights:
            return dao::NoPermission;
        case ErrorKind::TableExists:
            return dao::TableExists;
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

}  // namespace

void RaiseDaoError(const sql::EngineError& error, std::string_view context) {
    throw automation::Error(DaoNumber(error.Kind()), sql::DescribeFailure(error, context));
}

}  // namespace korvex::native::dao_engine
