#include "platform/native/ado/errors.h"

#include "platform/ado.h"

namespace korvex::native::ado_engine {

namespace {

std::int32_t AdoNumber(sql::ErrorKind kind) noexcept {
    using sql::ErrorKind;
    switch (kind) {
        case ErrorKind::NoSuchTable:
            return ado::DbENoTable;
        case ErrorKind::NoSuchColumn:
        case ErrorKind::Syntax:
        case ErrorKind::SecondStatement:
        case ErrorKind::TooFewParameters:
            return ado::DbEStatement;
        case ErrorKind::Constraint:
        case ErrorKind::DuplicateKey:
            return ado::DbEConstraint;
        case ErrorKind::ValueTooLarge:
            return ado::DbEOverflow;
        case ErrorKind::WrongType:
            return ado::adErrDataConversion;
        case ErrorKind::ReadOnly:
        case ErrorKind::NoRights:
            return ado::DbEPermissionDenied;
        case ErrorKind::LoginRefused:
            return ado::DbELoginRefused;
        case ErrorKind::TableExists:
            return ado::DbETableExists;
        case ErrorKind::RecordChanged:
            return ado::DbEConcurrencyViolation;
        case ErrorKind::NoCurrentRecord:
            return ado::adErrNoCurrentRecord;
        case ErrorKind::NotUpdatable:
            return ado::adErrFeatureNotAvailable;
        case ErrorKind::NotEditing:
            return ado::adErrIllegalOperation;
        case ErrorKind::Closed:
            return ado::adErrObjectClosed;
        case ErrorKind::Other:
        case ErrorKind::FileNotFound:
        case ErrorKind::CannotOpen:
        case ErrorKind::NotADatabase:
        case ErrorKind::ConnectFailed:
        case ErrorKind::Locked:
        case ErrorKind::DiskFull:
        case ErrorKind::DiskFailed:
        case ErrorKind::ConnectionLost:
            return ado::DbEFail;
    }
    return ado::DbEFail;
}

}  // namespace

automation::Error AdoError(const sql::EngineError& error, std::string_view context) {
    return automation::Error(AdoNumber(error.Kind()), sql::DescribeFailure(error, context));
}

}  // namespace korvex::native::ado_engine
