#pragma once

#include "platform/dao.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Everything that a definition repository holds, read into memory: for tools that look at a definition as a
/// whole. Fields have the names of their columns; Null reads as 0, False or "", where nothing else is said.
namespace korvex::repository {

struct DataDefRow {
    std::string Storage;
    std::int32_t RootObjectID = 0;
};

struct ObjectRow {
    std::int32_t ObjectID = 0;
    std::string Name;
    std::int32_t CollectionObjectID = 0;   ///< object of this collection's elements; 0 for no collection
    std::optional<std::string> TableName;  ///< nothing for Null: no table
    bool IsIncluded = false;
    std::string Guid;
    bool HasKind = true;  ///< CollectionObjectID is not Null

    bool operator==(const ObjectRow&) const = default;
};

struct InterfaceRow {
    std::int32_t InterfaceID = 0;
    std::string Name;

    bool operator==(const InterfaceRow&) const = default;
};

struct ObjectInterfaceRow {
    std::int32_t ObjectID = 0;
    std::int32_t InterfaceID = 0;
};

/// Data type of values that never become columns, whatever else their rows say.
inline constexpr std::int32_t TypeNoColumn = 13;

struct ValueRow {
    std::int32_t ValueID = 0;
    std::int32_t InterfaceID = 0;
    std::int32_t ChildObjectID = 0;  ///< 0 for a plain value
    std::string Name;
    std::optional<std::string> FieldName;  ///< nothing for Null: not stored
    std::int32_t DataType = 0;
    std::string MaxLength;
    bool IsAutoNumber = false;
    std::string DefaultVal;
    bool IsIncluded = false;
    bool IsReadOnly = false;
    std::string Description;
    std::string Caption;
    std::string Translation;
    std::string MaxValue;
    std::string MinValue;
    std::int32_t VID = 0;
    std::string VIDTag1;
    std::string VIDTag2;
    std::string VIDTag3;
    bool IsPlain = true;  ///< ChildObjectID is 0; neither it nor DataType is Null

    bool operator==(const ValueRow&) const = default;
};

struct PrimaryKeyRow {
    std::int32_t ObjectID = 0;
    std::int32_t ValueID = 0;
    std::int32_t Seq = 0;

    bool operator==(const PrimaryKeyRow&) const = default;
};

struct ForeignKeyRow {
    std::int32_t ObjectID = 0;
    std::int32_t ValueID = 0;
    std::int32_t FKObjectID = 0;
    std::int32_t FKValueID = 0;
    std::string FKObjectGUID;

    bool operator==(const ForeignKeyRow&) const = default;
};

/// The rows of the seven tables, with look-ups. Rows with identifiers stand in the order of these, the others
/// in the repository's order. References may dangle: a row is given as it stands.
class Catalog {
  public:
    /// Reads all of it. Engine errors reach the caller; a value that does not convert to its column's type
    /// raises TypeMismatch (13) or Overflow (6), naming table and column.
    static Catalog Read(dao::Database& database);

    const std::vector<DataDefRow>& DataDefs() const noexcept { return m_dataDefs; }
    const std::vector<ObjectRow>& Objects() const noexcept { return m_objects; }
    const std::vector<InterfaceRow>& Interfaces() const noexcept { return m_interfaces; }
    const std::vector<ObjectInterfaceRow>& ObjectInterfaces() const noexcept { return m_objectInterfaces; }
    const std::vector<ValueRow>& Values() const noexcept { return m_values; }
    const std::vector<PrimaryKeyRow>& PrimaryKeys() const noexcept { return m_primaryKeys; }
    const std::vector<ForeignKeyRow>& ForeignKeys() const noexcept { return m_foreignKeys; }

    /// The row of that identifier, or nullptr.
    const ObjectRow* FindObject(std::int32_t objectID) const;
    const InterfaceRow* FindInterface(std::int32_t interfaceID) const;
    const ValueRow* FindValue(std::int32_t valueID) const;

    /// Interfaces that an object implements, in the repository's order; identifiers without a row included.
    std::vector<std::int32_t> InterfacesOf(std::int32_t objectID) const;
    /// Values of one interface, and of all interfaces of an object in their order.
    std::vector<const ValueRow*> ValuesOfInterface(std::int32_t interfaceID) const;
    std::vector<const ValueRow*> ValuesOf(std::int32_t objectID) const;
    /// Keys of an object's table: primary keys by their Seq, foreign keys by their ValueID.
    std::vector<const PrimaryKeyRow*> PrimaryKeysOf(std::int32_t objectID) const;
    std::vector<const ForeignKeyRow*> ForeignKeysOf(std::int32_t objectID) const;
    /// Objects directly beneath an object, in walk order: the element object of a collection first, then the
    /// children that its values hold.
    std::vector<std::int32_t> ChildrenOf(std::int32_t objectID) const;
    /// Objects that implement an interface, in the repository's order.
    std::vector<std::int32_t> ObjectsWith(std::int32_t interfaceID) const;

  private:
    using Positions = std::unordered_map<std::int32_t, std::vector<std::size_t>>;
    void BuildIndexes();

    std::vector<DataDefRow> m_dataDefs;
    std::vector<ObjectRow> m_objects;
    std::vector<InterfaceRow> m_interfaces;
    std::vector<ObjectInterfaceRow> m_objectInterfaces;
    std::vector<ValueRow> m_values;
    std::vector<PrimaryKeyRow> m_primaryKeys;
    std::vector<ForeignKeyRow> m_foreignKeys;

    Positions m_objectByID, m_interfaceByID, m_valueByID;
    Positions m_interfacesByObject, m_objectsByInterface, m_valuesByInterface, m_primaryKeysByObject,
        m_foreignKeysByObject;
};

/// The names along a way on which an object beneath one of `roots` is its own ancestor ("Order > Customer >
/// Order"), or nothing; then `finished` has what is beneath them once, each object behind all beneath it.
std::optional<std::string> FindOwnAncestor(const Catalog& catalog, const std::vector<std::int32_t>& roots,
                                           std::vector<std::int32_t>& finished);

/// The objects of the definitions of a storage name (of all when it is empty), and along how many ways a walk
/// reaches each; a number that would be too large is the largest one. OutOfStackSpace (28) for an object that
/// is its own ancestor.
std::unordered_map<std::int32_t, std::int64_t> CountWays(const Catalog& catalog,
                                                         std::string_view storageName);

}  // namespace korvex::repository
