#pragma once

#include "platform/dao.h"
#include "repository/repository.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::repository {

/// What is asked of the seven tables of a repository, and written to them, when a definition is walked,
/// brought up to date and described: in a database (StoredRows) or in memory (RelatedCatalog). One set of
/// rules works on both.
///
/// Each question gives a recordset at its first row, or nullptr for a query that failed and was reported.
/// Rows come in the repository's order where nothing else is said.
class DefinitionRows {
  public:
    using Rows = std::unique_ptr<dao::Recordset>;
    virtual ~DefinitionRows() = default;

    // ---- Asked by a walk.

    /// RootObjectID of the data definitions of that storage name (of all when it is empty).
    virtual Rows RootObjects(std::string_view storageName) = 0;
    /// InterfaceID of the interfaces of an object.
    virtual Rows Interfaces(ObjectId objectID) = 0;
    /// ChildObjectID of the values of an interface that hold an object.
    virtual Rows Children(InterfaceId interfaceID) = 0;

    // ---- Asked for the description of a table.

    /// CollectionObjectID and TableName of an object that takes part in the scripts.
    virtual Rows ScriptedObject(ObjectId objectID) = 0;
    /// ValueID, MaxLength, DataType, FieldName, IsAutoNumber and DefaultVal of the stored values.
    virtual Rows StoredValues(InterfaceId interfaceID) = 0;
    /// ValueID and Seq of the primary key.
    virtual Rows PrimaryKey(ObjectId objectID) = 0;
    /// FieldName, FKObjectID and FKValueID of the foreign keys.
    virtual Rows ForeignKeys(ObjectId objectID) = 0;
    /// A row when the object is scripted and holds no collection, or when it holds one.
    virtual Rows SingleObject(ObjectId objectID) = 0;
    virtual Rows CollectionObject(ObjectId objectID) = 0;
    virtual Rows TableName(ObjectId objectID) = 0;
    virtual Rows FieldName(ValueId valueID) = 0;
    /// The parent that each foreign key stands for in the scripts.
    virtual const KeyParents& ScriptedParents() const noexcept = 0;

    // ---- Asked and written by the relationship builder. Rows of these can be edited or added to.

    virtual Rows Object(ObjectId objectID) = 0;
    /// InterfaceID of the interfaces of an object that have a name like this one.
    virtual Rows InterfacesLike(ObjectId objectID, std::string_view name) = 0;
    virtual Rows NewInterfaces() = 0;
    virtual Rows NewObjectInterfaces() = 0;
    /// The values of an interface that become columns.
    virtual Rows PlainValues(InterfaceId interfaceID) = 0;
    virtual Rows PrimaryKeyRows(ObjectId objectID) = 0;
    virtual void DeletePrimaryKey(ObjectId objectID) = 0;
    virtual Rows NamedValue(std::string_view name, InterfaceId interfaceID) = 0;
    virtual Rows Value(ValueId valueID) = 0;
    virtual Rows InterfaceName(InterfaceId interfaceID) = 0;
    /// VID of the key values of all objects that have the interface, in their order.
    virtual Rows KeyNumbers(InterfaceId interfaceID) = 0;
    virtual Rows Numbers(InterfaceId interfaceID) = 0;
    /// The foreign keys of an object: those that a value holds, those to a parent, or both.
    virtual Rows ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                                std::optional<ObjectId> parentID) = 0;

    /// ObjectID, ValueID, FKObjectID and the Name of the interface of every foreign key with a key's number.
    virtual Rows NumberedForeignKeys() = 0;
    virtual Rows ElementObject(ObjectId objectID) = 0;
    /// ChildObjectID of the objects that the values of an object hold.
    virtual Rows HeldObjects(ObjectId objectID) = 0;
    virtual void DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) = 0;
    virtual Rows PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) = 0;
    virtual void DeleteValue(ValueId valueID) = 0;
};

}  // namespace korvex::repository
