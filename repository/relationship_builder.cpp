#include "repository/relationship_builder.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/key_writer.h"
#include "repository/lookups.h"
#include "repository/name_list.h"
#include "repository/names.h"
#include "repository/transaction.h"

#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

namespace korvex::repository {

using automation::Error;

namespace {

/// One object on the way from the root to the object in hand.
struct Step {
    KeyedObject object;
    std::int32_t elementObject = 0;  ///< object of the collection's elements, until it is walked
    bool hasInterfaces = false;      ///< `interfaces` were read
    std::vector<std::int32_t> interfaces;
    std::size_t nextInterface = 0;
    std::vector<std::int32_t> children;  ///< of the interface before `nextInterface`
    std::size_t nextChild = 0;
};

/// One call of CreateRelationship: the names handed out and the way to the object in hand.
class RelationshipBuilder {
  public:
    RelationshipBuilder(Repository& repository, std::string_view sFKPrefix)
        : m_repository(repository), m_keys(repository, sFKPrefix) {}

    void WalkRelationships(std::int32_t rootObjectID);

  private:
    void Enter(std::int32_t objectID);
    void Leave();
    std::optional<std::int32_t> NextBeneath(Step& step);

    std::optional<Step> PrepareObject(std::int32_t objectID, const KeyedObject* parent);
    std::optional<Step> NameTable(std::int32_t objectID);
    std::int32_t EnsureKeyInterface(const KeyedObject& object);
    void MarkValueColumns(const KeyedObject& object, std::string_view foreignKeyColumn);
    void MarkInterface(std::int32_t interfaceID, const KeyedObject& object,
                       std::string_view foreignKeyColumn);
    static void RefuseKeyColumn(dao::Recordset& values, const std::string& column, const KeyedObject& object);

    Repository& m_repository;
    KeyWriter m_keys;
    NameList m_names;
    std::vector<Step> m_path;
    std::unordered_set<std::int32_t> m_ancestors;  ///< the objects of `m_path`
};

/// Depth first; every object that is reached along two ways is walked twice. The way is kept here and not on
/// the call stack, so a definition may be nested as deeply as memory allows.
void RelationshipBuilder::WalkRelationships(std::int32_t rootObjectID) {
    Enter(rootObjectID);
    while (!m_path.empty()) {
        if (const auto next = NextBeneath(m_path.back())) {
            Enter(*next);
        } else {
            Leave();
        }
    }
}

void RelationshipBuilder::Enter(std::int32_t objectID) {
    if (m_ancestors.contains(objectID)) {
        throw Error(automation::OutOfStackSpace, "The object with ObjectID " + std::to_string(objectID) +
                                                     " is its own ancestor: the definition never ends.");
    }
    if (auto step = PrepareObject(objectID, m_path.empty() ? nullptr : &m_path.back().object)) {
        m_path.push_back(std::move(*step));
        m_ancestors.insert(objectID);
    }
}

void RelationshipBuilder::Leave() {
    m_ancestors.erase(m_path.back().object.objectID);
    m_path.pop_back();
}

/// The next object to walk beneath a prepared one: its element object, then interface by interface the
/// children that the interface's values hold.
std::optional<std::int32_t> RelationshipBuilder::NextBeneath(Step& step) {
    if (step.elementObject > 0) return std::exchange(step.elementObject, 0);
    if (!step.hasInterfaces) {
        step.interfaces = GetObjectInterfaces(m_repository, step.object.objectID);
        step.hasInterfaces = true;
    }
    while (step.nextChild == step.children.size()) {
        if (step.nextInterface == step.interfaces.size()) return std::nullopt;
        step.children = GetChildObjects(m_repository, step.interfaces[step.nextInterface++]);
        step.nextChild = 0;
    }
    return step.children[step.nextChild++];
}

/// Everything that one object gets; nothing for an object without a row.
std::optional<Step> RelationshipBuilder::PrepareObject(std::int32_t objectID, const KeyedObject* parent) {
    std::optional<Step> step = NameTable(objectID);
    if (!step) return std::nullopt;
    KeyedObject& object = step->object;
    const bool isChild = parent && parent->objectID > 0;

    object.keyColumn = m_keys.KeyColumn(object.name);
    object.keyInterfaceID = EnsureKeyInterface(object);
    MarkValueColumns(object, isChild ? m_keys.ForeignKeyColumn(*parent) : std::string());
    if (object.keyInterfaceID < 1) return step;
    m_keys.WriteOwnKey(object);
    if (isChild && parent->keyValueID > 0) m_keys.WriteForeignKey(object, *parent);
    return step;
}

/// Reads an object and gives it its table.
std::optional<Step> RelationshipBuilder::NameTable(std::int32_t objectID) {
    const auto rows =
        m_repository.OpenDynaset("SELECT * FROM tObjects WHERE ObjectID = " + std::to_string(objectID));
    if (!rows || rows->Eof()) return std::nullopt;

    Step step;
    step.object.objectID = objectID;
    step.object.name = automation::ToString(Repository::FieldValue(rows->Fields("Name")));
    step.object.guid = automation::ToString(Repository::FieldValue(rows->Fields("Guid")));
    step.elementObject = automation::ToLong(Repository::FieldValue(rows->Fields("CollectionObjectID")));
    if (step.object.name.find('\'') != std::string::npos) {
        throw Error(automation::InvalidProcedureCall,
                    "The name of object " + Describe(step.object) + " holds a single quote; names must not.");
    }

    rows->Edit();
    rows->Fields("tableName").Value("t" + LimitNameLength(m_names.MakeUniqueName(step.object.name), 1));
    rows->Fields("IsIncluded").Value(true);
    rows->Update();
    rows->Close();
    return step;
}

/// The interface that holds the object's key values, made when it is missing; 0 when a query failed.
std::int32_t RelationshipBuilder::EnsureKeyInterface(const KeyedObject& object) {
    const std::string name = object.name + "DBKeys";
    const std::int32_t found = FindObjectInterface(m_repository, object.objectID, name);
    if (found >= 1) return found;

    const auto interfaces = m_repository.OpenDynaset("select * from tInterfaces");
    if (!interfaces) return 0;
    interfaces->AddNew();
    interfaces->Fields("Name").Value(name);
    interfaces->Update();
    interfaces->MoveLast();
    const std::int32_t interfaceID =
        automation::ToLong(Repository::FieldValue(interfaces->Fields("InterfaceID")));
    interfaces->Close();

    const auto implemented = m_repository.OpenDynaset("select * from tObjectInterfaces");
    if (!implemented) return 0;
    implemented->AddNew();
    implemented->Fields("InterfaceID").Value(interfaceID);
    implemented->Fields("objectID").Value(object.objectID);
    implemented->Update();
    implemented->Close();
    return interfaceID;
}

void RelationshipBuilder::MarkValueColumns(const KeyedObject& object, std::string_view foreignKeyColumn) {
    for (const std::int32_t interfaceID : GetObjectInterfaces(m_repository, object.objectID)) {
        MarkInterface(interfaceID, object, foreignKeyColumn);
    }
}

/// Makes a column of every plain value of an interface. A modelled value must not take the column of a key.
void RelationshipBuilder::MarkInterface(std::int32_t interfaceID, const KeyedObject& object,
                                        std::string_view foreignKeyColumn) {
    const auto values = m_repository.OpenDynaset(
        "select * from tValues where "
        "InterfaceID=" +
        std::to_string(interfaceID) +
        " and ChildObjectID = 0 and DataType <> 13 "
        " and DataType <> "
        "1");
    if (!values) return;
    dao::Field& name = values->Fields("Name");
    dao::Field& fieldName = values->Fields("FieldName");
    dao::Field& isIncluded = values->Fields("IsIncluded");
    for (; !values->Eof(); values->MoveNext()) {
        const std::string column = LimitNameLength(automation::ToString(Repository::FieldValue(name)));
        if (interfaceID != object.keyInterfaceID &&
            (automation::EqualsIgnoreCase(column, object.keyColumn) ||
             automation::EqualsIgnoreCase(column, foreignKeyColumn))) {
            RefuseKeyColumn(*values, column, object);
        }
        values->Edit();
        fieldName.Value(column);
        isIncluded.Value(true);
        values->Update();
    }
    values->Close();
}

/// Raises InvalidProcedureCall (5) for a value with the column of a key, unless it is a key itself: one that
/// moves on to the interface of the object's new name.
void RelationshipBuilder::RefuseKeyColumn(dao::Recordset& values, const std::string& column,
                                          const KeyedObject& object) {
    if (IsKeyVid(automation::ToLong(Repository::FieldValue(values.Fields("VID"))))) return;
    throw Error(automation::InvalidProcedureCall, "The value '" + column + "' of object " + Describe(object) +
                                                      " has the name of a key column that the object gets. "
                                                      "Rename the value.");
}

}  // namespace

void CreateRelationship(Repository& repository, std::string_view storageName, std::string_view sFKPrefix) {
    RelationshipBuilder builder(repository, sFKPrefix);
    const std::vector<std::int32_t> rootObjectIDs = GetRootObjects(repository, storageName);
    Transaction transaction(repository);
    for (const std::int32_t rootObjectID : rootObjectIDs) {
        builder.WalkRelationships(rootObjectID);
    }
    transaction.Commit();
}

}  // namespace korvex::repository
