#pragma once

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "platform/dao.h"
#include "repository/ids.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Rows in memory in the shape of a repository's recordsets.
namespace korvex::repository {

/// A column of rows of one type, under the name that it has in the repository.
template <class Row>
struct RowColumn {
    std::string_view name;
    automation::Variant (*get)(const Row& row);
    void (*set)(Row& row, const automation::Variant& value);
};

namespace detail {

inline automation::Variant ToVariant(const std::optional<std::string>& text) {
    return text ? automation::Variant(*text) : automation::Variant::Null();
}
template <class T>
automation::Variant ToVariant(const T& value) {
    return value;
}
template <RowId Id>
automation::Variant ToVariant(const Id& id) {
    return Number(id);
}
template <RowId Id>
void FromVariant(Id& id, const automation::Variant& value) {
    id = Id(automation::ToLong(value));
}
inline void FromVariant(std::int32_t& number, const automation::Variant& value) {
    number = automation::ToLong(value);
}
inline void FromVariant(bool& flag, const automation::Variant& value) { flag = automation::ToBoolean(value); }
template <class Text>
void FromVariant(Text& text, const automation::Variant& value) {
    text = automation::ToString(value);
}

}  // namespace detail

/// The column of a member: ColumnOf<&ObjectRow::Name>("Name").
template <auto Member, class Row>
constexpr RowColumn<Row> ColumnOf(std::string_view name) {
    return {name, [](const Row& row) { return detail::ToVariant(row.*Member); },
            [](Row& row, const automation::Variant& value) { detail::FromVariant(row.*Member, value); }};
}

/// A recordset of rows that stand elsewhere, or that it keeps itself.
template <class Row>
class MemoryRecordset final : public dao::Recordset {
  public:
    using Columns = std::span<const RowColumn<Row>>;
    /// Keeps a row that was added, or changed in place of `before`; gives it where it stands from then on.
    using Store = std::function<const Row*(Row&& row, const Row* before)>;

    MemoryRecordset(Columns columns, std::vector<const Row*> rows, Store store = {})
        : m_rows(std::move(rows)), m_store(std::move(store)) {
        m_fields.reserve(columns.size());
        for (const RowColumn<Row>& column : columns)
            m_fields.emplace_back(*this, column);
    }
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

    std::vector<const Row*> m_rows;
    std::vector<Row> m_own;
    std::size_t m_at = 0;
    Store m_store;
    std::vector<Field> m_fields;
    std::optional<Row> m_edited;
    bool m_isNew = false;
};

}  // namespace korvex::repository
