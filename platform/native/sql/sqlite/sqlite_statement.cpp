#include "platform/native/sql/sqlite/sqlite_statement.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "platform/native/sql/column_value.h"
#include "platform/native/sql/sqlite/sqlite_error.h"
#include "platform/native/sql/statement_text.h"

#include <string>
#include <type_traits>
#include <utility>

namespace korvex::native::sql {
namespace {

using automation::Variant;

/// True is -1 in a number column, as automation has it, and 1 in one that was declared Boolean.
int StoredBoolean(bool value, const ColumnInfo* column) noexcept {
    if (!value) return 0;
    return column != nullptr && column->type == ColumnType::Boolean ? 1 : -1;
}

/// Binds one value; text and bytes are not copied, as they outlive the execution.
class Binder {
  public:
    Binder(sqlite3_stmt* statement, int index, const ColumnInfo* column)
        : m_statement(statement), m_index(index), m_column(column) {}

    int operator()(bool value) const { return Integer(StoredBoolean(value, m_column)); }
    template <class T>
    requires std::is_integral_v<T>
    int operator()(T value) const { return Integer(value); }
    template <class T>
    requires std::is_floating_point_v<T>
    int operator()(T value) const {
        return sqlite3_bind_double(m_statement, m_index, static_cast<double>(value));
    }
    int operator()(automation::Currency value) const {
        if (value.units % 10000 == 0) return Integer(value.units / 10000);
        const double stored = static_cast<double>(value.units) / 10000;
        if (!IsSame(stored, value)) RaiseNotKept(value);
        return (*this)(stored);
    }
    int operator()(automation::Date value) const {
        const std::string text = DateText(value);
        return sqlite3_bind_text64(m_statement, m_index, text.data(), text.size(), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    }
    int operator()(const std::string& value) const {
        return sqlite3_bind_text64(m_statement, m_index, value.data(), value.size(), SQLITE_STATIC,
                                   SQLITE_UTF8);
    }
    int operator()(const automation::Bytes& value) const {
        if (value.empty()) return sqlite3_bind_zeroblob(m_statement, m_index, 0);
        return sqlite3_bind_blob64(m_statement, m_index, value.data(), value.size(), SQLITE_STATIC);
    }
    template <class T>
    requires std::is_empty_v<T> || std::is_same_v<T, automation::ObjectRef>
    int operator()(const T&) const { return sqlite3_bind_null(m_statement, m_index); }

  private:
    static bool IsSame(double stored, automation::Currency value) {
        try {
            return automation::ToCurrency(stored) == value;
        } catch (const automation::Error&) {
            return false;
        }
    }
    /// The engine has no fixed numbers: an amount with this many digits would come back as another.
    [[noreturn]] void RaiseNotKept(automation::Currency value) const {
        throw EngineError(ErrorKind::ValueTooLarge, automation::Overflow,
                          "The value does not fit the column " + (m_column ? m_column->name : std::string()) +
                              ": the engine keeps " + automation::ToString(value) +
                              " as a number with fewer digits");
    }
    int Integer(std::int64_t value) const { return sqlite3_bind_int64(m_statement, m_index, value); }

    sqlite3_stmt* m_statement;
    int m_index;
    const ColumnInfo* m_column;
};

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, SqliteShapes& shapes, std::string_view text)
    : m_database(database), m_shapes(shapes) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    CheckSqlite(database, sqlite3_prepare_v3(database, text.data(), static_cast<int>(text.size()),
                                             SQLITE_PREPARE_PERSISTENT, &statement, &tail));
    m_statement.reset(statement);
    if (HoldsStatement(text.substr(static_cast<std::size_t>(tail - text.data())))) {
        throw EngineError(ErrorKind::SecondStatement, SQLITE_MISUSE,
                          "Characters found after end of SQL statement");
    }
    if (statement == nullptr) throw EngineError(ErrorKind::Syntax, SQLITE_ERROR, "The statement is empty");
    m_shape = m_shapes.Describe(statement);
    m_parameterCount = static_cast<std::size_t>(sqlite3_bind_parameter_count(statement));
    m_writes = sqlite3_stmt_readonly(statement) == 0;
}

void SqliteStatement::Bind(std::size_t index, const Variant& value, const ColumnInfo* column) {
    const Binder binder(m_statement.get(), static_cast<int>(index) + 1, column);
    CheckSqlite(m_database, std::visit(binder, value.Value()));
}

void SqliteStatement::Execute() {
    m_finished = false;
    m_firstRowReady = false;
    m_affectedRows = 0;
    if (!m_writes && !m_shape->columns.empty()) return;
    m_firstRowReady = Step();
}

bool SqliteStatement::Fetch() {
    if (std::exchange(m_firstRowReady, false)) return true;
    return !m_finished && Step();
}

bool SqliteStatement::Step() {
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW) {
        if (const int count = RepreparedCount(); count != m_reprepared) {
            m_reprepared = count;
            m_shapes.Forget();
            m_shape = m_shapes.Describe(m_statement.get());
        }
        return true;
    }
    if (code == SQLITE_DONE) {
        if (m_writes) m_affectedRows = sqlite3_changes64(m_database);
        Reset();
        return false;
    }
    try {
        RaiseSqliteError(m_database, code);
    } catch (...) {
        Reset();
        throw;
    }
}

int SqliteStatement::RepreparedCount() const noexcept {
    return sqlite3_stmt_status(m_statement.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
}

/// The data stay where they are until the next row.
Cell SqliteStatement::CellAt(int index) const {
    // Reading a value in place is safe on a connection that one thread uses, as this one.
    sqlite3_value* value = sqlite3_column_value(m_statement.get(), index);
    switch (const int storage = sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return {.kind = Cell::Kind::Integer, .integer = sqlite3_value_int64(value)};
        case SQLITE_FLOAT:
            return {.kind = Cell::Kind::Real, .real = sqlite3_value_double(value)};
        case SQLITE_NULL:
            return {};
        default: {
            const bool isText = storage == SQLITE_TEXT;
            const void* data = isText ? sqlite3_value_text(value) : sqlite3_value_blob(value);
            const auto length = static_cast<std::size_t>(sqlite3_value_bytes(value));
            if (data == nullptr && length > 0) RaiseSqliteError(m_database, SQLITE_NOMEM);
            return {.kind = isText ? Cell::Kind::Text : Cell::Kind::Bytes,
                    .data = static_cast<const char*>(data),
                    .length = length};
        }
    }
}

Variant SqliteStatement::Value(std::size_t column) {
    return FromCell(CellAt(static_cast<int>(column)), *m_shape, column);
}

void SqliteStatement::Keep(KeptRow& row) {
    row.Take(m_shape->columns.size(),
             [this](std::size_t column) { return CellAt(static_cast<int>(column)); });
}

void SqliteStatement::Reset() noexcept {
    m_firstRowReady = false;
    if (std::exchange(m_finished, true)) return;
    sqlite3_reset(m_statement.get());
}

}  // namespace korvex::native::sql
