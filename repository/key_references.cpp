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

struct ForeignKeyRow {
    std::int32_t objectID = 0;
    std::int32_t valueID = 0;
    std::int32_t parentID = 0;
};

/// Calls `take` with every row; false when the query failed.
template <class Take>
bool ForEachRow(Repository& repository, const std::string& sql, Take take) {
    const auto rows = repository.OpenSnapshot(sql);
    if (!rows) return false;
    for (; !rows->Eof(); rows->MoveNext())
        take(*rows);
    rows->Close();
    return true;
}

class StaleKeys {
  public:
    StaleKeys(Repository& repository, const KeyReferences& references)
        : m_repository(repository), m_references(references) {}

    void Delete() {
        ReadRows();
        for (const ForeignKeyRow& row : m_rows) {
            if (m_references.HasObject(row.objectID) && IsStale(row)) DeleteRow(row);
        }
    }

  private:
    using ObjectSet = std::unordered_set<std::int32_t>;

    static std::int32_t Long(dao::Recordset& rows, std::string_view column) {
        return ReadValue(rows.Fields(column), automation::ToLong, "a foreign key");
    }

    void ReadRows() {
        const std::string sql =
            "SELECT tForeignKeys.ObjectID, tForeignKeys.ValueID, tForeignKeys.FKObjectID, tInterfaces.Name "
            "FROM (tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) "
            "INNER JOIN tInterfaces ON tValues.InterfaceID = tInterfaces.InterfaceID "
            "WHERE tValues.VID > " +
            std::to_string(LowestKeyVid) + " AND tValues.VID < " + std::to_string(HighestKeyVid);
        ForEachRow(m_repository, sql, [this](dao::Recordset& rows) {
            const ForeignKeyRow row{Long(rows, "ObjectID"), Long(rows, "ValueID"), Long(rows, "FKObjectID")};
            if (!IsKeyInterfaceName(ReadValue(rows.Fields("Name"), automation::ToString, "an interface")))
                return;
            m_rows.push_back(row);
            ++m_rowsOfValue[row.valueID];
        });
    }

    bool IsStale(const ForeignKeyRow& row) {
        if (const std::int32_t current = m_references.ValueOf(row.objectID, row.parentID))
            return current != row.valueID;
        const auto [position, isNew] = m_held.try_emplace(row.parentID);
        if (isNew) position->second = ObjectsIn(row.parentID);
        const std::optional<ObjectSet>& held = position->second;
        return held && !held->contains(row.objectID);
    }

    /// The objects that an object holds; nothing when a query failed.
    std::optional<ObjectSet> ObjectsIn(std::int32_t parentID) {
        const std::string id = std::to_string(parentID);
        ObjectSet held;
        const auto add = [&held](std::string_view column) {
            return [&held, column](dao::Recordset& rows) { held.insert(Long(rows, column)); };
        };
        const bool isComplete =
            ForEachRow(m_repository, "select CollectionObjectID from tObjects where ObjectID = " + id,
                       add("CollectionObjectID")) &&
            ForEachRow(m_repository,
                       "SELECT tValues.ChildObjectID FROM tObjectInterfaces INNER JOIN tValues ON "
                       "tObjectInterfaces.InterfaceID = tValues.InterfaceID "
                       "WHERE tValues.ChildObjectID > 0 AND tObjectInterfaces.ObjectID = " +
                           id,
                       add("ChildObjectID"));
        return isComplete ? std::optional(std::move(held)) : std::nullopt;
    }

    void DeleteRow(const ForeignKeyRow& row) {
        const std::string ofValue = " where ValueID = " + std::to_string(row.valueID);
        const std::string ofObject = " and ObjectID = " + std::to_string(row.objectID);
        m_repository.Execute("delete from tForeignKeys" + ofValue + ofObject +
                             " and FKObjectID = " + std::to_string(row.parentID));
        if (--m_rowsOfValue[row.valueID] > 0) return;
        bool isPrimaryKey = false;
        const bool isKnown = ForEachRow(m_repository, "select ValueID from tPrimaryKeys" + ofValue + ofObject,
                                        [&isPrimaryKey](dao::Recordset&) { isPrimaryKey = true; });
        if (isKnown && !isPrimaryKey) m_repository.Execute("delete from tValues" + ofValue);
    }

    Repository& m_repository;
    const KeyReferences& m_references;
    std::vector<ForeignKeyRow> m_rows;
    std::unordered_map<std::int32_t, std::size_t> m_rowsOfValue;
    std::unordered_map<std::int32_t, std::optional<ObjectSet>> m_held;  ///< by object
};

}  // namespace

void DeleteStaleKeys(Repository& repository, const KeyReferences& references) {
    if (!references.IsEmpty()) StaleKeys(repository, references).Delete();
}

}  // namespace korvex::repository
