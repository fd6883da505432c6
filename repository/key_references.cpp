#include "repository/key_references.h"

#include "automation/convert.h"
#include "repository/key_values.h"
#include "repository/read_value.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::repository {

namespace {

struct KeyRow {
    ObjectId objectID = {};
    ValueId valueID = {};
    ObjectId parentID = {};
};

class StaleKeys {
  public:
    StaleKeys(DefinitionRows& rows, const KeyReferences& references)
        : m_source(rows), m_references(references) {}

    void Delete() {
        ReadRows();
        for (const KeyRow& row : m_rows) {
            if (m_references.HasObject(row.objectID) && IsStale(row)) DeleteRow(row);
        }
    }

  private:
    using ObjectSet = std::unordered_set<ObjectId>;

    template <RowId Id>
    static Id Read(dao::Recordset& rows, std::string_view column) {
        return ReadValue(rows.Fields(column), ToId<Id>, "a foreign key");
    }

    void ReadRows() {
        ForEachRow(m_source.NumberedForeignKeys(), [this](dao::Recordset& rows) {
            const KeyRow row{Read<ObjectId>(rows, "ObjectID"), Read<ValueId>(rows, "ValueID"),
                             Read<ObjectId>(rows, "FKObjectID")};
            if (!IsKeyInterfaceName(ReadValue(rows.Fields("Name"), automation::ToString, "an interface")))
                return;
            m_rows.push_back(row);
            ++m_rowsOfValue[row.valueID];
        });
    }

    bool IsStale(const KeyRow& row) {
        const ValueId current = m_references.ValueOf(row.objectID, row.parentID);
        if (current != ValueId()) return current != row.valueID;
        const auto [position, isNew] = m_held.try_emplace(row.parentID);
        if (isNew) position->second = ObjectsIn(row.parentID);
        const std::optional<ObjectSet>& held = position->second;
        return held && !held->contains(row.objectID);
    }

    /// The objects that an object holds; nothing when a query failed.
    std::optional<ObjectSet> ObjectsIn(ObjectId parentID) {
        ObjectSet held;
        const auto add = [&held](std::string_view column) {
            return [&held, column](dao::Recordset& rows) { held.insert(Read<ObjectId>(rows, column)); };
        };
        const bool isComplete =
            ForEachRow(m_source.Ask(questions::ElementObject, parentID), add("CollectionObjectID")) &&
            ForEachRow(m_source.HeldObjects(parentID), add("ChildObjectID"));
        return isComplete ? std::optional(std::move(held)) : std::nullopt;
    }

    void DeleteRow(const KeyRow& row) {
        m_source.DeleteForeignKey(row.objectID, row.valueID, row.parentID);
        if (--m_rowsOfValue[row.valueID] > 0) return;
        bool isPrimaryKey = false;
        const bool isKnown = ForEachRow(m_source.PrimaryKeysOfValue(row.objectID, row.valueID),
                                        [&isPrimaryKey](dao::Recordset&) { isPrimaryKey = true; });
        if (isKnown && !isPrimaryKey) m_source.DeleteValue(row.valueID);
    }

    DefinitionRows& m_source;
    const KeyReferences& m_references;
    std::vector<KeyRow> m_rows;
    std::unordered_map<ValueId, std::size_t> m_rowsOfValue;
    std::unordered_map<ObjectId, std::optional<ObjectSet>> m_held;  ///< by object
};

}  // namespace

void DeleteStaleKeys(DefinitionRows& rows, const KeyReferences& references) {
    if (!references.IsEmpty()) StaleKeys(rows, references).Delete();
}

}  // namespace korvex::repository
