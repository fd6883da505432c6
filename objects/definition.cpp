#include "objects/definition.h"

#include "automation/error.h"
#include "automation/text.h"

#include <utility>

namespace korvex::objects {

using automation::Error;
using automation::Variant;
using automation::VarType;

namespace {

/// An entry of a definition's keys: one text under the attribute that its kind has.
class KeyEntry final : public persistence::PlainObject {
  public:
    KeyEntry(std::int32_t attribute, std::string column)
        : m_attribute(attribute), m_column(std::move(column)) {}

    std::string StringAttribute(std::int32_t id) override { return id == m_attribute ? m_column : ""; }

  private:
    std::int32_t m_attribute;
    std::string m_column;
};

}  // namespace

/// A collection of definitions or entries.
class Definition::EntryList final : public persistence::PlainObject {
  public:
    void Add(Ref entry) { m_entries.push_back(std::move(entry)); }

    std::unique_ptr<automation::Enumerator> NewEnum() override {
        return std::make_unique<Entries>(std::static_pointer_cast<EntryList>(shared_from_this()));
    }

  private:
    class Entries final : public automation::Enumerator {
      public:
        explicit Entries(std::shared_ptr<EntryList> list) : m_list(std::move(list)) {}
        std::optional<Variant> Next() override {
            if (m_next == m_list->m_entries.size()) return std::nullopt;
            return Variant(m_list->m_entries[m_next++]);
        }

      private:
        std::shared_ptr<EntryList> m_list;
        std::size_t m_next = 0;
    };

    std::vector<Ref> m_entries;
};

// ---- ValueDefinition

VarType KeptType(std::int32_t dataType) {
    switch (const auto type = static_cast<VarType>(dataType)) {
        case VarType::Integer:
        case VarType::Long:
        case VarType::Single:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Date:
        case VarType::String:
        case VarType::Boolean:
        case VarType::Byte:
        case VarType::LongLong:
            return type;
        default:
            return VarType::Variant;
    }
}

ValueDefinition::ValueDefinition(ValueInfo info, std::int32_t index, std::shared_ptr<Definition> child)
    : m_info(std::move(info)), m_index(index), m_child(std::move(child)) {}

std::string ValueDefinition::StringAttribute(std::int32_t id) {
    if (id == attName) return m_info.name;
    if (id == attFieldName) return m_info.column;
    return m_child != nullptr ? m_child->StringAttribute(id) : std::string();
}

std::int32_t ValueDefinition::LongAttribute(std::int32_t id) { return id == attValueIndex ? m_index : 0; }

bool ValueDefinition::BooleanAttribute(std::int32_t id) {
    if (m_child != nullptr) return m_child->BooleanAttribute(id);
    if (id == attIsIncluded) return m_info.isIncluded;
    return id == attIsAutoNumber && m_info.isAutoNumber;
}

QORObject::Ref ValueDefinition::ObjectAttribute(std::int32_t id) {
    return m_child != nullptr ? m_child->ObjectAttribute(id) : nullptr;
}

bool ValueDefinition::HasAttribute(std::int32_t id) {
    return m_child != nullptr && m_child->HasAttribute(id);
}

// ---- Definition

Definition::Definition(std::string name, std::string table, bool isIncluded)
    : m_name(std::move(name)),
      m_table(std::move(table)),
      m_isIncluded(isIncluded),
      m_valueList(std::make_shared<EntryList>()),
      m_primaryKeyList(std::make_shared<EntryList>()),
      m_foreignKeyList(std::make_shared<EntryList>()) {}

// Definitions may stand many thousands deep: those that nobody else holds are taken apart one after the
// other, not one inside the other.
Definition::~Definition() {
    std::vector<std::shared_ptr<Definition>> parts;
    TakeParts(parts);
    while (!parts.empty()) {
        const auto part = std::move(parts.back());
        parts.pop_back();
        if (part.use_count() == 1) part->TakeParts(parts);
    }
}

void Definition::TakeParts(std::vector<std::shared_ptr<Definition>>& parts) {
    if (m_element != nullptr) parts.push_back(std::move(m_element));
    if (m_valueList.use_count() > 1) return;
    m_valueList.reset();
    for (const auto& value : m_values)
        if (value.use_count() == 1 && value->m_child != nullptr) parts.push_back(std::move(value->m_child));
}

void Definition::AddValue(ValueInfo info) {
    const auto index = static_cast<std::int32_t>(m_values.size()) + 1;
    Append(std::make_shared<ValueDefinition>(std::move(info), index, nullptr));
}

void Definition::AddChild(const std::string& name, std::shared_ptr<Definition> child) {
    const auto index = static_cast<std::int32_t>(m_values.size()) + 1;
    ValueInfo info{.name = name, .dataType = static_cast<std::int32_t>(automation::VarType::Object)};
    Append(std::make_shared<ValueDefinition>(std::move(info), index, std::move(child)));
}

void Definition::Append(std::shared_ptr<ValueDefinition> value) {
    const auto& info = value->Info();
    if (!m_byName.emplace(info.name, value.get()).second)
        throw Error(automation::KeyAlreadyUsed,
                    "The object " + automation::Quoted(m_name) + " has two values " +
                        (info.name.empty() ? "without a name" : "named " + automation::Quoted(info.name)) +
                        "; rename one of them.");
    if (!info.column.empty()) m_byColumn.emplace(info.column, value.get());
    m_valueList->Add(value);
    m_types.push_back(value->Child() != nullptr ? VarType::Object : KeptType(info.dataType));
    m_values.push_back(std::move(value));
    ++m_revision;
}

void Definition::AddPrimaryKey(const std::string& column) {
    m_primaryKeys.push_back(column);
    ++m_revision;
    m_primaryKeyList->Add(std::make_shared<KeyEntry>(attName, column));
}

void Definition::AddForeignKey(const std::string& column) {
    m_foreignKeyList->Add(std::make_shared<KeyEntry>(attForeignKeyField, column));
}

const ValueDefinition* Definition::FindValue(std::string_view name) const {
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? nullptr : found->second;
}

const ValueDefinition* Definition::FindColumn(std::string_view column) const {
    const auto found = m_byColumn.find(column);
    return found == m_byColumn.end() ? nullptr : found->second;
}

void Definition::RaiseNoValue(std::int32_t index) const {
    throw Error(automation::SubscriptOutOfRange,
                "The object " + m_name + " has no value " + std::to_string(index) + ".");
}

const ValueDefinition* Definition::KeyValue() const {
    const ValueDefinition* key = nullptr;
    for (const auto& column : m_primaryKeys)
        if (const auto* value = FindColumn(column)) key = value;
    return key;
}

std::string Definition::StringAttribute(std::int32_t id) {
    if (id == attTableName) return m_table;
    return id == attName ? m_name : std::string();
}

bool Definition::BooleanAttribute(std::int32_t id) { return id == attIsIncluded && m_isIncluded; }

QORObject::Ref Definition::ObjectAttribute(std::int32_t id) {
    switch (id) {
        case attValues:
            return m_valueList;
        case attPrimaryKeys:
            return m_primaryKeyList;
        case attForeignKeys:
            return m_foreignKeyList;
        case attElementDef:
            return m_element;
        default:
            return nullptr;
    }
}

bool Definition::HasAttribute(std::int32_t id) {
    return id == attElementDef ? m_element != nullptr
                               : id == attValues || id == attPrimaryKeys || id == attForeignKeys;
}

}  // namespace korvex::objects
