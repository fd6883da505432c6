#pragma once

#include "repository/key_references.h"
#include "repository/key_values.h"
#include "repository/names.h"
#include "repository/repository.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace korvex::repository {

/// An object that is being prepared, as far as its keys need it.
struct KeyedObject {
    std::int32_t objectID = 0;
    std::string name;
    std::string guid;
    std::int32_t keyInterfaceID = 0;  ///< interface that holds the object's key values
    std::string keyColumn;            ///< column of the object's own key
    std::int32_t keyValueID = 0;      ///< value of the own key; 0 until it is written
};

/// "'Customer' (ObjectID 7)", for messages.
std::string Describe(const KeyedObject& object);

/// Writes the key values of objects and their rows in tPrimaryKeys and tForeignKeys. Rows that an earlier
/// call wrote are found again and edited, also when an object was renamed or the prefix is another one since.
/// A query that fails leaves its key unwritten (the query helpers have reported it).
class KeyWriter {
  public:
    /// InvalidProcedureCall (5) for a prefix that holds a single quote or leaves no room for a key column.
    KeyWriter(Repository& repository, std::string_view sFKPrefix);

    /// Column of the own key of an object of that name.
    std::string KeyColumn(std::string_view objectName) const {
        return KeyColumnName(objectName, m_prefixLength);
    }
    /// Column by which the objects beneath `parent` refer to it.
    std::string ForeignKeyColumn(const KeyedObject& parent) const { return m_sFKPrefix + parent.keyColumn; }

    /// Writes the object's own key and sets its `keyValueID`.
    void WriteOwnKey(KeyedObject& object);
    /// Writes the reference of `child` to `parent`. Parents of one name share the value and have a row in
    /// tForeignKeys each; so do a parent and the child's own key when their columns have one name.
    void WriteForeignKey(const KeyedObject& child, const KeyedObject& parent);

    /// What has been written.
    const KeyReferences& References() const noexcept { return m_references; }

  private:
    struct ForeignKey {
        std::int32_t valueID = 0;
        std::unique_ptr<dao::Recordset> rows;  ///< at its row in tForeignKeys, at EOF when it has none yet
    };
    ForeignKey EditByName(dao::Recordset& values, const KeyValue& key, const KeyedObject& child,
                          const KeyedObject& parent);
    ForeignKey RenameOrAdd(dao::Recordset& values, const KeyValue& key, const KeyedObject& child,
                           const KeyedObject& parent);
    /// Whether the child refers to several parents by the value.
    bool IsShared(const KeyedObject& child, std::int32_t valueID);
    std::unique_ptr<dao::Recordset> OpenForeignKey(const KeyedObject& child, const std::string& condition);
    void StoreForeignKey(dao::Recordset& rows, const KeyedObject& child, std::int32_t valueID,
                         const KeyedObject& parent);

    Repository& m_repository;
    KeyValues m_values;
    std::string m_sFKPrefix;
    std::int16_t m_prefixLength = 0;
    KeyReferences m_references;
};

}  // namespace korvex::repository
