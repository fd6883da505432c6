#include "support/odbc_floor.h"

#include <sql.h>
#include <sqlext.h>

#include <cstdlib>
#include <stdexcept>

namespace korvex::bench {
namespace {

void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    SQLCHAR state[6] = {};
    SQLCHAR message[1024] = {};
    SQLINTEGER code = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(type, handle, 1, state, &code, message, sizeof message, &length);
    throw std::runtime_error(reinterpret_cast<const char*>(message));
}

SQLCHAR* Text(std::string& text) { return reinterpret_cast<SQLCHAR*>(text.data()); }

}  // namespace

FloorStatement::FloorStatement(SQLHDBC connection, std::string_view text) {
    Check(SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_statement), SQL_HANDLE_DBC, connection);
    std::string copy(text);
    Check(SQLPrepare(m_statement, Text(copy), static_cast<SQLINTEGER>(copy.size())), SQL_HANDLE_STMT,
          m_statement);
}

FloorStatement::~FloorStatement() { SQLFreeHandle(SQL_HANDLE_STMT, m_statement); }

FloorStatement::Parameter& FloorStatement::At(std::size_t parameter) {
    if (m_parameters.size() <= parameter) m_parameters.resize(parameter + 1);
    return m_parameters[parameter];
}

void FloorStatement::Set(std::size_t parameter, std::int64_t value) {
    Parameter& bound = At(parameter);
    bound.number = value;
    if (bound.length != 0) return;
    bound.length = sizeof bound.number;
    Check(SQLBindParameter(m_statement, static_cast<SQLUSMALLINT>(parameter + 1), SQL_PARAM_INPUT,
                           SQL_C_SBIGINT, SQL_INTEGER, 10, 0, &bound.number, 0, &bound.length),
          SQL_HANDLE_STMT, m_statement);
}

void FloorStatement::Set(std::size_t parameter, std::string_view value) {
    Parameter& bound = At(parameter);
    const bool isNew = bound.length == 0;
    bound.text.reserve(256);
    bound.text = value;
    bound.length = static_cast<SQLLEN>(value.size());
    if (!isNew) return;
    Check(SQLBindParameter(m_statement, static_cast<SQLUSMALLINT>(parameter + 1), SQL_PARAM_INPUT, SQL_C_CHAR,
                           SQL_VARCHAR, 255, 0, bound.text.data(), 256, &bound.length),
          SQL_HANDLE_STMT, m_statement);
}

void FloorStatement::BindColumns() {
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(m_statement, &count), SQL_HANDLE_STMT, m_statement);
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        Column& column = *m_columns.emplace_back(std::make_unique<Column>());
        Check(SQLBindCol(m_statement, static_cast<SQLUSMALLINT>(i), SQL_C_CHAR, column.text,
                         sizeof column.text, &column.length),
              SQL_HANDLE_STMT, m_statement);
    }
}

std::int64_t FloorStatement::Run() {
    Check(SQLExecute(m_statement), SQL_HANDLE_STMT, m_statement);
    if (!m_isDescribed) BindColumns();
    m_isDescribed = true;
    std::int64_t first = 0;
    if (m_columns.empty()) return first;
    for (;; ++m_rows) {
        const SQLRETURN result = SQLFetch(m_statement);
        if (result == SQL_NO_DATA) break;
        Check(result, SQL_HANDLE_STMT, m_statement);
        if (m_columns[0]->length > 0) first = std::atoll(m_columns[0]->text);
    }
    SQLFreeStmt(m_statement, SQL_CLOSE);
    return first;
}

FloorConnection::FloorConnection(const std::string& connectionString) {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &m_environment);
    SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
    std::string text = connectionString;
    Check(SQLDriverConnect(m_connection, nullptr, Text(text), SQL_NTS, nullptr, 0, nullptr,
                           SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, m_connection);
}

FloorConnection::~FloorConnection() {
    m_statements.clear();
    SQLDisconnect(m_connection);
    SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
    SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

FloorStatement& FloorConnection::Statement(const std::string& text) {
    std::unique_ptr<FloorStatement>& statement = m_statements[text];
    if (!statement) statement = std::make_unique<FloorStatement>(m_connection, text);
    return *statement;
}

void FloorConnection::Begin() {
    SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
}

void FloorConnection::Commit() {
    Check(SQLEndTran(SQL_HANDLE_DBC, m_connection, SQL_COMMIT), SQL_HANDLE_DBC, m_connection);
    SQLSetConnectAttr(m_connection, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
}

}  // namespace korvex::bench
