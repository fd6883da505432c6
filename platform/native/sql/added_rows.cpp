#include "platform/native/sql/added_rows.h"

#include "automation/convert.h"
#include "automation/text.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace korvex::native::sql {
namespace {

using automation::Variant;

std::string JoinedKey(const Row& values) {
    std::string text;
    for (const Variant& value : values)
        text += (value.IsNull() ? "" : automation::ToString(value)) + '\0';
    return text;
}

}  // namespace

void AddedRows::Add(RowWriter& writer, Changes& changes) {
    AddedRow row;
    row.identity = writer.Insert(changes);
    row.values = changes.TakeRow();
    for (std::size_t i = 0; row.identity && i < row.identity->columns.size(); ++i) {
        if (const auto position = writer.Plan().PositionOf(row.identity->columns[i]))
            row.values[*position] = row.identity->values[i];
    }
    m_rows.push_back(std::move(row));
}

Variant AddedRows::Value(std::size_t row, std::size_t column, RowWriter& writer) {
    AddedRow& added = m_rows[row];
    if (added.values[column].IsMissing()) {
        std::optional<Row> stored =
            added.identity ? writer.Read(*added.identity) : Row(added.values.size(), Variant::Null());
        if (!stored) throw EngineError(ErrorKind::RecordChanged, "The added record is not there any more");
        for (std::size_t i = 0; i < added.values.size(); ++i) {
            if (added.values[i].IsMissing()) added.values[i] = std::move((*stored)[i]);
        }
    }
    return added.values[column];
}

const RowIdentity& AddedRows::IdentityOf(std::size_t row) const {
    if (m_rows[row].identity) return *m_rows[row].identity;
    throw EngineError(ErrorKind::NotUpdatable, "The added record cannot be found again");
}

void AddedRows::Replace(std::size_t row, std::size_t column, std::string_view name, const Variant& value) {
    AddedRow& added = m_rows[row];
    added.values[column] = value;
    for (std::size_t i = 0; i < added.identity->columns.size(); ++i) {
        if (automation::EqualsIgnoreCase(added.identity->columns[i], name)) added.identity->values[i] = value;
    }
}

std::function<bool(const Row&)> AddedRows::Recognizer(RowWriter& writer) {
    if (m_rows.empty()) return nullptr;
    const bool areKnown = writer.Plan().KeyColumns().has_value() &&
                          std::ranges::all_of(m_rows, [](const AddedRow& row) { return !!row.identity; });
    if (!areKnown) {
        Clear();
        return nullptr;
    }
    std::set<std::string> keys;
    for (const AddedRow& row : m_rows)
        keys.insert(JoinedKey(row.identity->values));
    return [keys = std::move(keys), &writer](const Row& row) {
        return keys.contains(JoinedKey(writer.Identify(row).values));
    };
}

}  // namespace korvex::native::sql
