#include "platform/ado_fixture.h"

#include "automation/convert.h"

namespace korvex::tests {

std::string AdoTest::ConnectionString() const {
    if (GetParam() == Driver::Sqlite) return "Provider=SQLite;Mode=Create;Data Source=" + m_place;
    if (GetParam() == Driver::OdbcSqlite)
        return "Driver={SQLite3};Database=" + m_place + ";FKSupport=1;NoTXN=0";
    return m_place;
}

std::shared_ptr<ado::Connection> AdoTest::Connect() { return Connect(ConnectionString()); }

std::shared_ptr<ado::Connection> AdoTest::Connect(std::string_view connectionString) {
    auto connection = m_platform.targetProvider->CreateConnection();
    connection->Open(connectionString);
    return connection;
}

std::shared_ptr<ado::Recordset> AdoTest::Open(const std::shared_ptr<ado::Connection>& connection,
                                              std::string_view text) {
    auto recordset = m_platform.targetProvider->CreateRecordset();
    recordset->CursorType(ado::adOpenKeyset);
    recordset->LockType(ado::adLockOptimistic);
    recordset->Open(text, connection);
    return recordset;
}

automation::Variant AdoTest::Scalar(const std::shared_ptr<ado::Connection>& connection,
                                    std::string_view text) {
    return connection->Execute(text)->Fields(0)->Value();
}

std::int32_t AdoTest::Number(const std::shared_ptr<ado::Connection>& connection, std::string_view text) {
    return automation::ToLong(Scalar(connection, text));
}

}  // namespace korvex::tests
