#pragma once

#include "platform/dao.h"
#include "repository/ids.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// Everything that a definition repository holds, read into memory: for tools that look at a definition as a
/// whole. Fields have the names of their columns; Null reads as 0, False or "", where nothing else is said.
namespace korvex::repository {

/// A definition (tDataDefs).
struct DataDefRow {
    std::string Storage;         ///< storage name; several definitions may have one
    ObjectId RootObjectID = {};  ///< its topmost object
};

/// An object, and the table that stores it (tObjects).
struct ObjectRow {
    ObjectId ObjectID = {};                ///< identifier
    std::string Name;                      ///< what people call it
    ObjectId CollectionObjectID = {};      ///< object of this collection's elements; 0 for no collection
    std::optional<std::string> TableName;  ///< nothing for Null: no table
    bool IsIncluded = false;               ///< takes part in scripts; its objects are stored
    std::string Guid;                      ///< identifier of its class, as text
    bool HasKind = true;                   ///< CollectionObjectID is not Null

    bool operator==(const ObjectRow&) const = default;
};

/// A set of values that objects share (tInterfaces).
struct InterfaceRow {
    InterfaceId InterfaceID = {};  ///< identifier
    std::string Name;              ///< what people call it; "<Name>DBKeys" holds the keys of an object

    bool operator==(const InterfaceRow&) const = default;
};

/// That an object implements an interface (tObjectInterfaces).
struct ObjectInterfaceRow {
    ObjectId ObjectID = {};        ///< the object
    InterfaceId InterfaceID = {};  ///< an interface that it implements
};

/// Data type of values that never become columns, whatever else their rows say.
inline constexpr std::int32_t TypeNoColumn = 13;

/// A value of an interface, and the column that stores it (tValues).
struct ValueRow {
    ValueId ValueID = {};                  ///< identifier
    InterfaceId InterfaceID = {};          ///< the interface that it is one of
    ObjectId ChildObjectID = {};           ///< the object that it holds; 0 for a plain value
    std::string Name;                      ///< member name
    std::optional<std::string> FieldName;  ///< its column; nothing for Null: not stored
    std::int32_t DataType = 0;             ///< automation type number; see TypeNoColumn
    std::string MaxLength;                 ///< longest text, in characters, as numeric text
    bool IsAutoNumber = false;             ///< the database fills the column on insert
    std::string DefaultVal;                ///< default of the column
    bool IsIncluded = false;               ///< takes part in scripts; is stored
    bool IsReadOnly = false;               ///< for people
    std::string Description;               ///< for people
    std::string Caption;                   ///< for people
    std::string Translation;               ///< for people
    std::string MaxValue;                  ///< for people: the library does not check it
    std::string MinValue;                  ///< for people: the library does not check it
    std::int32_t VID = 0;                  ///< number of the value within its interface
    std::string VIDTag1;                   ///< the modeller's own mark
    std::string VIDTag2;                   ///< the modeller's own mark
    std::string VIDTag3;                   ///< the modeller's own mark
    bool IsPlain = true;                   ///< ChildObjectID is 0; neither it nor DataType is Null

    bool operator==(const ValueRow&) const = default;
};

/// That a value is a part of an object's key (tPrimaryKeys).
struct PrimaryKeyRow {
    ObjectId ObjectID = {};  ///< the object
    ValueId ValueID = {};    ///< a value of its key
    std::int32_t Seq = 0;    ///< position of the value within the key

    bool operator==(const PrimaryKeyRow&) const = default;
};

/// That a value of an object refers to another object (tForeignKeys).
struct ForeignKeyRow {
    ObjectId ObjectID = {};    ///< the object whose table holds the column
    ValueId ValueID = {};      ///< the value that the column stores
    ObjectId FKObjectID = {};  ///< the object referred to
    ValueId FKValueID = {};    ///< the key value referred to
    std::string FKObjectGUID;  ///< Guid of the object referred to

    bool operator==(const ForeignKeyRow&) const = default;
};

/// The rows of the seven tables, with look-ups. Rows with identifiers stand in the order of these, the others
/// in the repository's order. References may dangle: a row is given as it stands.
class Catalog {
  public:
    /// Reads all of it. Engine errors reach the caller; a value that does not convert to its column's type
    /// raises TypeMismatch (13) or Overflow (6), naming table and column.
    static Catalog Read(dao::Database& database);

    /// All rows of tDataDefs.
    const std::vector<DataDefRow>& DataDefs() const noexcept { return m_dataDefs; }
    /// All rows of tObjects.
    const std::vector<ObjectRow>& Objects() const noexcept { return m_objects; }
    /// All rows of tInterfaces.
    const std::vector<InterfaceRow>& Interfaces() const noexcept { return m_interfaces; }
    /// All rows of tObjectInterfaces.
    const std::vector<ObjectInterfaceRow>& ObjectInterfaces() const noexcept { return m_objectInterfaces; }
    /// All rows of tValues.
    const std::vector<ValueRow>& Values() const noexcept { return m_values; }
    /// All rows of tPrimaryKeys.
    const std::vector<PrimaryKeyRow>& PrimaryKeys() const noexcept { return m_primaryKeys; }
    /// All rows of tForeignKeys.
    const std::vector<ForeignKeyRow>& ForeignKeys() const noexcept { return m_foreignKeys; }

    /// The object of that identifier, or nullptr.
    const ObjectRow* FindObject(ObjectId objectID) const;
    /// The interface of that identifier, or nullptr.
    const InterfaceRow* FindInterface(InterfaceId interfaceID) const;
    /// The value of that identifier, or nullptr.
    const ValueRow* FindValue(ValueId valueID) const;

    /// Interfaces that an object implements, in the repository's order; identifiers without a row included.
    std::vector<InterfaceId> InterfacesOf(ObjectId objectID) const;
    /// Values of one interface, by their identifiers.
    std::vector<const ValueRow*> ValuesOfInterface(InterfaceId interfaceID) const;
    /// The primary key of an object's table, by Seq.
    std::vector<const PrimaryKeyRow*> PrimaryKeysOf(ObjectId objectID) const;
    /// The foreign keys of an object's table, by ValueID.
    std::vector<const ForeignKeyRow*> ForeignKeysOf(ObjectId objectID) const;
    /// Objects directly beneath an object, in walk order: the element object of a collection first, then the
    /// children that its values hold.
    std::vector<ObjectId> ChildrenOf(ObjectId objectID) const;
    /// Objects that implement an interface, in the repository's order.
    std::vector<ObjectId> ObjectsWith(InterfaceId interfaceID) const;

  private:
    template <RowId Id>
    using Positions = std::unordered_map<Id, std::vector<std::size_t>>;
    void BuildIndexes();

    std::vector<DataDefRow> m_dataDefs;
    std::vector<ObjectRow> m_objects;
    std::vector<InterfaceRow> m_interfaces;
    std::vector<ObjectInterfaceRow> m_objectInterfaces;
    std::vector<ValueRow> m_values;
    std::vector<PrimaryKeyRow> m_primaryKeys;
    std::vector<ForeignKeyRow> m_foreignKeys;

    Positions<ObjectId> m_objectByID, m_interfacesByObject, m_primaryKeysByObject, m_foreignKeysByObject;
    Positions<InterfaceId> m_interfaceByID, m_objectsByInterface, m_valuesByInterface;
    Positions<ValueId> m_valueByID;
};

/// Values of all interfaces of an object, in the order of these, in a catalogue or a related one.
template <class Rows>
std::vector<const ValueRow*> ValuesOf(const Rows& rows, ObjectId objectID) {
    std::vector<const ValueRow*> values;
    for (const InterfaceId interfaceID : rows.InterfacesOf(objectID)) {
        const std::vector<const ValueRow*> own = rows.ValuesOfInterface(interfaceID);
        values.insert(values.end(), own.begin(), own.end());
    }
    return values;
}

}  // namespace korvex::repository
