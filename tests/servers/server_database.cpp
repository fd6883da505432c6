#include "servers/server_database.h"

#include "automation/convert.h"

namespace korvex::tests {

std::shared_ptr<ado::Connection> ServerDatabase::Connect(std::string_view more) const {
    auto connection = native::NativePlatform().targetProvider->CreateConnection();
    connection->Open(m_string + std::string(more));
    return connection;
}

std::vector<std::string> RowsOf(ado::Connection& connection, const std::string& query) {
    std::vector<std::string> rows;
    const auto recordset = connection.Execute(query);
    if (recordset->State() == ado::adStateClosed) return rows;
    for (; !recordset->Eof(); recordset->MoveNext()) {
        std::string& row = rows.emplace_back();
        for (std::int32_t i = 0; i < recordset->FieldCount(); ++i) {
            const automation::Variant value = recordset->Fields(i)->Value();
            if (i > 0) row += '|';
            row += value.IsNull() ? "-" : automation::ToString(value);
        }
    }
    recordset->Close();
    return rows;
}

std::string ValueOf(ado::Connection& connection, const std::string& query) {
    const std::vector<std::string> rows = RowsOf(connection, query);
    return rows.empty() ? "" : rows.front();
}

}  // namespace korvex::tests
