#include "platform/native/sql/port_error.h"

#include "platform/ado.h"
#include "platform/dao.h"

#include <algorithm>
#include <iterator>

namespace korvex::native {

namespace {

using sql::ErrorKind;

struct Numbers {
    ErrorKind kind;
    std::int32_t dao;
    std::int32_t ado;
};

constexpr Numbers NumbersOfKinds[] = {
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
    {ErrorKind::Locked, dao::RecordLocked, ado::DbEFail},
    {ErrorKind::ReadOnly, dao::ReadOnlyDatabase, ado::DbEPermissionDenied},
    {ErrorKind::NoRights, dao::NoPermission, ado::DbEPermissionDenied},
    {ErrorKind::DiskFull, dao::DiskIsFull, ado::DbEFail},
    {ErrorKind::DiskFailed, dao::QueryFailed, ado::DbEFail},
    {ErrorKind::ConnectionLost, dao::OdbcConnectFailed, ado::DbEFail},
    {ErrorKind::LoginRefused, dao::OdbcConnectFailed, ado::DbELoginRefused},
    {ErrorKind::RecordChanged, dao::RecordChanged, ado::DbEConcurrencyViolation},
    {ErrorKind::NoCurrentRecord, dao::NoCurrentRecord, ado::adErrNoCurrentRecord},
    {ErrorKind::NotUpdatable, dao::OperationNotSupported, ado::adErrFeatureNotAvailable},
    {ErrorKind::NotEditing, dao::UpdateWithoutEdit, ado::adErrIllegalOperation},
    {ErrorKind::Closed, dao::ObjectInvalid, ado::adErrObjectClosed},
};
static_assert(std::size(NumbersOfKinds) == static_cast<std::size_t>(ErrorKind::Closed) + 1);

automation::Error PortError(std::int32_t Numbers::*number, const sql::EngineError& error,
                            std::string_view context) {
    const Numbers& numbers = *std::ranges::find(NumbersOfKinds, error.Kind(), &Numbers::kind);
    return automation::Error(numbers.*number, sql::DescribeFailure(error, context));
}

}  // namespace

automation::Error AdoError(const sql::EngineError& error, std::string_view context) {
    return PortError(&Numbers::ado, error, context);
}

automation::Error DaoError(const sql::EngineError& error, std::string_view context) {
    return PortError(&Numbers::dao, error, context);
}

}  // namespace korvex::native
