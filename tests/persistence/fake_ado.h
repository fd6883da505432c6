#pragma once

#include "automation/convert.h"
#include "automation/text.h"
#include "platform/ado.h"

#include <map>
#include <numeric>
#include <string>
#include <vector>

namespace korvex::tests {

/// A target database in memory behind the ADO port. It writes down what reaches it, one line per statement,
/// counts open recordsets, and can let one call fail. It knows "select * from T [where C=K]" and "delete from
/// T where C=K".
class FakeDatabase {
  public:
    struct Column {
        std::string name;
        ado::DataType type = ado::adInteger;
        std::int32_t size = 4;
        bool isAutoNumber = false;
    };
    using Row = std::vector<automation::Variant>;
    struct Table {
        std::vector<Column> columns;
        std::vector<Row> rows;
        std::int32_t lastKey = 0;
    };

    /// A statement starts a line; what is done with its records follows behind it.
    void Statement(const std::string& text) {
        log += log.empty() ? "" : "\n";
        Note(text);
    }
    void Call(const std::string& text) {
        log += "; ";
        Note(text);
    }
    void Note(const std::string& text) {
        log += text;
        if (failAt != 0 && ++calls == failAt)
            throw automation::Error(ado::DbEFail, "injected failure at: " + text);
    }
    /// What was written down since the last time.
    std::string TakeLog() { return std::exchange(log, {}); }
    void FailAt(int n) {
        calls = 0;
        failAt = n;
    }

    /// The statement's table, and the rows that its condition selects.
    std::pair<Table*, std::vector<std::size_t>> Select(const std::string& statement) {
        const std::string text = statement.substr(statement.find(" from ") + 6);
        const auto where = text.find(" where ");
        const auto found = tables.find(text.substr(0, where));
        if (found == tables.end()) throw automation::Error(ado::DbENoTable, "no table in: " + statement);
        Table& table = found->second;
        std::vector<std::size_t> selected(table.rows.size());
        std::iota(selected.begin(), selected.end(), std::size_t{0});
        if (where == std::string::npos) return {&table, selected};

        const auto equals = text.find('=');
        const auto column = ColumnOf(table, automation::Trim(text.substr(where + 7, equals - where - 7)));
        const double key = automation::ParseNumber(text.substr(equals + 1));
        std::erase_if(selected, [&](std::size_t row) {
            const auto& value = table.rows[row][column];
            if (const auto* whole = value.If<std::int32_t>()) return *whole != key;
            return value.IsNull() || automation::ToDouble(value) != key;
        });
        return {&table, selected};
    }

    static std::size_t ColumnOf(const Table& table, std::string_view name) {
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (automation::EqualsIgnoreCase(table.columns[i].name, name)) return i;
        throw automation::Error(ado::adErrItemNotFound, "no column " + std::string(name));
    }

    std::map<std::string, Table, std::less<>> tables;
    std::string log;
    int openRecordsets = 0;
    int openConnections = 0;
    int calls = 0;
    int failAt = 0;
};

/// "12", "'text'", "Null", "<3 bytes>".
inline std::string Show(const automation::Variant& value) {
    if (value.IsNull()) return "Null";
    if (value.IsEmpty()) return "Empty";
    if (value.IsMissing()) return "Missing";
    if (const auto* bytes = value.If<automation::Bytes>())
        return "<" + std::to_string(bytes->size()) + " bytes>";
    return value.IsString() ? "'" + automation::ToString(value) + "'" : automation::ToString(value);
}

class FakeRecordset;

class FakeField final : public ado::Field {
  public:
    FakeField(std::shared_ptr<FakeRecordset> owner, std::size_t column)
        : m_owner(std::move(owner)), m_column(column) {}
    std::string Name() const override { return Info().name; }
    automation::Variant Value() override;
    void Value(const automation::Variant& value) override;
    std::int32_t Type() const override { return Info().type; }
    std::int32_t DefinedSize() const override { return Info().size; }
    std::int32_t ActualSize() override;
    std::int32_t Attributes() const override { return IsLong() ? ado::adFldLong : 0; }
    automation::Variant GetChunk(std::int32_t length) override;
    void AppendChunk(const automation::Variant& data) override;

  private:
    const FakeDatabase::Column& Info() const;
    bool IsLong() const { return Type() == ado::adLongVarChar || Type() == ado::adLongVarBinary; }

    std::shared_ptr<FakeRecordset> m_owner;
    std::size_t m_column;
};

class FakeRecordset final : public ado::Recordset {
  public:
    explicit FakeRecordset(FakeDatabase& database) : m_database(database) {}
    ~FakeRecordset() override {
        if (m_table != nullptr) --m_database.openRecordsets;
    }
    std::int32_t CursorType() const override { return m_cursorType; }
    void CursorType(std::int32_t type) override { m_cursorType = type; }
    std::int32_t LockType() const override { return m_lockType; }
    void LockType(std::int32_t type) override { m_lockType = type; }
    std::int32_t State() const override { return m_table != nullptr ? ado::adStateOpen : ado::adStateClosed; }
    void Open(std::string_view source, const std::shared_ptr<ado::Connection>&, std::int32_t cursorType,
              std::int32_t lockType, std::int32_t options) override {
        m_database.Statement(std::string(source));
        if (m_cursorType != ado::adOpenKeyset || m_lockType != ado::adLockOptimistic || cursorType != -1 ||
            lockType != -1 || options != -1)
            throw automation::Error(ado::adErrInvalidArgument, "not a keyset with optimistic locks");
        std::tie(m_table, m_rows) = m_database.Select(std::string(source));
        ++m_database.openRecordsets;
    }
    bool Eof() override { return !m_added && m_position >= m_rows.size(); }
    void MoveNext() override { ++m_position; }
    void AddNew() override {
        m_database.Call("AddNew");
        m_pending.assign(m_table->columns.size(), {});
        m_added = m_isPending = true;
    }
    void Update() override {
        m_database.Call("Update");
        for (std::size_t i = 0; i < m_pending.size() && m_added; ++i) {
            if (m_table->columns[i].isAutoNumber) m_pending[i] = ++m_table->lastKey;
            if (m_pending[i].IsEmpty()) m_pending[i] = automation::Variant::Null();
        }
        if (m_added)
            m_table->rows.push_back(m_pending);
        else if (m_isPending)
            m_table->rows[m_rows[m_position]] = m_pending;
        m_isPending = false;
    }
    void CancelUpdate() override { m_added = m_isPending = false; }
    void Close() override {
        m_database.Call("Close");
        --m_database.openRecordsets;
        m_table = nullptr;
    }
    std::shared_ptr<ado::Field> Fields(std::string_view name) override {
        return Fields(static_cast<std::int32_t>(FakeDatabase::ColumnOf(*m_table, name)));
    }
    std::shared_ptr<ado::Field> Fields(std::int32_t index) override {
        return std::make_shared<FakeField>(std::static_pointer_cast<FakeRecordset>(shared_from_this()),
                                           static_cast<std::size_t>(index));
    }
    std::int32_t FieldCount() const override { return static_cast<std::int32_t>(m_table->columns.size()); }

    const FakeDatabase::Column& Column(std::size_t column) const { return m_table->columns[column]; }
    const automation::Variant& Get(std::size_t column) const {
        if (m_added || m_isPending) return m_pending[column];
        return m_table->rows.at(m_rows.at(m_position))[column];
    }
    void Set(std::size_t column, const automation::Variant& value, std::string_view how) {
        m_database.Call(Column(column).name + std::string(how) + Show(value));
        if (!m_added && !m_isPending) m_pending = m_table->rows.at(m_rows.at(m_position));
        m_isPending = true;
        m_pending[column] = value;
    }
    void Note(const std::string& text) { m_database.Call(text); }

  private:
    FakeDatabase& m_database;
    FakeDatabase::Table* m_table = nullptr;
    std::vector<std::size_t> m_rows;
    std::size_t m_position = 0;
    FakeDatabase::Row m_pending;
    bool m_added = false;
    bool m_isPending = false;
    std::int32_t m_cursorType = 0;
    std::int32_t m_lockType = 0;
};

inline const FakeDatabase::Column& FakeField::Info() const { return m_owner->Column(m_column); }
inline automation::Variant FakeField::Value() { return m_owner->Get(m_column); }
inline void FakeField::Value(const automation::Variant& value) {
    const bool isText = Info().type == ado::adVarChar || IsLong();
    if (!isText && value.IsString() && !value.If<std::string>()->empty())
        return m_owner->Set(m_column, automation::ToLong(value), " = ");
    if (!isText && value.IsString()) {
        m_owner->Note(Info().name + " refuses ''");
        throw automation::Error(ado::adErrDataConversion, "a text in the number column " + Info().name);
    }
    m_owner->Set(m_column, value, " = ");
}
inline std::int32_t FakeField::ActualSize() {
    const auto& value = m_owner->Get(m_column);
    if (const auto* bytes = value.If<automation::Bytes>()) return static_cast<std::int32_t>(bytes->size());
    return value.IsString() ? static_cast<std::int32_t>(automation::Length(*value.If<std::string>())) : 0;
}
inline automation::Variant FakeField::GetChunk(std::int32_t length) {
    m_owner->Note(Info().name + " chunk of " + std::to_string(length));
    return m_owner->Get(m_column);
}
inline void FakeField::AppendChunk(const automation::Variant& data) { m_owner->Set(m_column, data, " << "); }

class FakeConnection final : public ado::Connection {
  public:
    explicit FakeConnection(FakeDatabase& database) : m_database(database) {}
    void Open(std::string_view connectionString, std::string_view user, std::string_view password,
              std::int32_t options) override {
        m_database.Statement("open " + std::string(connectionString) + std::string(user) +
                             std::string(password));
        if (options != ado::adUnspecified || connectionString.find("bad") != std::string_view::npos)
            throw automation::Error(ado::DbEFail, "no such database");
        m_state = ado::adStateOpen;
        ++m_database.openConnections;
    }
    void Close() override {
        m_database.Statement("close");
        if (m_state == ado::adStateClosed) throw automation::Error(ado::adErrObjectClosed, "not open");
        m_state = ado::adStateClosed;
        --m_database.openConnections;
    }
    std::shared_ptr<ado::Recordset> Execute(std::string_view text, std::int32_t, std::int32_t*) override {
        m_database.Statement(std::string(text));
        const auto [table, rows] = m_database.Select(std::string(text));
        for (auto row = rows.rbegin(); row != rows.rend(); ++row)
            table->rows.erase(table->rows.begin() + static_cast<std::ptrdiff_t>(*row));
        return std::make_shared<FakeRecordset>(m_database);
    }
    std::int32_t State() const override { return m_state; }
    std::int32_t BeginTrans() override { return 1; }
    void CommitTrans() override {}
    void RollbackTrans() override {}

  private:
    FakeDatabase& m_database;
    std::int32_t m_state = ado::adStateClosed;
};

class FakeProvider final : public ado::Provider {
  public:
    explicit FakeProvider(FakeDatabase& database) : m_database(database) {}
    std::shared_ptr<ado::Connection> CreateConnection() override {
        return std::make_shared<FakeConnection>(m_database);
    }
    std::shared_ptr<ado::Recordset> CreateRecordset() override {
        return std::make_shared<FakeRecordset>(m_database);
    }

  private:
    FakeDatabase& m_database;
};

}  // namespace korvex::tests
