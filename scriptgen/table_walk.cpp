#include "scriptgen/table_walk.h"

#include "automation/convert.h"
#include "repository/lookups.h"
#include "repository/read_value.h"

namespace korvex::scriptgen {

using repository::ReadValue;

void TableVisitor::WalkStorage(std::string_view storageName) {
    for (const std::int32_t root : repository::GetRootObjects(m_repository, storageName))
        repository::WalkObjects(m_repository, root, *this);
}

/// Nothing for an object that takes no part in the scripts.
std::optional<std::int32_t> TableVisitor::Enter(std::int32_t lObjectID) {
    // The word touches the number in this statement; the engines' layer knows that.
    const std::string number = std::to_string(lObjectID);
    const auto object = m_repository.OpenSnapshot(
        "SELECT CollectionObjectID, TableName from tObjects where IsIncluded <> 0"
        "and TableName is not null and ObjectID = " +
        number);
    if (object == nullptr || object->Eof()) return std::nullopt;

    const std::string what = "the tObjects row with ObjectID = " + number;
    const std::int32_t lCollectionObjectID =
        ReadValue(object->Fields("CollectionObjectID"), automation::ToLong, what);
    const std::string table = ReadValue(object->Fields("TableName"), automation::ToString, what);
    object->Close();

    if (!EnterTable(lObjectID, table)) return std::nullopt;
    return lCollectionObjectID;
}

}  // namespace korvex::scriptgen
