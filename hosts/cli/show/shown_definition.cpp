#include "hosts/cli/show/shown_definition.h"

#include "hosts/cli/show/render.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

namespace korvex::cli {

using repository::ValueRow;

namespace {

/// One identifier per object.
std::vector<std::string> Identifiers(const Model& model) {
    std::set<std::string> used;
    std::vector<std::string> names;
    for (const ModelObject& object : model.objects) {
        std::string base = object.Name;
        std::ranges::replace_if(base, std::not_fn(IsPlain), '_');
        base = AsIdentifier(std::move(base));
        std::string name = base;
        for (int n = 2; !used.insert(name).second; ++n) {
            name = base + "_" + std::to_string(n);
        }
        names.push_back(name);
    }
    return names;
}

}  // namespace

std::string ShownValue::TypeText() const {
    return row != nullptr ? cli::TypeText(row->DataType, row->MaxLength)
                          : cli::TypeText(column->DataType, column->MaxLength);
}

std::string ShownValue::KeyMarks(std::string_view between) const {
    if (!IsKey()) return {};
    std::string marks = column->IsPrimaryKey ? "PK" : "";
    if (!column->IsForeignKey) return marks;
    if (!marks.empty()) marks += between;
    return marks + "FK";
}

std::vector<ShownValue> ShownObject::DiagramRows() const {
    std::vector<ShownValue> rows;
    std::ranges::copy_if(values, std::back_inserter(rows), [this](const ShownValue& value) {
        return value.row != nullptr && !value.child && (table == nullptr || value.column != nullptr);
    });
    std::ranges::stable_sort(rows, std::ranges::greater(), &ShownValue::IsKey);
    return rows;
}

ShownDefinition::ShownDefinition(const repository::Catalog& catalog, std::string_view storage,
                                 std::string_view fkPrefix)
    : m_exported(ExportModel(catalog, storage)), m_related(catalog) {
    m_related.Relate(storage, fkPrefix);
    m_tables = scriptgen::DescribeTables(m_related, storage);
    m_objects.resize(m_exported.objects.size());
    const std::vector<std::string> identifiers = Identifiers(m_exported);
    for (std::size_t i = 0; i < m_objects.size(); ++i) {
        m_positions.emplace(m_exported.objects[i].ObjectID, i);
        m_objects[i].identifier = identifiers[i];
    }
    for (const scriptgen::DescribedTable& table : m_tables)
        m_objects[m_positions.at(table.ObjectID)].table = &table;
    for (std::size_t i = 0; i < m_objects.size(); ++i)
        FillObject(i);
    AddHolders();
    SetDepths();
}

std::optional<std::size_t> ShownDefinition::Find(repository::ObjectId objectID) const {
    const auto found = m_positions.find(objectID);
    return found == m_positions.end() ? std::nullopt : std::optional(found->second);
}

void ShownDefinition::FillObject(std::size_t index) {
    ShownObject& object = m_objects[index];
    const repository::ObjectId id = m_exported.objects[index].ObjectID;
    object.row = m_related.FindObject(id);
    object.element = Find(object.row->CollectionObjectID);
    for (const repository::InterfaceId interface : m_related.InterfacesOf(id))
        AddValues(object, interface);
    if (object.table == nullptr) return;
    for (const scriptgen::Column& column : object.table->Columns)
        if (column.ValueID == repository::ValueId()) object.values.push_back({.column = &column});
}

void ShownDefinition::AddValues(ShownObject& object, repository::InterfaceId interfaceID) {
    const repository::InterfaceRow* interface = m_related.FindInterface(interfaceID);
    if (interface == nullptr) return;
    for (const ValueRow* row : m_related.ValuesOfInterface(interfaceID)) {
        ShownValue& value = object.values.emplace_back(
            ShownValue{.row = row, .interface = interface, .child = Find(row->ChildObjectID)});
        if (object.table == nullptr) continue;
        const auto column =
            std::ranges::find(object.table->Columns, row->ValueID, &scriptgen::Column::ValueID);
        if (column != object.table->Columns.end()) value.column = &*column;
    }
}

void ShownDefinition::AddHolders() {
    for (std::size_t i = 0; i < m_objects.size(); ++i) {
        if (m_objects[i].element) m_objects[*m_objects[i].element].holders.push_back({i, nullptr});
        for (const ShownValue& value : m_objects[i].values)
            if (value.child) m_objects[*value.child].holders.push_back({i, value.row});
    }
}

/// In walk order the object above the first way to another stands before it.
void ShownDefinition::SetDepths() {
    for (std::size_t i = 0; i < m_objects.size(); ++i) {
        const std::vector<ShownHolder>& holders = m_objects[i].holders;
        const auto above =
            std::ranges::find_if(holders, [i](const ShownHolder& holder) { return holder.object < i; });
        if (above != holders.end()) m_objects[i].depth = m_objects[above->object].depth + 1;
    }
}

}  // namespace korvex::cli
