#include "objects/data_object.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>
#include <utility>

namespace korvex::objects {

using automation::Error;
using automation::Variant;
using automation::VarType;

namespace {

bool IsEmptyText(const Variant& value) {
    const auto* text = value.If<std::string>();
    return text != nullptr && text->empty();
}

/// The value is kept as it is where that type is asked for; Converted gives what is kept of others.
bool IsKept(VarType type, const Variant& value) {
    return value.Type() == type || value.IsEmpty() || value.IsNull() || type == VarType::Variant;
}

Variant Converted(const Definition& definition, std::int32_t index, const Variant& value) {
    if (IsEmptyText(value)) return {};
    try {
        return automation::ChangeType(value, definition.TypeAt(index));
    } catch (const Error& error) {
        throw Error(
            error.Number(),
            definition.Name() + "." + definition.ValueAt(index).Info().name + ": " + error.Description(),
            error.Source());
    }
}

template <class T>
bool IsSame(const T& kept, const T& value) {
    return kept == value;
}

/// Most values are set once.
bool IsSame(const Variant& kept, const Variant& value) {
    return kept.IsEmpty() ? value.IsEmpty() : kept == value;
}

class Elements final : public automation::Enumerator {
  public:
    explicit Elements(DataObject::Shared collection) : m_collection(std::move(collection)) {}

    std::optional<Variant> Next() override {
        if (m_next >= m_collection->Items().size()) return std::nullopt;
        return Variant(m_collection->Items()[m_next++]);
    }

  private:
    DataObject::Shared m_collection;
    std::size_t m_next = 0;
};

}  // namespace

DataObject::DataObject(std::shared_ptr<Definition> definition)
    : m_definition(std::move(definition)), m_values(m_definition->Values().size()) {}

// Trees may be many thousands deep: parts that nobody else holds are taken apart one after the other, not one
// inside the other.
DataObject::~DataObject() {
    std::vector<Shared> parts;
    TakeParts(parts);
    while (!parts.empty()) {
        const auto part = std::move(parts.back());
        parts.pop_back();
        if (part.use_count() == 1) part->TakeParts(parts);
    }
}

void DataObject::TakeParts(std::vector<Shared>& parts) {
    parts.insert(parts.end(), std::move_iterator(m_items.begin()), std::move_iterator(m_items.end()));
    m_items.clear();
    for (auto& value : m_values) {
        auto* object = value.If<automation::ObjectRef>();
        if (object == nullptr) continue;
        if (auto part = std::dynamic_pointer_cast<DataObject>(std::exchange(*object, nullptr)))
            parts.push_back(std::move(part));
    }
    m_values.clear();
}

void DataObject::RaiseNoDefinition() {
    throw Error(automation::ObjectVariableNotSet, "The data object has no definition.");
}

const ValueDefinition& DataObject::ValueNamed(std::string_view name) const {
    if (const auto* value = Type().FindValue(name)) return *value;
    throw Error(automation::MemberNotFound,
                "The object " + Type().Name() + " has no value named " + automation::Quoted(name) + ".");
}

Variant DataObject::Get(std::string_view name) { return ValueOf(ValueNamed(name)); }

void DataObject::Set(std::string_view name, const Variant& value) { Value(ValueNamed(name).Index(), value); }

DataObject::Shared DataObject::Child(std::string_view name) {
    const auto& value = ValueNamed(name);
    if (value.Child() == nullptr)
        throw Error(automation::ObjectRequired, "The value " + automation::Quoted(name) + " of the object " +
                                                    Type().Name() + " is no child object.");
    ValueOf(value);
    return ExistingChild(value);
}

DataObject::Shared DataObject::ExistingChild(const ValueDefinition& value) const {
    const auto* object = m_values[static_cast<std::size_t>(value.Index()) - 1].If<automation::ObjectRef>();
    return object != nullptr ? std::dynamic_pointer_cast<DataObject>(*object) : nullptr;
}

DataObject::Shared DataObject::NewPart(const std::shared_ptr<Definition>& definition) {
    auto part = std::make_shared<DataObject>(definition);
    part->m_parent = std::static_pointer_cast<QORObject>(shared_from_this());
    return part;
}

DataObject::Shared DataObject::Add() {
    if (Type().ElementDefinition() == nullptr)
        throw Error(automation::InvalidProcedureCall, "The object " + Type().Name() + " is no collection.");
    m_items.push_back(NewPart(Type().ElementDefinition()));
    ListChanged();
    return m_items.back();
}

void DataObject::Remove(std::size_t position) {
    if (position >= m_items.size())
        throw Error(automation::SubscriptOutOfRange,
                    "The collection " + Type().Name() + " has no element " + std::to_string(position) + ".");
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(position));
    ListChanged();
}

void DataObject::Replace(std::vector<Shared> items) {
    const auto* key = Type().KeyValue();
    const bool isNew = key != nullptr && Value(key->Index()).IsEmpty();
    if (items == m_items && !isNew) return;
    m_items = std::move(items);
    ListChanged();
}

template <class T, class NewValue>
void DataObject::Assign(T& target, NewValue&& value) {
    if (IsSame(target, value)) return;
    target = std::forward<NewValue>(value);
    m_isModified = true;
}

std::int32_t* DataObject::LongState(std::int32_t id) {
    switch (id) {
        case attSelectedItem:
            return &m_selectedItem;
        case attCounterHolder:
            return &m_counterHolder;
        case attCounter:
            return &m_counter;
        default:
            return nullptr;
    }
}

std::int32_t DataObject::LongAttribute(std::int32_t id) {
    const auto* state = LongState(id);
    return state != nullptr ? *state : 0;
}

void DataObject::LongAttribute(std::int32_t id, std::int32_t value) {
    if (auto* state = LongState(id))
        Assign(*state, value);
    else
        PlainObject::LongAttribute(id, value);
}

std::int16_t DataObject::IntegerAttribute(std::int32_t id) {
    return id == attSelectState ? m_selectState : std::int16_t{0};
}

void DataObject::IntegerAttribute(std::int32_t id, std::int16_t value) {
    if (id == attSelectState)
        Assign(m_selectState, value);
    else
        PlainObject::IntegerAttribute(id, value);
}

Variant DataObject::ValueOf(const ValueDefinition& value) {
    auto& kept = m_values[static_cast<std::size_t>(value.Index()) - 1];
    if (value.Child() != nullptr && kept.IsEmpty()) kept = NewPart(value.Child());
    return kept;
}

Variant DataObject::Value(std::int32_t index) { return ValueOf(Type().ValueAt(index)); }

template <class NewValue>
void DataObject::Store(std::int32_t index, NewValue&& value) {
    const Definition& definition = Type();
    const VarType type = definition.TypeAt(index);
    if (type == VarType::Object) return SetChild(definition.ValueAt(index), value);
    auto& kept = m_values[static_cast<std::size_t>(index) - 1];
    if (IsKept(type, value))
        Assign(kept, std::forward<NewValue>(value));
    else
        Assign(kept, Converted(definition, index, value));
}

void DataObject::Value(std::int32_t index, const Variant& value) { Store(index, value); }

void DataObject::MoveValue(std::int32_t index, Variant&& value) { Store(index, std::move(value)); }

void DataObject::SetChild(const ValueDefinition& value, const Variant& child) {
    auto& kept = m_values[static_cast<std::size_t>(value.Index()) - 1];
    if (child.IsEmpty() || child.IsNothing()) return Assign(kept, Variant());
    const auto* object = child.If<automation::ObjectRef>();
    const auto part = object != nullptr ? std::dynamic_pointer_cast<DataObject>(*object) : nullptr;
    if (part == nullptr || part->m_definition != value.Child())
        throw Error(automation::TypeMismatch, Type().Name() + "." + value.Info().name + " takes an object " +
                                                  value.Child()->Name() + ".");
    part->m_parent = std::static_pointer_cast<QORObject>(shared_from_this());
    Assign(kept, child);
}

Variant DataObject::NamedValue(std::string_view name) { return Get(name); }

void DataObject::DataDef(const Ref& definition) {
    auto own = std::dynamic_pointer_cast<Definition>(definition);
    if (const auto value = std::dynamic_pointer_cast<ValueDefinition>(definition)) own = value->Child();
    if (definition != nullptr && own == nullptr)
        throw Error(automation::TypeMismatch, "The definition given to the data object is none.");
    if (own == m_definition) return;
    m_values.assign(own != nullptr ? own->Values().size() : 0, Variant());
    m_items.clear();
    m_definition = std::move(own);
}

QORObject::Ref DataObject::AddItem(const Variant&, const Variant&) { return Add(); }

std::int32_t DataObject::ValueIndex(std::string_view fieldName) {
    if (const auto* value = Type().FindColumn(fieldName)) return value->Index();
    throw Error(automation::SubscriptOutOfRange, "The object " + Type().Name() +
                                                     " has no value that is stored in column " +
                                                     automation::Quoted(fieldName) + ".");
}

std::unique_ptr<automation::Enumerator> DataObject::NewEnum() {
    return std::make_unique<Elements>(std::static_pointer_cast<DataObject>(shared_from_this()));
}

}  // namespace korvex::objects
