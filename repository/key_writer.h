#pragma once

#include "repository/key_names.h"
#include "repository/key_references.h"
#include "repository/key_values.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace korvex::repository {

/// An object that is being prepared, as far as its keys need it.
struct KeyedObject {
    ObjectId objectID = {};
    std::string name;
    std::string guid;
    InterfaceId keyInterfaceID = {};  ///< interface that holds the object's key values
    std::string keyColumn;            ///< column of the object's own key
    ValueId keyValueID = {};          ///< value of the own key; 0 until it is written
};

/// "'Customer' (ObjectID 7)", for messages.
std::string Describe(const KeyedObject& object);

/// Writes the key values of objects and their rows in tPrimaryKeys and tForeignKeys. Rows that an earlier
/// call wrote are found again and edited, also when an object was renamed or the prefix is another one since.
/// A query that fails leaves its key unwritten (the query helpers have reported it).
class KeyWriter {
  public:
    KeyWriter(DefinitionRows& rows, KeyNames names)
        : m_rows(rows), m_values(rows), m_names(std::move(names)) {}

    /// Column of the own key of an object of that name.
    std::string KeyColumn(std::string_view objectName) const { return m_names.KeyColumn(objectName); }

    /// Writes the object's own key and sets its `keyValueID`.
    void WriteOwnKey(KeyedObject& object);
    /// Writes the reference of `child` to `parent`. Parents of one name share the value and have a row in
    /// tForeignKeys each; so do a parent and the child's own key when their columns have one name.
    void WriteForeignKey(const KeyedObject& child, const KeyedObject& parent);

    /// What has been written.
    const KeyReferences& References() const noexcept { return m_references; }

  private:
    struct ForeignKey {
        ValueId valueID = {};
        std::unique_ptr<dao::Recordset> rows;  ///< at its row in tForeignKeys, at EOF when it has none yet
    };
    ForeignKey EditByName(dao::Recordset& values, const KeyValue& key, const KeyedObject& child,
                          const KeyedObject& parent);
    ForeignKey RenameOrAdd(dao::Recordset& values, const KeyValue& key, const KeyedObject& child,
                           const KeyedObject& parent);
    /// Whether the child refers to several parents by the value.
    bool IsShared(const KeyedObject& child, ValueId valueID);
    void StoreForeignKey(dao::Recordset& rows, const KeyedObject& child, ValueId valueID,
                         const KeyedObject& parent);

    DefinitionRows& m_rows;
    KeyValues m_values;
    KeyNames m_names;
    KeyReferences m_references;
};

}  // namespace korvex::repository
