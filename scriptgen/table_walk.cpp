#include "scriptgen/table_walk.h"

#include "automation/convert.h"
#include "repository/lookups.h"
#include "repository/read_value.h"

namespace korvex::scriptgen {

using repository::ReadValue;

void TableVisitor::WalkStorage(std::string_view storageName) {
    for (const repository::ObjectId root : repository::GetRootObjects(m_rows, storageName))
        repository::WalkObjects(m_rows, root, *this);
}

/// Nothing for an object that takes no part in the scripts.
std::optional<repository::ObjectId> TableVisitor::Enter(repository::ObjectId lObjectID) {
    const auto object = m_rows.Ask(repository::questions::ScriptedObject, lObjectID);
    if (object == nullptr || object->Eof()) return std::nullopt;

    const std::string what = "the tObjects row with ObjectID = " + std::to_string(Number(lObjectID));
    const repository::ObjectId lCollectionObjectID =
        ReadValue(object->Fields("CollectionObjectID"), repository::ToId<repository::ObjectId>, what);
    const std::string table = ReadValue(object->Fields("TableName"), automation::ToString, what);
    object->Close();

    if (!EnterTable(lObjectID, table)) return std::nullopt;
    return lCollectionObjectID;
}

}  // namespace korvex::scriptgen
