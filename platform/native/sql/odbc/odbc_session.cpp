#include "platform/native/sql/odbc/odbc_session.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/native/sql/odbc/odbc_statement.h"

#include <algorithm>
#include <array>

namespace korvex::native::sql {
namespace {

constexpr SQLULEN LoginTimeoutSeconds = 15;

/// ODBC passes the numbers of attributes in place of pointers.
// NOLINTNEXTLINE(performance-no-int-to-ptr)
SQLPOINTER AsPointer(SQLULEN value) noexcept { return reinterpret_cast<SQLPOINTER>(value); }

void AppendOrder(std::string& order, std::string_view what) {
    order.append(order.empty() ? "\nORDER BY " : ", ").append(what);
}

}  // namespace

OdbcSession::OdbcSession(std::string_view connectionString, std::shared_ptr<Seam> seam)
    : Session(std::move(seam), m_dialect.traits) {
    Check(CallKind::Connect, connectionString);
    m_environment = OdbcHandle(SQL_HANDLE_ENV, nullptr);
    SQLSetEnvAttr(m_environment.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
    m_connection = OdbcHandle(SQL_HANDLE_DBC, m_environment.Get());
    const OdbcString string(connectionString);
    Connect(string);
    m_dialect = DialectOf(Info(SQL_DBMS_NAME));
    m_dialect.source = string.WithoutPassword();
    m_dialect.bindsColumns = !m_dialect.dynamicTypes && ReadsInAnyOrder();
    if (!m_dialect.firstStatement.empty()) {
        OdbcStatement(m_connection, m_dialect, m_dialect.firstStatement, StatementVerb::Definition).Execute();
    }
    if (const std::string quote = Info(SQL_IDENTIFIER_QUOTE_CHAR); !quote.empty() && quote != " ") {
        m_traits.quote = quote;
    }
}

OdbcSession::~OdbcSession() {
    CloseAll();
    if (!m_connected) return;
    if (m_inTransaction) SQLEndTran(SQL_HANDLE_DBC, m_connection.Get(), SQL_ROLLBACK);
    SQLDisconnect(m_connection.Get());
}

void OdbcSession::Connect(const OdbcString& connectionString) {
    SQLSetConnectAttrW(m_connection.Get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(LoginTimeoutSeconds), 0);
    WideText text(connectionString.WithNeededSettings());
    const SQLRETURN result = SQLDriverConnectW(m_connection.Get(), nullptr, text.Data(), text.Length(),
                                               nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) {
        const OdbcDiagnosis diagnosis = ReadDiagnosis(m_connection);
        const std::string shown = connectionString.WithoutPassword();
        if (diagnosis.state.starts_with("28")) {
            throw EngineError(ErrorKind::LoginRefused, diagnosis.message, shown);
        }
        throw EngineError(ErrorKind::ConnectFailed, diagnosis.message + " (" + shown + ")");
    }
    m_connected = true;
}

bool OdbcSession::ReadsInAnyOrder() const {
    constexpr SQLUINTEGER needed = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BOUND;
    SQLUINTEGER extensions = 0;
    return SQL_SUCCEEDED(SQLGetInfoW(m_connection.Get(), SQL_GETDATA_EXTENSIONS, &extensions,
                                     sizeof extensions, nullptr)) &&
           (extensions & needed) == needed;
}

std::string OdbcSession::Info(SQLUSMALLINT what) const {
    std::array<SQLWCHAR, 128> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(m_connection.Get(), what, text.data(),
                                   static_cast<SQLSMALLINT>(text.size() * sizeof(SQLWCHAR)), &bytes))) {
        return {};
    }
    return FromWide(text);
}

std::unique_ptr<Statement> OdbcSession::DoPrepare(std::string_view text, StatementVerb kind) {
    const auto ask = [&](std::string_view order = {}) {
        return std::make_unique<OdbcStatement>(m_connection, m_dialect, text, kind, order);
    };
    if (kind != StatementVerb::Select || m_dialect.rowOrderColumn.empty()) return ask();
    StatementText scan;
    ScanStatement(text, m_traits.lexical, scan);
    if (scan.arrangesRows || text.find(';') != std::string_view::npos) return ask();
    if (const std::string_view table = SoleTableOf(text).name; !table.empty()) return ask(OrderOf(table));
    auto statement = ask();
    const std::string order = OrderOf(*statement->Shape());
    return order.empty() ? std::move(statement) : ask(order);
}

/// The columns of a table's key, none for a table without one; null for what is no table that is found by
/// that name.
const OdbcSession::TableKey* OdbcSession::KeyOf(const std::string& table) {
    if (!m_keys) {
        m_keys.emplace();
        try {
            OdbcStatement query(m_connection, m_dialect, m_dialect.keysQuery, StatementVerb::Select);
            query.Execute();
            while (query.Fetch()) {
                TableKey& key = (*m_keys)[automation::ToString(query.Value(1))];
                key.schema = automation::ToString(query.Value(0));
                if (!query.Value(2).IsNull()) key.columns.push_back(automation::ToString(query.Value(2)));
            }
        } catch (const EngineError&) {
            m_keys->clear();  // an engine that only speaks the same language
        }
    }
    const auto found = m_keys->find(table);
    return found == m_keys->end() ? nullptr : &found->second;
}

/// The ORDER BY that gives the rows of one table, as a statement names it, in the order of its key.
std::string OdbcSession::OrderOf(std::string_view table) {
    const bool isQuoted = table.starts_with('"');
    std::string name(isQuoted ? table.substr(1, table.size() - 2) : table);
    if (!isQuoted) {
        std::ranges::transform(name, name.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c | ' ' : c; });
    }
    const TableKey* key = KeyOf(name);
    if (key == nullptr) return {};
    std::string order;
    for (const std::string& column : key->columns)
        AppendOrder(order, m_traits.Quote(column));
    if (order.empty()) AppendOrder(order, m_dialect.rowOrderColumn);
    return order;
}

/// The ORDER BY that gives a query's rows in the order of the keys of its tables; empty for one that has none
/// of a table.
std::string OdbcSession::OrderOf(const RowShape& shape) {
    std::vector<TableName> tables;
    for (const ColumnInfo& column : shape.columns) {
        if (!column.base.table.empty() && std::ranges::count(tables, column.base) == 0) {
            tables.push_back(column.base);
        }
    }
    std::string order;
    for (const TableName& name : tables) {
        const std::shared_ptr<const TableInfo> table = Table(name, shape);
        for (const TableColumn& key : table->columns) {
            if (!key.key) continue;
            const auto shown = std::ranges::find_if(shape.columns, [&](const ColumnInfo& column) {
                return column.base == name && column.baseColumn == key.name;
            });
            AppendOrder(order, shown == shape.columns.end()
                                   ? m_traits.Quote(name.table) + "." + m_traits.Quote(key.name)
                                   : std::to_string(shown - shape.columns.begin() + 1));
        }
        if (!table->HasKey()) AppendOrder(order, m_traits.Quote(name.table) + "." + m_dialect.rowOrderColumn);
    }
    return order;
}

void OdbcSession::SetAutoCommit(bool on) {
    const SQLULEN value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    CheckOdbc(SQLSetConnectAttrW(m_connection.Get(), SQL_ATTR_AUTOCOMMIT, AsPointer(value), SQL_IS_UINTEGER),
              m_connection, m_dialect);
}

void OdbcSession::DoBegin() {
    SetAutoCommit(false);
    m_inTransaction = true;
}

void OdbcSession::EndTransaction(SQLSMALLINT completion) {
    CheckOdbc(SQLEndTran(SQL_HANDLE_DBC, m_connection.Get(), completion), m_connection, m_dialect);
    m_inTransaction = false;
    SetAutoCommit(true);
}

TableInfo OdbcSession::DoDescribeTable(const TableName& name, const RowShape& shown) {
    std::unique_ptr<OdbcStatement> statement;
    const RowShape* shape = &shown;
    if (!shown.isWholeTable) {
        const std::string text = "SELECT * FROM " + m_traits.QuoteBeside(name, name.table);
        statement = std::make_unique<OdbcStatement>(m_connection, m_dialect, text, StatementVerb::Select);
        shape = statement->Shape().get();
    }
    TableInfo table{.name = name, .columns = {}};
    for (const ColumnInfo& column : shape->columns) {
        table.columns.push_back({.name = column.name, .autoNumber = column.autoNumber});
    }
    MarkKeyColumns(table);
    MarkNumberedKey(table, *shape);
    return table;
}

/// A sole key that is numbered although the driver does not say so.
void OdbcSession::MarkNumberedKey(TableInfo& table, const RowShape& shape) const {
    if (std::ranges::count(table.columns, true, &TableColumn::key) != 1) return;
    const auto key = std::ranges::find(table.columns, true, &TableColumn::key);
    const ColumnInfo& column = shape.columns[static_cast<std::size_t>(key - table.columns.begin())];
    if (m_dialect.dynamicTypes) {
        key->autoNumber = automation::EqualsIgnoreCase(column.declaredType, "integer");
    } else if (m_traits.newKey == NewKeySource::Sequence) {
        key->autoNumber = true;
    }
}

std::vector<std::string> OdbcSession::DoListTables() {
    const OdbcHandle query(SQL_HANDLE_STMT, m_connection.Get());
    char types[] = "TABLE,VIEW";
    CheckOdbc(SQLTables(query.Get(), nullptr, 0, nullptr, 0, nullptr, 0, reinterpret_cast<SQLCHAR*>(types),
                        SQL_NTS),
              query, m_dialect);
    constexpr SQLUSMALLINT tableName = 3;
    return ReadNames(query, tableName);
}

/// One text column of what a catalogue function gives.
std::vector<std::string> OdbcSession::ReadNames(const OdbcHandle& query, SQLUSMALLINT column) const {
    std::vector<std::string> names;
    std::array<SQLWCHAR, 256> text{};
    while (SQL_SUCCEEDED(SQLFetch(query.Get()))) {
        SQLLEN bytes = 0;
        CheckOdbc(SQLGetData(query.Get(), column, SQL_C_WCHAR, text.data(),
                             static_cast<SQLLEN>(text.size() * sizeof(SQLWCHAR)), &bytes),
                  query, m_dialect);
        names.push_back(FromWide(text));
    }
    return names;
}

void OdbcSession::MarkKeyColumns(TableInfo& table) {
    const auto mark = [&table](std::string_view column) {
        for (TableColumn& entry : table.columns) {
            if (automation::EqualsIgnoreCase(entry.name, column)) entry.key = true;
        }
    };
    const TableKey* known = m_dialect.keysQuery.empty() ? nullptr : KeyOf(table.name.table);
    if (known != nullptr && known->schema == table.name.schema) {
        std::ranges::for_each(known->columns, mark);
        return;
    }
    const OdbcHandle query(SQL_HANDLE_STMT, m_connection.Get());
    CheckOdbc(m_dialect.calls.PrimaryKeys(query.Get(), table.name), query, m_dialect);
    constexpr SQLUSMALLINT columnName = 4;
    for (const std::string& column : ReadNames(query, columnName)) {
        mark(column);
    }
}

}  // namespace korvex::native::sql
