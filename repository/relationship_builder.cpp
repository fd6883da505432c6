#include "repository/relationship_builder.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/key_writer.h"
#include "repository/lookups.h"
#include "repository/name_list.h"
#include "repository/names.h"
#include "repository/object_walk.h"
#include "repository/read_value.h"
#include "repository/stored_rows.h"
#include "repository/transaction.h"

#include <optional>
#include <utility>
#include <vector>

namespace korvex::repository {

using automation::Error;

namespace {

/// One call of CreateRelationship: the names handed out so far, and the objects above the one in hand.
class RelationshipBuilder : public ObjectVisitor {
  public:
    RelationshipBuilder(DefinitionRows& rows, KeyNames names)
        : m_rows(rows), m_keys(rows, std::move(names)) {}

    void WalkRelationships(ObjectId lObjectID) { WalkObjects(m_rows, lObjectID, *this); }
    const KeyReferences& References() const noexcept { return m_keys.References(); }

  private:
    /// An object as its row in tObjects has it.
    struct NamedObject {
        KeyedObject object;
        ObjectId collectionObjectID = {};
    };

    std::optional<ObjectId> Enter(ObjectId lObjectID) override;
    void Leave() override { m_ancestors.pop_back(); }

    std::optional<NamedObject> NameTable(ObjectId lObjectID);
    void PrepareKeys(KeyedObject& object);
    InterfaceId EnsureKeyInterface(const KeyedObject& object);
    void MarkValueColumns(const KeyedObject& object);
    void MarkInterface(InterfaceId lInterfaceID, const KeyedObject& object);

    DefinitionRows& m_rows;
    KeyWriter m_keys;
    NameList m_names;
    std::vector<KeyedObject> m_ancestors;
};

/// Prepares one object for its parent, the last of the ancestors.
std::optional<ObjectId> RelationshipBuilder::Enter(ObjectId lObjectID) {
    std::optional<NamedObject> row = NameTable(lObjectID);
    if (!row) return std::nullopt;
    PrepareKeys(row->object);
    m_ancestors.push_back(std::move(row->object));
    return row->collectionObjectID;
}

/// Reads an object and gives it its table; nothing for an object without a row.
std::optional<RelationshipBuilder::NamedObject> RelationshipBuilder::NameTable(ObjectId lObjectID) {
    const auto rows = m_rows.Ask(questions::Object, lObjectID);
    if (!rows || rows->Eof()) return std::nullopt;

    const auto what = [&rows] { return DescribeRow("tObjects", *rows); };
    NamedObject row;
    KeyedObject& object = row.object;
    object.objectID = lObjectID;
    object.name = ReadValue(rows->Fields("Name"), automation::ToString, what);
    object.guid = ReadValue(rows->Fields("Guid"), automation::ToString, what);
    row.collectionObjectID = ReadValue(rows->Fields("CollectionObjectID"), ToId<ObjectId>, what);
    if (object.name.find('\'') != std::string::npos) {
        throw Error(automation::InvalidProcedureCall,
                    "The name of object " + Describe(object) + " holds a single quote; names must not.");
    }

    rows->Edit();
    rows->Fields("tableName").Value(TableName(m_names.MakeUniqueName(object.name)));
    rows->Fields("IsIncluded").Value(true);
    rows->Update();
    rows->Close();
    return row;
}

/// Gives an object its columns and keys.
void RelationshipBuilder::PrepareKeys(KeyedObject& object) {
    const KeyedObject* parent = nullptr;
    if (!m_ancestors.empty() && IsRow(m_ancestors.back().objectID)) parent = &m_ancestors.back();

    object.keyColumn = m_keys.KeyColumn(object.name);
    object.keyInterfaceID = EnsureKeyInterface(object);
    MarkValueColumns(object);
    if (!IsRow(object.keyInterfaceID)) return;
    m_keys.WriteOwnKey(object);
    if (parent && IsRow(parent->keyValueID)) m_keys.WriteForeignKey(object, *parent);
}

/// The interface that holds the object's key values, made when it is missing; 0 when a query failed.
InterfaceId RelationshipBuilder::EnsureKeyInterface(const KeyedObject& object) {
    const std::string name = KeyInterfaceName(object.name);
    const InterfaceId found = FindObjectInterface(m_rows, object.objectID, name);
    if (IsRow(found)) return found;

    const auto interfaces = m_rows.NewInterfaces();
    if (!interfaces) return {};
    interfaces->AddNew();
    interfaces->Fields("Name").Value(name);
    interfaces->Update();
    const InterfaceId interfaceID = ReadNewNumber<InterfaceId>(*interfaces, "InterfaceID", name);
    interfaces->Close();

    const auto implemented = m_rows.NewObjectInterfaces();
    if (!implemented) return {};
    implemented->AddNew();
    implemented->Fields("InterfaceID").Value(Number(interfaceID));
    implemented->Fields("objectID").Value(Number(object.objectID));
    implemented->Update();
    implemented->Close();
    return interfaceID;
}

void RelationshipBuilder::MarkValueColumns(const KeyedObject& object) {
    for (const InterfaceId interfaceID : GetObjectInterfaces(m_rows, object.objectID)) {
        MarkInterface(interfaceID, object);
    }
}

/// Makes a column of every plain value of an interface.
void RelationshipBuilder::MarkInterface(InterfaceId interfaceID, const KeyedObject& object) {
    const auto values = m_rows.Ask(questions::PlainValues, interfaceID);
    if (!values) return;
    dao::Field& name = values->Fields("Name");
    dao::Field& fieldName = values->Fields("FieldName");
    dao::Field& isIncluded = values->Fields("IsIncluded");
    for (; !values->Eof(); values->MoveNext()) {
        const std::string column = ValueColumnName(ReadValue(name, automation::ToString, object.name));
        // An earlier call has mostly done it.
        if (!column.empty() && ReadValue(fieldName, automation::ToString, object.name) == column &&
            ReadValue(isIncluded, automation::ToBoolean, object.name))
            continue;
        values->Edit();
        fieldName.Value(column);
        isIncluded.Value(true);
        values->Update();
    }
    values->Close();
}

KeyParents RelateObjects(DefinitionRows& rows, const std::vector<ObjectId>& roots, KeyNames names) {
    RelationshipBuilder builder(rows, std::move(names));
    for (const ObjectId root : roots)
        builder.WalkRelationships(root);
    DeleteStaleKeys(rows, builder.References());
    return builder.References().Parents();
}

}  // namespace

KeyParents RelateRows(DefinitionRows& rows, std::string_view storageName, std::string_view sFKPrefix) {
    KeyNames names(sFKPrefix);
    return RelateObjects(rows, GetRootObjects(rows, storageName), std::move(names));
}

void CreateRelationship(Repository& repository, std::string_view storageName, std::string_view sFKPrefix) {
    KeyNames names(sFKPrefix);
    StoredRows rows(repository);
    const std::vector<ObjectId> roots = GetRootObjects(rows, storageName);
    if (roots.empty()) return;
    Transaction transaction(repository);
    KeyParents parents = RelateObjects(rows, roots, std::move(names));
    transaction.Commit();
    repository.ScriptedParents(std::move(parents));
}

}  // namespace korvex::repository
