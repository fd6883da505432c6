#include "tests/windows/engines/ado_parts.h"

#include "platform/native/ado/connection.h"
#include "platform/native/ado/target.h"
#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/odbc/odbc_session.h"

namespace korvex::test {

std::shared_ptr<automation::TableObject> CreateAdoConnection() {
    return native::ado_engine::CreateAdoProvider(nullptr)->CreateConnection();
}

std::shared_ptr<automation::TableObject> CreateAdoRecordset() {
    return native::ado_engine::CreateAdoProvider(nullptr)->CreateRecordset();
}

}  // namespace korvex::test

namespace korvex::native::ado_engine {

/// Every target is an ODBC one here.
std::unique_ptr<sql::Session> OpenSession(const Target& target, std::shared_ptr<sql::Seam> seam) {
    return WithErrors<AdoError>(
        {}, [&] { return std::make_unique<sql::OdbcSession>(target.odbcString.value(), std::move(seam)); });
}

}  // namespace korvex::native::ado_engine
