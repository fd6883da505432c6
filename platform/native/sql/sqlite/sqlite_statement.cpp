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

/// The engine has no fixed numbers: an amount with too many digits would come back as another.
double StoredCurrency(automation::Currency value, const ColumnInfo* column) {
    const double stored = static_cast<double>(value.units) / 10000;
    try {
        if (automation::ToCurrency(stored) == value) return stored;
    } catch (const automation::Error&) {
        // Beyond what a Currency holds.
    }
    throw EngineError(ErrorKind::ValueTooLarge, "The value does not fit the column " +
                                                    (column ? column->name : std::string()) +
                                                    ": the engine keeps " + automation::ToString(value) +
                                                    " as a number with fewer digits");
}

/// Binds one value; text and bytes are not copied, as they outlive the execution.
int BindValue(sqlite3_stmt* statement, int index, const Variant& value, const ColumnInfo* column) {
    return std::visit(
        [statement, index, column](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, bool>) {
                return sqlite3_bind_int64(statement, index, StoredBoolean(held, column));
            } else if constexpr (std::is_integral_v<T>) {
                return sqlite3_bind_int64(statement, index, held);
            } else if constexpr (std::is_floating_point_v<T>) {
                return sqlite3_bind_double(statement, index, static_cast<double>(held));
            } else if constexpr (std::is_same_v<T, automation::Currency>) {
                if (held.units % 10000 == 0) return sqlite3_bind_int64(statement, index, held.units / 10000);
                return sqlite3_bind_double(statement, index, StoredCurrency(held, column));
            } else if constexpr (std::is_same_v<T, automation::Date>) {
                const std::string text = DateText(held);
                return sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_TRANSIENT,
                                           SQLITE_UTF8);
            } else if constexpr (std::is_same_v<T, std::string>) {
                return sqlite3_bind_text64(statement, index, held.data(), held.size(), SQLITE_STATIC,
                                           SQLITE_UTF8);
            } else if constexpr (std::is_same_v<T, automation::Bytes>) {
                if (held.empty()) return sqlite3_bind_zeroblob(statement, index, 0);
                return sqlite3_bind_blob64(statement, index, held.data(), held.size(), SQLITE_STATIC);
            } else {
                return sqlite3_bind_null(statement, index);
            }
        },
        value.Value());
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, SqliteShapes& shapes, std::string_view text)
    : m_database(database), m_shapes(shapes) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    CheckSqlite(database, sqlite3_prepare_v3(database, text.data(), static_cast<int>(text.size()),
                                             SQLITE_PREPARE_PERSISTENT, &statement, &tail));
    m_statement.reset(statement);
    if (HoldsStatement(text.substr(static_cast<std::size_t>(tail - text.data())))) {
        throw EngineError(ErrorKind::SecondStatement, "Characters found after end of SQL statement");
    }
    if (statement == nullptr) throw EngineError(ErrorKind::Syntax, "The statement is empty");
    m_shape = m_shapes.Describe(statement);
    m_parameterCount = static_cast<std::size_t>(sqlite3_bind_parameter_count(statement));
    m_writes = sqlite3_stmt_readonly(statement) == 0;
}

void SqliteStatement::Bind(std::size_t index, const Variant& value, const ColumnInfo* column) {
    CheckSqlite(m_database, BindValue(m_statement.get(), static_cast<int>(index) + 1, value, column));
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
    const EngineError error = SqliteError(m_database, code);
    Reset();
    throw error;
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
            if (data == nullptr && length > 0) throw SqliteError(m_database, SQLITE_NOMEM);
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
