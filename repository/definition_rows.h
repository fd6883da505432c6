#pragma once

#include "platform/dao.h"
#include "repository/questions.h"
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

    virtual Rows Ask(const ObjectQuestion& question, ObjectId objectID) = 0;
    virtual Rows Ask(const ValuesQuestion& question, InterfaceId interfaceID) = 0;
    virtual Rows Ask(const ValueQuestion& question, ValueId valueID) = 0;
    virtual Rows Ask(const KeyQuestion& question, ObjectId objectID) = 0;

    /// RootObjectID of the data definitions of that storage name (of all when it is empty).
    virtual Rows RootObjects(std::string_view storageName) = 0;
    /// InterfaceID of the interfaces of an object.
    virtual Rows Interfaces(ObjectId objectID) = 0;
    /// FieldName, FKObjectID and FKValueID of the foreign keys.
    virtual Rows ForeignKeys(ObjectId objectID) = 0;
    /// The parent that each foreign key stands for in the scripts.
    virtual const KeyParents& ScriptedParents() const noexcept = 0;

    // ---- Asked and written by the relationship builder.

    /// InterfaceID of the interfaces of an object that have a name like this one.
    virtual Rows InterfacesLike(ObjectId objectID, std::string_view name) = 0;
    virtual Rows NewInterfaces() = 0;
    virtual Rows NewObjectInterfaces() = 0;
    virtual void DeletePrimaryKey(ObjectId objectID) = 0;
    /// The values of an interface that have this name; they can be edited or added to.
    virtual Rows NamedValue(std::string_view name, InterfaceId interfaceID) = 0;
    virtual Rows InterfaceName(InterfaceId interfaceID) = 0;
    /// VID of the key values of all objects that have the interface, in their order.
    virtual Rows KeyNumbers(InterfaceId interfaceID) = 0;
    /// The foreign keys of an object: those that a value holds, those to a parent, or both. They can be
    /// edited or added to.
    virtual Rows ForeignKeyRows(ObjectId objectID, std::optional<ValueId> valueID,
                                std::optional<ObjectId> parentID) = 0;

    /// ObjectID, ValueID, FKObjectID and the Name of the interface of every foreign key with a key's number.
    virtual Rows NumberedForeignKeys() = 0;
    /// ChildObjectID of the objects that the values of an object hold.
    virtual Rows HeldObjects(ObjectId objectID) = 0;
    virtual void DeleteForeignKey(ObjectId objectID, ValueId valueID, ObjectId parentID) = 0;
    virtual Rows PrimaryKeysOfValue(ObjectId objectID, ValueId valueID) = 0;
    virtual void DeleteValue(ValueId valueID) = 0;
};

}  // namespace korvex::repository
