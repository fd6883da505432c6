#include "scriptgen/migration/compare_tables.h"

#include "automation/text.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace korvex::scriptgen {

using automation::EqualsIgnoreCase;

namespace {

std::string ReferenceText(const ForeignKey& key) { return key.Table + " (" + key.KeyField + ")"; }

/// Compares one table with the one that is there.
class TableComparison {
  public:
    TableComparison(const DescribedTable& wanted, const DescribedTable& actual,
                    std::vector<TableDifference>& differences)
        : m_wanted(wanted), m_actual(actual), m_differences(differences) {}

    void Compare() {
        for (const Column& column : m_wanted.Columns)
            CompareColumn(column);
        for (const Column& column : m_actual.Columns) {
            if (FindColumn(m_wanted, column.FieldName) == nullptr)
                Add(TableAspect::Column, column.FieldName, "is not in the definition");
        }
        CompareKey();
        for (const TableIndex& index : m_wanted.Indexes) {
            if (!HasIndexOn(index.Columns.front()))
                AddMissing(TableAspect::Index, EngineThing::Index, index.Name,
                           "." + index.Columns.front() + " has no index");
        }
        for (const Column& column : m_wanted.Columns)
            CompareReference(column.FieldName);
        for (const std::string& trigger : m_wanted.Triggers) {
            if (std::ranges::none_of(m_actual.Triggers,
                                     [&](const auto& name) { return EqualsIgnoreCase(name, trigger); }))
                AddMissing(TableAspect::Trigger, EngineThing::Trigger, trigger, " has no trigger " + trigger);
        }
    }

  private:
    void Add(TableAspect aspect, const std::string& column, const std::string& what) {
        const std::string place = m_wanted.Name + (column.empty() ? "" : ".") + column;
        m_differences.push_back({aspect, m_wanted.Name, column, place + " " + what});
    }
    void AddMissing(TableAspect aspect, EngineThing thing, const std::string& name, const std::string& what) {
        m_differences.push_back({aspect, m_wanted.Name, name, m_wanted.Name + what, thing});
    }

    void CompareColumn(const Column& column) {
        const Column* actual = FindColumn(m_actual, column.FieldName);
        if (actual == nullptr) return Add(TableAspect::Column, column.FieldName, "is missing");
        if (!EqualsIgnoreCase(column.TypeSize, actual->TypeSize)) {
            Add(TableAspect::Type, column.FieldName,
                "is " + (actual->TypeSize.empty() ? "of no type" : actual->TypeSize) + ", not " +
                    column.TypeSize);
        }
        if (column.IsAutoNumber != actual->IsAutoNumber)
            Add(TableAspect::Number, column.FieldName,
                actual->IsAutoNumber ? "is numbered" : "is not numbered");
    }

    void CompareKey() {
        const auto sorted = [](std::vector<std::string> columns) {
            for (std::string& column : columns)
                column = automation::ToUpperAscii(column);
            std::ranges::sort(columns);
            return columns;
        };
        if (sorted(m_wanted.PrimaryKey) == sorted(m_actual.PrimaryKey)) return;
        const auto text = [](const std::vector<std::string>& columns) {
            return columns.empty() ? std::string("none") : "(" + Joined(columns) + ")";
        };
        Add(TableAspect::Key, "",
            "has the primary key " + text(m_actual.PrimaryKey) + ", not " + text(m_wanted.PrimaryKey));
    }

    bool HasIndexOn(const std::string& column) const {
        return std::ranges::any_of(m_actual.Indexes, [&](const TableIndex& index) {
            return EqualsIgnoreCase(index.Columns.front(), column);
        });
    }

    void CompareReference(const std::string& column) {
        const ForeignKey* wanted = FindForeignKey(m_wanted, column);
        const ForeignKey* actual = FindForeignKey(m_actual, column);
        if (actual == nullptr) {
            if (wanted != nullptr && wanted->IsInRun)
                AddMissing(TableAspect::ForeignKey, EngineThing::ForeignKey, column,
                           "." + column + " has no foreign key to " + ReferenceText(*wanted));
            return;
        }
        if (wanted != nullptr && (!wanted->IsInRun || (EqualsIgnoreCase(wanted->Table, actual->Table) &&
                                                       EqualsIgnoreCase(wanted->KeyField, actual->KeyField))))
            return;
        Add(TableAspect::ForeignKey, column,
            "refers to " + ReferenceText(*actual) + ", not to " +
                (wanted != nullptr ? ReferenceText(*wanted) : "a table"));
    }

    const DescribedTable& m_wanted;
    const DescribedTable& m_actual;
    std::vector<TableDifference>& m_differences;
};

}  // namespace

std::vector<TableDifference> CompareTables(std::span<const DescribedTable> wanted,
                                           std::span<const DescribedTable> actual, bool foldsTableNames) {
    std::unordered_map<std::string, const DescribedTable*> byName;
    for (const DescribedTable& table : actual)
        byName.emplace(FoldedName(table.Name, foldsTableNames), &table);
    std::vector<TableDifference> differences;
    for (const DescribedTable& table : wanted) {
        const auto found = byName.find(FoldedName(table.Name, foldsTableNames));
        if (found != byName.end()) {
            TableComparison(table, *found->second, differences).Compare();
        } else {
            differences.push_back(
                {TableAspect::Table, table.Name, table.Name, table.Name + " is missing", EngineThing::Table});
        }
    }
    return differences;
}

}  // namespace korvex::scriptgen
