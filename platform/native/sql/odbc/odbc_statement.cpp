#include "platform/native/sql/odbc/odbc_statement.h"

#include "automation/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace korvex::native::sql {
namespace {

struct SqlType {
    SQLSMALLINT code;
    ColumnType type;
};

constexpr SqlType SqlTypes[] = {
    {SQL_BIT, ColumnType::Boolean},
    {SQL_TINYINT, ColumnType::TinyInt},
    {SQL_SMALLINT, ColumnType::SmallInt},
    {SQL_INTEGER, ColumnType::Integer},
    {SQL_BIGINT, ColumnType::BigInt},
    {SQL_REAL, ColumnType::Single},
    {SQL_FLOAT, ColumnType::Double},
    {SQL_DOUBLE, ColumnType::Double},
    {SQL_NUMERIC, ColumnType::Decimal},
    {SQL_DECIMAL, ColumnType::Decimal},
    {SQL_DATE, ColumnType::Date},
    {SQL_TYPE_DATE, ColumnType::Date},
    {SQL_TIME, ColumnType::Date},
    {SQL_TYPE_TIME, ColumnType::Date},
    {SQL_TIMESTAMP, ColumnType::Date},
    {SQL_TYPE_TIMESTAMP, ColumnType::Date},
    {SQL_CHAR, ColumnType::Char},
    {SQL_WCHAR, ColumnType::Char},
    {SQL_LONGVARCHAR, ColumnType::LongText},
    {SQL_WLONGVARCHAR, ColumnType::LongText},
    {SQL_BINARY, ColumnType::Binary},
    {SQL_VARBINARY, ColumnType::Binary},
    {SQL_LONGVARBINARY, ColumnType::LongBinary},
};

ColumnType TypeOf(SQLSMALLINT code) noexcept {
    const auto* found = std::ranges::find(SqlTypes, code, &SqlType::code);
    return found == std::end(SqlTypes) ? ColumnType::VarChar : found->type;
}

/// Sizes beyond this are a driver's way to say that there is no limit.
constexpr SQLULEN LargestSize = 1U << 24U;

}  // namespace

OdbcStatement::OdbcStatement(const OdbcHandle& connection, const OdbcDialect& dialect, std::string_view text,
                             StatementVerb kind, std::string_view order)
    : m_dialect(dialect),
      m_kind(kind),
      m_text(text),
      m_order(order),
      m_statement(SQL_HANDLE_STMT, connection.Get()) {
    if (m_dialect.preparesLate) {
        StatementText scan;
        ScanStatement(text, m_dialect.traits.lexical, scan);
        m_parameters.resize(scan.placeholders);
        return;
    }
    Prepare();
    SQLSMALLINT parameters = 0;
    Check(SQLNumParams(Handle(), &parameters));
    m_parameters.resize(static_cast<std::size_t>(std::max<SQLSMALLINT>(parameters, 0)));
    TakeShape(Describe());
}

void OdbcStatement::Prepare() {
    Check(m_dialect.calls.Prepare(Handle(), m_text + m_order));
    m_stage = Stage::Prepared;
}

SQLRETURN OdbcStatement::Run() {
    if (m_stage == Stage::New && m_dialect.preparesLate) {
        m_stage = Stage::Used;
        const SQLRETURN result = m_dialect.calls.Execute(Handle(), m_text + m_order);
        if (m_order.empty() || result != SQL_ERROR || !ReadDiagnosis(m_statement).state.starts_with("42"))
            return result;
        m_order.clear();  // what it names is not there: another client changed the table
        return m_dialect.calls.Execute(Handle(), m_text);
    }
    if (m_stage != Stage::Prepared) Prepare();
    return SQLExecute(Handle());
}

const std::shared_ptr<const RowShape>& OdbcStatement::Shape() {
    if (!m_shape) LearnColumns();
    return m_shape;
}

/// Of a statement that was not executed: a whole table is cheaper to ask for without its rows than to
/// prepare.
void OdbcStatement::LearnColumns() {
    if (SoleTableOf(m_text).isWhole) {
        Check(m_dialect.calls.Execute(Handle(), m_text + " WHERE 1 = 0"));
        m_executing = true;
        auto shape = Describe();
        Reset();
        return TakeShape(std::move(shape));
    }
    Prepare();
    TakeShape(Describe());
}

void OdbcStatement::TakeShape(std::shared_ptr<const RowShape> shape) {
    m_shape = std::move(shape);
    // The driver must not write into buffers that go.
    if (!m_columns.empty()) SQLFreeStmt(Handle(), SQL_UNBIND);
    m_columns.clear();
    m_columns.reserve(m_shape->columns.size());
    for (const ColumnInfo& column : m_shape->columns) {
        const auto index = static_cast<SQLUSMALLINT>(m_columns.size() + 1);
        m_columns.emplace_back(m_statement, m_dialect, index, column);
        if (m_dialect.bindsColumns) m_columns.back().Bind();
    }
}

bool OdbcStatement::Writes() {
    return m_kind != StatementVerb::Select && (m_kind != StatementVerb::Other || Shape()->columns.empty());
}

std::shared_ptr<const RowShape> OdbcStatement::Describe() const {
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(Handle(), &count));
    std::vector<ColumnInfo> columns;
    for (SQLSMALLINT i = 1; i <= count; ++i) {
        columns.push_back(DescribeColumn(static_cast<SQLUSMALLINT>(i)));
    }
    const bool isWholeTable = ShowsWholeTable(columns);
    return std::make_shared<RowShape>(std::move(columns), isWholeTable);
}

/// Not those of a view, whose columns a driver may give as the columns of the table beneath it.
bool OdbcStatement::ShowsWholeTable(const std::vector<ColumnInfo>& columns) const {
    std::string_view table = SoleTableOf(m_text).name;
    table = table.substr(table.rfind('.') + 1);
    if (!table.empty() && (table[0] == '"' || table[0] == '`')) table = table.substr(1, table.size() - 2);
    return !table.empty() && std::ranges::all_of(columns, [&](const ColumnInfo& column) {
        return automation::EqualsIgnoreCase(column.base.table, table) && column.base == columns[0].base;
    });
}

ColumnInfo OdbcStatement::DescribeColumn(SQLUSMALLINT index) const {
    std::array<SQLWCHAR, 256> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT scale = 0;
    SQLSMALLINT nullable = 0;
    Check(SQLDescribeColW(Handle(), index, name.data(), static_cast<SQLSMALLINT>(name.size()), &length, &type,
                          &size, &scale, &nullable));
    ColumnInfo column;
    column.nullable = nullable != SQL_NO_NULLS;
    const std::string typeName = TextAttribute(index, SQL_DESC_TYPE_NAME);
    if (m_dialect.dynamicTypes) ReadDeclaration(typeName + DeclaredSize(index, type, size), column);
    if (column.type == ColumnType::Unknown) {
        column.type = TypeOf(type);
        column.size = size < LargestSize && !IsLong(column.type) ? static_cast<std::uint32_t>(size) : 0;
        column.scale = static_cast<std::uint32_t>(std::max<SQLSMALLINT>(scale, 0));
        column.declaredType = typeName;
    }
    column.name = m_dialect.calls.areNarrow
                      ? TextAttribute(index, SQL_DESC_NAME)
                      : FromWide(name.data(), std::min(static_cast<std::size_t>(length), name.size() - 1));
    column.base.catalog = TextAttribute(index, SQL_DESC_CATALOG_NAME);
    column.base.schema = TextAttribute(index, SQL_DESC_SCHEMA_NAME);
    column.base.table = TextAttribute(index, SQL_DESC_BASE_TABLE_NAME);
    if (column.base.table.empty()) return column;
    column.baseColumn = TextAttribute(index, SQL_DESC_BASE_COLUMN_NAME);
    column.autoNumber = NumberAttribute(index, SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
    return column;
}

/// What stood in parentheses behind the type's name: the driver gives a precision only for a size that was
/// declared, and the scale of a number in its place.
std::string OdbcStatement::DeclaredSize(SQLUSMALLINT index, SQLSMALLINT type, SQLULEN size) const {
    const SQLLEN precision = NumberAttribute(index, SQL_DESC_PRECISION);
    if (precision <= 0 || (!IsText(TypeOf(type)) && !IsBinary(TypeOf(type)))) return {};
    if (static_cast<SQLULEN>(precision) == size) return "(" + std::to_string(size) + ")";
    return "(" + std::to_string(size) + "," + std::to_string(precision) + ")";
}

SQLLEN OdbcStatement::NumberAttribute(SQLUSMALLINT index, SQLUSMALLINT attribute) const {
    SQLLEN value = 0;
    const SQLRETURN result = SQLColAttributeW(Handle(), index, attribute, nullptr, 0, nullptr, &value);
    return SQL_SUCCEEDED(result) ? value : 0;
}

void OdbcStatement::Bind(std::size_t index, const automation::Variant& value, const ColumnInfo* column) {
    OdbcParameter& parameter = m_parameters[index];
    parameter.Assign(value, column, m_dialect.narrowTexts);
    Check(parameter.Bind(Handle(), static_cast<SQLUSMALLINT>(index + 1)));
}

void OdbcStatement::Execute() {
    m_affectedRows = 0;
    m_executing = true;
    const SQLRETURN result = Run();
    // A DELETE or UPDATE that meets no row may say so in this way.
    if (result == SQL_NO_DATA) return;
    if (!SQL_SUCCEEDED(result)) {
        const EngineError error = OdbcError(m_statement, m_dialect);
        Reset();
        throw error;
    }
    SQLLEN rows = 0;
    if (Writes() && SQL_SUCCEEDED(SQLRowCount(Handle(), &rows)) && rows > 0) m_affectedRows = rows;
    const bool isBatch =
        m_kind == StatementVerb::Insert && m_dialect.traits.newKey == NewKeySource::SameBatch;
    if (isBatch) SkipToRows();
    if (isBatch || !m_shape || m_shape->columns.empty()) {
        // Some drivers know the columns only now.
        if (auto shape = Describe(); !m_shape || !shape->columns.empty()) TakeShape(std::move(shape));
    }
}

/// A batch gives the count of the rows it wrote before the rows it reads.
void OdbcStatement::SkipToRows() {
    SQLSMALLINT columns = 0;
    for (SQLRETURN result = SQL_SUCCESS; result != SQL_NO_DATA; result = SQLMoreResults(Handle())) {
        Check(result);
        Check(SQLNumResultCols(Handle(), &columns));
        if (columns > 0) return;
    }
}

bool OdbcStatement::Fetch() {
    if (!m_executing) return false;
    const SQLRETURN result = SQLFetch(Handle());
    if (result == SQL_NO_DATA) {
        Reset();
        return false;
    }
    Check(result);
    for (OdbcColumn& column : m_columns) {
        column.StartRow();
        if (!m_dialect.bindsColumns) column.Read();
    }
    return true;
}

void OdbcStatement::Reset() noexcept {
    if (!m_executing) return;
    m_executing = false;
    SQLFreeStmt(Handle(), SQL_CLOSE);
}

}  // namespace korvex::native::sql
