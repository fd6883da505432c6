#include "scriptgen/table_model.h"

#include "automation/text.h"
#include "repository/lookups.h"
#include "repository/related_catalog.h"
#include "scriptgen/column_lists.h"
#include "scriptgen/column_model.h"
#include "scriptgen/table_walk.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace korvex::scriptgen {

namespace {

class Describer final : public TableVisitor {
  public:
    using TableVisitor::TableVisitor;

    std::vector<DescribedTable> Describe(std::string_view storageName) {
        WalkStorage(storageName);
        for (DescribedTable& table : m_tables)
            AddForeignKeys(table);
        return std::move(m_tables);
    }

  private:
    bool EnterTable(repository::ObjectId lObjectID, const std::string& table) override;
    void Leave() override { m_ancestors.pop_back(); }
    void AddForeignKeys(DescribedTable& table);

    std::vector<DescribedTable> m_tables;
    std::unordered_map<repository::ObjectId, std::size_t> m_positions;  ///< of the tables, by ObjectID
    std::vector<repository::ObjectId> m_ancestors;
};

/// What is beneath an object is the same along every way to it.
bool Describer::EnterTable(repository::ObjectId lObjectID, const std::string& table) {
    const auto [position, isNew] = m_positions.try_emplace(lObjectID, m_tables.size());
    if (isNew) {
        DescribedTable& described = m_tables.emplace_back();
        described.ObjectID = lObjectID;
        described.Name = table;
        described.Columns = BuildTableFields(m_rows, lObjectID, table);
        described.PrimaryKey = PrimaryKeyColumns(described.Columns);
    }
    std::vector<repository::ObjectId>& parents = m_tables[position->second].Parents;
    if (!m_ancestors.empty() && std::ranges::find(parents, m_ancestors.back()) == parents.end())
        parents.push_back(m_ancestors.back());
    if (isNew) m_ancestors.push_back(lObjectID);
    return isNew;
}

void Describer::AddForeignKeys(DescribedTable& table) {
    for (const Column& column : table.Columns) {
        if (!column.IsForeignKey) continue;
        ForeignKey& key = table.ForeignKeys.emplace_back();
        key.FieldName = column.FieldName;
        key.FKObjectID = column.FKObjectID;
        const auto position = m_positions.find(column.FKObjectID);
        key.IsInRun = position != m_positions.end();
        if (!key.IsInRun) {
            key.Table = repository::GetObjectTableName(m_rows, column.FKObjectID);
            continue;
        }
        const DescribedTable& target = m_tables[position->second];
        key.Table = target.Name;
        const auto found = std::ranges::find(target.Columns, column.FKValueID, &Column::ValueID);
        if (found != target.Columns.end()) key.KeyField = found->FieldName;
    }
}

template <class Rows>
auto* FindField(const Rows& rows, std::string_view name) {
    const auto found = std::ranges::find_if(
        rows, [&](const auto& row) { return automation::EqualsIgnoreCase(row.FieldName, name); });
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace

std::string FoldedName(const std::string& name, bool folds) {
    return folds ? automation::ToUpperAscii(name) : name;
}

const DescribedTable* FindTable(std::span<const DescribedTable> tables, std::string_view name, bool folds) {
    const auto found = std::ranges::find_if(tables, [&](const DescribedTable& table) {
        return folds ? automation::EqualsIgnoreCase(table.Name, name) : table.Name == name;
    });
    return found == tables.end() ? nullptr : &*found;
}

const Column* FindColumn(const DescribedTable& table, std::string_view name) {
    return FindField(table.Columns, name);
}
const ForeignKey* FindForeignKey(const DescribedTable& table, std::string_view column) {
    return FindField(table.ForeignKeys, column);
}

std::vector<DescribedTable> DescribeTables(repository::DefinitionRows& rows, std::string_view storageName) {
    return Describer(rows).Describe(storageName);
}

std::vector<DescribedTable> DescribeDefinition(const repository::Catalog& catalog,
                                               std::string_view storageName, std::string_view sFKPrefix) {
    repository::RelatedCatalog related(catalog);
    related.Relate(storageName, sFKPrefix);
    return DescribeTables(related, storageName);
}

}  // namespace korvex::scriptgen
