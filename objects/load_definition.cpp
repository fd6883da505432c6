#include "objects/load_definition.h"

#include "automation/error.h"
#include "automation/text.h"
#include "repository/related_catalog.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace korvex::objects {

using automation::Error;
using automation::Quoted;
using repository::Catalog;
using repository::ObjectId;
using repository::ObjectRow;
using repository::RelatedCatalog;
using repository::ValueId;
using repository::ValueRow;

namespace {

std::string Describe(const ObjectRow& row) {
    return Quoted(row.Name) + " (ObjectID " + std::to_string(Number(row.ObjectID)) + ")";
}

const ObjectRow& ObjectOf(const RelatedCatalog& catalog, ObjectId objectID) {
    if (const auto* row = catalog.FindObject(objectID)) return *row;
    throw Error(automation::InvalidProcedureCall,
                "The repository refers to the object with ObjectID " + std::to_string(Number(objectID)) +
                    ", which does not exist in it; korvex repository check names all such places.");
}

std::string ColumnOf(const ValueRow& row) {
    return std::string(automation::Trim(row.FieldName.value_or(std::string())));
}

ObjectId RootOf(const Catalog& catalog, std::string_view storageName) {
    std::vector<ObjectId> roots;
    std::set<std::string> names;
    for (const auto& row : catalog.DataDefs()) {
        names.insert(Quoted(row.Storage));
        if (row.Storage == storageName) roots.push_back(row.RootObjectID);
    }
    if (roots.size() == 1) return roots.front();
    std::string text = roots.empty() ? "No data definition has the storage name "
                                     : "Several data definitions have the storage name ";
    text += Quoted(storageName) + ".";
    if (roots.empty() && !names.empty()) {
        text += " There are ";
        for (const auto& name : names)
            text += (&name == &*names.begin() ? "" : ", ") + name;
        text += ".";
    }
    throw Error(automation::InvalidProcedureCall, text);
}

/// Builds one definition per object and parent, and the objects beneath it one after the other.
class Builder {
  public:
    Builder(const RelatedCatalog& catalog, std::string_view sFKPrefix)
        : m_catalog(catalog), m_sFKPrefix(sFKPrefix) {}

    std::shared_ptr<Definition> Build(ObjectId root) {
        auto definition = DefinitionOf(root, NoParent);
        for (std::size_t i = 0; i < m_places.size(); ++i)
            Fill(Place(m_places[i]));
        return definition;
    }

  private:
    /// An object and the one above it.
    using Place = std::pair<ObjectId, ObjectId>;
    static constexpr ObjectId NoParent = repository::NoObject;

    std::shared_ptr<Definition> DefinitionOf(ObjectId object, ObjectId parent) {
        auto& definition = m_definitions[{object, parent}];
        if (definition == nullptr) {
            const auto& row = ObjectOf(m_catalog, object);
            definition = std::make_shared<Definition>(row.Name, *row.TableName);
            m_places.emplace_back(object, parent);
        }
        return definition;
    }

    void Fill(const Place& place) {
        const auto [object, parent] = place;
        Definition& definition = *m_definitions.at(place);
        const ObjectRow& row = ObjectOf(m_catalog, object);
        const auto otherForeignKeys = ForeignKeysToOthers(object, parent);
        for (const auto* value : ValuesOf(m_catalog, object)) {
            if (IsRow(value->ChildObjectID)) {
                definition.AddChild(value->Name, DefinitionOf(value->ChildObjectID, object));
                continue;
            }
            const bool hasColumn =
                value->IsPlain && value->IsIncluded && value->DataType != repository::TypeNoColumn;
            const bool isLinkElsewhere = otherForeignKeys.contains(value->ValueID);
            const bool isRoot = parent == NoParent;
            definition.AddValue({value->Name, ColumnOf(*value), value->DataType,
                                 hasColumn && (isRoot || !isLinkElsewhere), value->IsAutoNumber,
                                 isRoot && isLinkElsewhere});
        }
        for (const auto* key : m_catalog.PrimaryKeysOf(object))
            if (const auto* value = m_catalog.FindValue(key->ValueID))
                definition.AddPrimaryKey(ColumnOf(*value));
        if (parent != NoParent) AddForeignKey(definition, row, ObjectOf(m_catalog, parent));
        if (IsRow(row.CollectionObjectID))
            definition.ElementDefinition(DefinitionOf(row.CollectionObjectID, object));
    }

    /// Values that hold references to objects other than this parent.
    std::set<ValueId> ForeignKeysToOthers(ObjectId object, ObjectId parent) const {
        std::set<ValueId> values;
        for (const auto* key : m_catalog.ForeignKeysOf(object))
            values.insert(key->ValueID);
        for (const auto* key : m_catalog.ForeignKeysOf(object))
            if (key->FKObjectID == parent) values.erase(key->ValueID);
        return values;
    }

    /// Records beneath a parent are found through the column that the prefix and the parent's key name.
    void AddForeignKey(Definition& definition, const ObjectRow& row, const ObjectRow& parent) const {
        const std::string column = m_sFKPrefix + KeyColumnOf(parent);
        for (const auto* key : m_catalog.ForeignKeysOf(row.ObjectID)) {
            const auto* value = m_catalog.FindValue(key->ValueID);
            if (key->FKObjectID != parent.ObjectID || value == nullptr || ColumnOf(*value) != column)
                continue;
            return definition.AddForeignKey(column);
        }
        throw Error(automation::InvalidProcedureCall,
                    "The object " + Describe(row) + " has no foreign key " + Quoted(column) +
                        " to its parent " + Describe(parent) +
                        ": neither the prefix nor the name of an object may begin with a blank.");
    }

    /// The own key is the only primary key of an object that has been related.
    std::string KeyColumnOf(const ObjectRow& row) const {
        return ColumnOf(*m_catalog.FindValue(m_catalog.PrimaryKeysOf(row.ObjectID).front()->ValueID));
    }

    const RelatedCatalog& m_catalog;
    std::string m_sFKPrefix;
    std::map<Place, std::shared_ptr<Definition>> m_definitions;
    std::vector<Place> m_places;  ///< in the order in which they were met
};

}  // namespace

std::shared_ptr<Definition> LoadDefinition(const Catalog& catalog, std::string_view storageName,
                                           std::string_view sFKPrefix) {
    const ObjectId root = RootOf(catalog, storageName);
    RelatedCatalog related(catalog);
    related.RelateAmongOthers(storageName, sFKPrefix);
    return Builder(related, sFKPrefix).Build(root);
}

}  // namespace korvex::objects
