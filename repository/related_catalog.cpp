#include "repository/related_catalog.h"

#include "automation/text.h"
#include "repository/catalog_ways.h"
#include "repository/key_values.h"
#include "repository/memory_rows.h"
#include "repository/relationship_builder.h"

#include <algorithm>
#include <limits>
#include <set>

namespace korvex::repository {

using automation::Error;
using Rows = DefinitionRows::Rows;

namespace {

/// A foreign key beside the column that holds it.
struct ForeignKeyField {
    std::optional<std::string> FieldName;
    ObjectId FKObjectID = {};
    ValueId FKValueID = {};
};

/// A foreign key beside the interface of its value.
struct NumberedForeignKey {
    ObjectId ObjectID = {};
    ValueId ValueID = {};
    ObjectId FKObjectID = {};
    std::string Name;
};

constexpr RowColumn<ForeignKeyField> ForeignKeyFieldColumns[] = {
    ColumnOf<&ForeignKeyField::FieldName>("FieldName"), ColumnOf<&ForeignKeyField::FKObjectID>("FKObjectID"),
    ColumnOf<&ForeignKeyField::FKValueID>("FKValueID")};
constexpr RowColumn<NumberedForeignKey> NumberedColumns[] = {
    ColumnOf<&NumberedForeignKey::ObjectID>("ObjectID"), ColumnOf<&NumberedForeignKey::ValueID>("ValueID"),
    ColumnOf<&NumberedForeignKey::FKObjectID>("FKObjectID"), ColumnOf<&NumberedForeignKey::Name>("Name")};

template <class Row, std::size_t N, class Given>
Rows RowsOf(const RowColumn<Row> (&columns)[N], Given rows, typename MemoryRecordset<Row>::Store store = {}) {
    return std::make_unique<MemoryRecordset<Row>>(columns, std::move(rows), std::move(store));
}

/// The entry of an identifier, made of the catalogue's rows when it is asked for first.
template <class Entries, class Make>
auto& Entry(Entries& entries, RowId auto id, Make make) {
    const auto found = entries.find(id);
    return found != entries.end() ? found->second : entries.emplace(id, make()).first->second;
}

template <RowId Id, class Row>
const Row* Find(const std::unordered_map<Id, Row>& rows, Id id) {
    const auto found = rows.find(id);
    return found == rows.end() ? nullptr : &found->second;
}

template <RowId Id>
Id Next(Id& last) {
    return last = Id(Number(last) + 1);
}

/// Those of the rows, null for none, that the question is about.
template <class Row, RowId Id>
std::vector<const Row*> Taken(std::vector<const Row*> rows, const Question<Row, Id>& question) {
    std::erase_if(rows, [&](const Row* row) {
        return row == nullptr || (question.takes != nullptr && !question.takes(*row));
    });
    return rows;
}

template <class Row>
std::vector<Row> Copies(const std::vector<const Row*>& rows) {
    std::vector<Row> copies;
    copies.reserve(rows.size());
    for (const Row* row : rows)
        copies.push_back(*row);
    return copies;
}

template <class Row>
std::vector<const Row*> Pointers(const std::vector<Row>& rows) {
    std::vector<const Row*> pointers;
    pointers.reserve(rows.size());
    for (const Row& row : rows)
        pointers.push_back(&row);
    return pointers;
}

/// As LIKE matches: "%" stands for any text, "_" for one character; capitals are as small letters.
bool IsLike(std::string_view text, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (at < pattern.size() && pattern[at] == '%') {
            star = at++;
            resume = i;
        } else if (at < pattern.size() &&
                   (pattern[at] == '_' ||
                    automation::EqualsIgnoreCase(text.substr(i, 1), pattern.substr(at, 1)))) {
            const bool isAny = pattern[at++] == '_';
            do
                ++i;
            while (isAny && i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80);
        } else if (star != std::string_view::npos) {
            at = star + 1;
            i = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('%', at) == std::string_view::npos;
}

}  // namespace

RelatedCatalog::RelatedCatalog(const Catalog& catalog) : m_catalog(catalog) {
    if (!catalog.Interfaces().empty()) m_lastInterfaceID = catalog.Interfaces().back().InterfaceID;
    if (!catalog.Values().empty()) m_lastValueID = catalog.Values().back().ValueID;
}

void RelatedCatalog::Relate(std::string_view storageName, std::string_view sFKPrefix) {
    for (const auto& [objectID, ways] : CountWays(m_catalog, storageName)) {
        if (ways <= std::numeric_limits<std::int16_t>::max()) continue;
        throw Error(automation::Overflow,
                    "Object '" + FindObject(objectID)->Name + "' (ObjectID " +
                        std::to_string(Number(objectID)) +
                        ") is reached along too many ways: its table names would run out of numbers.");
    }
    m_scriptedParents = RelateRows(*this, storageName, sFKPrefix);
}

void RelatedCatalog::RelateAmongOthers(std::string_view storageName, std::string_view sFKPrefix) {
    const auto isOther = [&](const DataDefRow& row) { return row.Storage != storageName; };
    if (storageName.empty() || std::ranges::none_of(m_catalog.DataDefs(), isOther))
        return Relate(storageName, sFKPrefix);
    const auto own = CountWays(m_catalog, storageName);
    const auto isOwn = [&](const auto& object) { return own.contains(object.first); };
    std::set<std::string_view> storages;
    bool namesAreOwn = false;
    for (const DataDefRow& row : m_catalog.DataDefs()) {
        if (!storages.insert(row.Storage).second) continue;
        try {
            if (isOther(row) && std::ranges::none_of(CountWays(m_catalog, row.Storage), isOwn)) continue;
            namesAreOwn = false;
            Relate(row.Storage, sFKPrefix);
            namesAreOwn = !isOther(row);
        } catch (const Error&) {
            // What is wrong with another definition does not concern this one.
        }
    }
    if (!namesAreOwn) Relate(storageName, sFKPrefix);
}

const ObjectRow* RelatedCatalog::FindObject(ObjectId objectID) const {
    const ObjectRow* changed = Find(m_objects, objectID);
    return changed != nullptr ? changed : m_catalog.FindObject(objectID);
}

const InterfaceRow* RelatedCatalog::FindInterface(InterfaceId interfaceID) const {
    const InterfaceRow* added = Find(m_interfaces, interfaceID);
    return added != nullptr ? added : m_catalog.FindInterface(interfaceID);
}

const ValueRow* RelatedCatalog::FindValue(ValueId valueID) const {
    if (m_deletedValues.contains(valueID)) return nullptr;
    const ValueRow* changed = Find(m_values, valueID);
    return changed != nullptr ? changed : m_catalog.FindValue(valueID);
}

std::vector<InterfaceId> RelatedCatalog::InterfacesOf(ObjectId objectID) const {
    const auto* changed = Find(m_interfacesOfObject, objectID);
    return changed != nullptr ? *changed : m_catalog.InterfacesOf(objectID);
}

std::vector<const ValueRow*> RelatedCatalog::ValuesOfInterface(InterfaceId interfaceID) const {
    std::vector<const ValueRow*> values;
    if (const auto* changed = Find(m_valuesOfInterface, interfaceID)) {
        for (const ValueId valueID : *changed)
            values.push_back(FindValue(valueID));
        return values;
    }
    values = m_catalog.ValuesOfInterface(interfaceID);
    for (const ValueRow*& value : values)
        if (const ValueRow* changed = Find(m_values, value->ValueID)) value = changed;
    return values;
}

std::vector<const PrimaryKeyRow*> RelatedCatalog::PrimaryKeysOf(ObjectId objectID) const {
    const auto* changed = Find(m_primaryKeys, objectID);
    return changed != nullptr ? Pointers(*changed) : m_catalog.PrimaryKeysOf(objectID);
}

std::vector<const ForeignKeyRow*> RelatedCatalog::ForeignKeysOf(ObjectId objectID) const {
    const auto* changed = Find(m_foreignKeys, objectID);
    return changed != nullptr ? Pointers(*changed) : m_catalog.ForeignKeysOf(objectID);
}

std::vector<ValueId>& RelatedCatalog::ValueIDs(InterfaceId interfaceID) {
    return Entry(m_valuesOfInterface, interfaceID, [&] {
        std::vector<ValueId> ids;
        for (const ValueRow* value : m_catalog.ValuesOfInterface(interfaceID))
            ids.push_back(value->ValueID);
        return ids;
    });
}

std::vector<PrimaryKeyRow>& RelatedCatalog::PrimaryKeys(ObjectId objectID) {
    return Entry(m_primaryKeys, objectID, [&] { return Copies(m_catalog.PrimaryKeysOf(objectID)); });
}

std::vector<ForeignKeyRow>& RelatedCatalog::ForeignKeyList(ObjectId objectID) {
    return Entry(m_foreignKeys, objectID, [&] { return Copies(m_catalog.ForeignKeysOf(objectID)); });
}

Rows RelatedCatalog::Ask(const ObjectQuestion& question, ObjectId objectID) {
    return RowsOf(
        ObjectColumns, Taken({FindObject(objectID)}, question),
        [this](ObjectRow&& row, const ObjectRow*) { return &(m_objects[row.ObjectID] = std::move(row)); });
}

Rows RelatedCatalog::Ask(const ValuesQuestion& question, InterfaceId interfaceID) {
    return ValueRows(Taken(ValuesOfInterface(interfaceID), question));
}

Rows RelatedCatalog::Ask(const ValueQuestion& question, ValueId valueID) {
    return ValueRows(Taken({FindValue(valueID)}, question));
}

Rows RelatedCatalog::RootObjects(std::string_view storageName) {
    std::vector<const DataDefRow*> rows;
    for (const DataDefRow& row : m_catalog.DataDefs())
        if (storageName.empty() || row.Storage == storageName) rows.push_back(&row);
    return RowsOf(DataDefColumns, std::move(rows));
}

Rows RelatedCatalog::Interfaces(ObjectId objectID) {
    std::vector<ObjectInterfaceRow> rows;
    for (const InterfaceId interfaceID : InterfacesOf(objectID))
        rows.push_back({objectID, interfaceID});
    return RowsOf(ObjectInterfaceColumns, std::move(rows));
}

Rows RelatedCatalog::InterfacesLike(ObjectId objectID, std::string_view name) {
    std::vector<const InterfaceRow*> rows;
    for (const InterfaceId interfaceID : InterfacesOf(objectID)) {
        const InterfaceRow* named = FindInterface(interfaceID);
        if (named != nullptr && IsLike(named->Name, name)) rows.push_back(named);
    }
    return RowsOf(InterfaceColumns, std::move(rows));
}

Rows RelatedCatalog::NewInterfaces() {
    return RowsOf(InterfaceColumns, std::vector<const InterfaceRow*>(),
                  [this](InterfaceRow&& row, const InterfaceRow*) {
                      row.InterfaceID = Next(m_lastInterfaceID);
                      return &(m_interfaces[row.InterfaceID] = std::move(row));
                  });
}

Rows RelatedCatalog::NewObjectInterfaces() {
    return RowsOf(ObjectInterfaceColumns, std::vector<const ObjectInterfaceRow*>(),
                  [this](const ObjectInterfaceRow& row, const ObjectInterfaceRow* before) {
                      Entry(m_interfacesOfObject, row.ObjectID, [&] {
                          return m_catalog.InterfacesOf(row.ObjectID);
                      }).push_back(row.InterfaceID);
                      m_objectsOfInterface[row.InterfaceID].push_back(row.ObjectID);
                      return before;
                  });
}

Rows RelatedCatalog::ValueRows(std::vector<const ValueRow*> values) {
    return RowsOf(ValueColumns, std::move(values), [this](ValueRow&& row, const ValueRow* before) {
        return StoreValue(std::move(row), before);
    });
}

const ValueRow* RelatedCatalog::StoreValue(ValueRow&& row, const ValueRow* before) {
    if (before == nullptr) row.ValueID = Next(m_lastValueID);
    row.IsPlain = row.ChildObjectID == ObjectId();
    if (before == nullptr || before->InterfaceID != row.InterfaceID) {
        if (before != nullptr) std::erase(ValueIDs(before->InterfaceID), row.ValueID);
        std::vector<ValueId>& values = ValueIDs(row.InterfaceID);
        values.insert(std::ranges::upper_bound(values, row.ValueID), row.ValueID);
    }
    const ValueId valueID = row.ValueID;
    return &m_values.insert_or_assign(valueID, std::move(row)).first->second;
}

Rows RelatedCatalog::Ask(const KeyQuestion&, ObjectId objectID) {
    return RowsOf(PrimaryKeyColumns, Copies(PrimaryKeysOf(objectID)),
                  [this](const PrimaryKeyRow& row, const PrimaryKeyRow* before) {
                      PrimaryKeys(row.ObjectID).push_back(row);
                      return before;
                  });
}

Rows RelatedCatalog::PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) {
    std::vector<PrimaryKeyRow> rows = Copies(PrimaryKeysOf(objectID));
    std::erase_if(rows, [&](const PrimaryKeyRow& row) { return row.ValueID != valueID; });
    return RowsOf(PrimaryKeyColumns, std::move(rows));
}

Rows RelatedCatalog::NamedValue(std::string_view name, InterfaceId interfaceID) {
    std::vector<const ValueRow*> values = ValuesOfInterface(interfaceID);
    std::erase_if(values, [&](const ValueRow* value) { return value->Name != name; });
    return ValueRows(std::move(values));
}

Rows RelatedCatalog::InterfaceName(InterfaceId interfaceID) {
    const InterfaceRow* named = FindInterface(interfaceID);
    return RowsOf(InterfaceColumns,
                  named == nullptr ? std::vector<const InterfaceRow*>() : std::vector{named});
}

Rows RelatedCatalog::KeyNumbers(InterfaceId interfaceID) {
    const auto* added = Find(m_objectsOfInterface, interfaceID);
    std::vector<const ValueRow*> values;
    for (const ObjectId objectID : added != nullptr ? *added : m_catalog.ObjectsWith(interfaceID))
        for (const ValueRow* value : ValuesOf(*this, objectID))
            if (IsKeyVid(value->VID)) values.push_back(value);
    std::ranges::stable_sort(values, {}, &ValueRow::VID);
    return ValueRows(std::move(values));
}

Rows RelatedCatalog::ForeignKeys(ObjectId objectID) {
    std::vector<ForeignKeyField> rows;
    for (const ForeignKeyRow* key : ForeignKeysOf(objectID))
        if (const ValueRow* value = FindValue(key->ValueID))
            rows.push_back({value->FieldName, key->FKObjectID, key->FKValueID});
    return RowsOf(ForeignKeyFieldColumns, std::move(rows));
}

Rows RelatedCatalog::ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                                    std::optional<ObjectId> parentID) {
    std::vector<ForeignKeyRow> rows;
    for (const ForeignKeyRow* key : ForeignKeysOf(objectID))
        if (key->ValueID == valueID.value_or(key->ValueID) &&
            key->FKObjectID == parentID.value_or(key->FKObjectID))
            rows.push_back(*key);
    return RowsOf(
        ForeignKeyColumns, std::move(rows), [this](ForeignKeyRow&& row, const ForeignKeyRow* before) {
            std::vector<ForeignKeyRow>& keys = ForeignKeyList(row.ObjectID);
            const auto place = std::ranges::find_if(keys, [&](const ForeignKeyRow& key) {
                return before != nullptr && key.ValueID == row.ValueID && key.FKObjectID == row.FKObjectID;
            });
            if (place != keys.end()) {
                *place = std::move(row);
            } else {
                keys.push_back(std::move(row));
            }
            return before;
        });
}

/// Only the keys of objects that were related, and of values that these share with others, are asked about.
Rows RelatedCatalog::NumberedForeignKeys() {
    std::vector<NumberedForeignKey> rows;
    std::unordered_set<ValueId> values;
    const auto add = [&](const ForeignKeyRow& key) {
        const ValueRow* value = FindValue(key.ValueID);
        const InterfaceRow* named = value == nullptr ? nullptr : FindInterface(value->InterfaceID);
        if (named != nullptr && IsKeyVid(value->VID))
            rows.push_back({key.ObjectID, key.ValueID, key.FKObjectID, named->Name});
    };
    for (const auto& [objectID, object] : m_objects) {
        for (const ForeignKeyRow* key : ForeignKeysOf(objectID)) {
            values.insert(key->ValueID);
            add(*key);
        }
    }
    for (const ForeignKeyRow& key : m_catalog.ForeignKeys())
        if (values.contains(key.ValueID) && !m_objects.contains(key.ObjectID)) add(key);
    return RowsOf(NumberedColumns, std::move(rows));
}

Rows RelatedCatalog::HeldObjects(ObjectId objectID) {
    return ValueRows(Taken(ValuesOf(*this, objectID), questions::Children));
}

void RelatedCatalog::DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) {
    std::erase_if(ForeignKeyList(objectID), [&](const ForeignKeyRow& key) {
        return key.ValueID == valueID && key.FKObjectID == parentID;
    });
}

void RelatedCatalog::DeleteValue(ValueId valueID) {
    if (const ValueRow* value = FindValue(valueID)) std::erase(ValueIDs(value->InterfaceID), valueID);
    m_deletedValues.insert(valueID);
}

}  // namespace korvex::repository
