#pragma once

#include "automation/error.h"
#include "automation/text.h"
#include "platform/dao.h"
#include "repository/row_columns.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

/// Rows in memory in the shape of a repository's recordsets.
namespace korvex::repository {

/// A recordset of rows that stand elsewhere, or that it keeps itself.
template <class Row>
class MemoryRecordset final : public dao::Recordset {
  public:
    using Columns = std::span<const RowColumn<Row>>;
    /// Keeps a row that was added, or changed in place of `before`; gives it where it stands from then on.
    using Store = std::function<const Row*(Row&& row, const Row* before)>;

    MemoryRecordset(Columns columns, std::vector<const Row*> rows, Store store = {})
        : m_columns(columns), m_rows(std::move(rows)), m_store(std::move(store)) {}
    MemoryRecordset(Columns columns, std::vector<Row> rows, Store store = {})
        : MemoryRecordset(columns, std::vector<const Row*>(), std::move(store)) {
        m_own = std::move(rows);
        for (const Row& row : m_own)
            m_rows.push_back(&row);
    }

    bool Eof() override { return m_at >= m_rows.size(); }
    void MoveNext() override { ++m_at; }
    void MoveLast() override { m_at = m_rows.size() - 1; }
    dao::Field& Fields(std::string_view name) override {
        m_fields.reserve(m_columns.size());
        for (std::size_t i = m_fields.size(); i < m_columns.size(); ++i)
            m_fields.emplace_back(*this, m_columns[i]);
        for (Field& field : m_fields)
            if (automation::EqualsIgnoreCase(field.Name(), name)) return field;
        throw automation::Error(dao::ItemNotFound, "There is no column " + automation::Quoted(name) + ".");
    }
    void AddNew() override {
        m_edited.emplace();
        m_isNew = true;
    }
    void Edit() override {
        m_edited = *m_rows.at(m_at);
        m_isNew = false;
    }
    void Update() override {
        const Row* row = m_store(std::move(*m_edited), m_isNew ? nullptr : m_rows[m_at]);
        m_isNew ? m_rows.push_back(row) : static_cast<void>(m_rows[m_at] = row);
        m_edited.reset();
    }
    void Close() override {}

  private:
    class Field final : public dao::Field {
      public:
        Field(MemoryRecordset& rows, const RowColumn<Row>& column) : m_rows(rows), m_column(column) {}
        std::string_view Name() const override { return m_column.name; }
        automation::Variant Value() override { return m_column.get(*m_rows.m_rows.at(m_rows.m_at)); }
        void Value(const automation::Variant& value) override { m_column.set(*m_rows.m_edited, value); }

      private:
        MemoryRecordset& m_rows;
        const RowColumn<Row>& m_column;
    };

    Columns m_columns;
    std::vector<const Row*> m_rows;
    std::vector<Row> m_own;
    std::size_t m_at = 0;
    Store m_store;
    std::vector<Field> m_fields;
    std::optional<Row> m_edited;
    bool m_isNew = false;
};

}  // namespace korvex::repository
