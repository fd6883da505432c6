#pragma once

#include "automation/variant.h"
#include "platform/native/sql/session.h"
#include "platform/native/sql/write_plan.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::native::sql {

/// New values for the columns of one row after another, in the form of ForColumn.
class Changes {
  public:
    /// Begins a row of `count` columns, none of them set.
    void Start(std::size_t count) {
        Clear();
        m_values.resize(count, automation::Variant::Missing());
        m_columns.reserve(count);
    }
    void Clear() noexcept {
        for (const std::size_t column : m_columns)
            m_values[column] = automation::Variant::Missing();
        m_columns.clear();
    }

    /// The columns that are set, in the order in which they were.
    const std::vector<std::size_t>& Columns() const noexcept { return m_columns; }
    /// The value of a column; Missing when it is not set.
    const automation::Variant& Value(std::size_t column) const noexcept { return m_values[column]; }
    automation::Variant& Value(std::size_t column) noexcept { return m_values[column]; }
    bool IsSet(std::size_t column) const noexcept { return !m_values[column].IsMissing(); }
    void Set(std::size_t column, automation::Variant value) {
        if (!IsSet(column)) m_columns.push_back(column);
        m_values[column] = std::move(value);
    }
    /// Takes back what is set to `stored(column)` anyway.
    template <class Stored>
    void RemoveSame(Stored&& stored) {
        std::erase_if(m_columns, [&](std::size_t column) {
            const bool isSame = m_values[column] == stored(column);
            if (isSame) m_values[column] = automation::Variant::Missing();
            return isSame;
        });
    }
    /// Gives the values away: the row as far as it was set.
    Row TakeRow() noexcept {
        m_columns.clear();
        return std::exchange(m_values, {});
    }

  private:
    std::vector<std::size_t> m_columns;
    Row m_values;
};

/// How one stored row is found again: the columns of its table that identify it, with their values.
struct RowIdentity {
    std::shared_ptr<const WritePlan> plan;  ///< to which the names belong
    std::vector<std::string_view> columns;
    Row values;
    bool unique = true;  ///< a key; otherwise all columns, which several rows may share
};

/// Writes rows of the one base table behind a cursor's columns, by INSERT and UPDATE statements of its own.
class RowWriter {
  public:
    RowWriter(Session& session, std::shared_ptr<const WritePlan> plan)
        : m_session(session), m_plan(std::move(plan)) {}

    const WritePlan& Plan() const noexcept { return *m_plan; }

    /// The identity of a row read from the database: the key, when the cursor has all of its columns, else
    /// all columns that can be compared.
    RowIdentity Identify(const Row& row) const;
    /// Adds a row; gives its identity, engine-given key included. Nothing when it cannot be found again.
    std::optional<RowIdentity> Insert(const Changes& changes);
    /// Changes the one row of that identity; RecordChanged when there is none, or more than one.
    void Update(const RowIdentity& identity, const Changes& changes);
    /// Reads the cursor's columns of a row; expressions stay Null. Nothing when the row is gone.
    std::optional<Row> Read(const RowIdentity& identity);

  private:
    std::optional<RowIdentity> NewIdentity(const Changes& changes, StatementLease& insert,
                                           std::string_view text);
    automation::Variant NewKey(StatementLease& insert, std::string_view insertText);
    void BindChanges(StatementLease& statement, const Changes& changes) const;
    void AppendWhere(std::string& text, const RowIdentity& identity) const;
    void BindIdentity(StatementLease& statement, std::size_t first, const RowIdentity& identity) const;
    void RequireSingle(const RowIdentity& identity);

    Session& m_session;
    std::shared_ptr<const WritePlan> m_plan;
};

}  // namespace korvex::native::sql
