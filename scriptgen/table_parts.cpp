#include "scriptgen/table_parts.h"

#include "automation/convert.h"
#include "scriptgen/column_lists.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

#include <map>

namespace korvex::scriptgen {

void AppendPrimaryKey(std::string& text, const RunState& run, std::string_view keyKind) {
    if (HasPrimaryKey(run.m_colFields)) {
        Append(text, ",\r\n");
        Append(text, "\tCONSTRAINT ", PrimaryKeyName(run.m_sCurrentTable), " ", keyKind, "\r\n");
        Append(text, "\t(\r\n");
        Append(text, "\t\t", Joined(PrimaryKeyColumns(run.m_colFields)), "\r\n");
        Append(text, "\t)\r\n");
    } else {
        Append(text, "\r\n");
    }
}

void AppendForeignKeyIndexes(std::string& text, const RunState& run, std::string_view owner,
                             std::string_view terminator) {
    std::map<repository::ObjectId, JoinedText> names;
    for (const Column& column : run.m_colFields)
        names.try_emplace(column.FKObjectID, ", ").first->second.Add(column.FieldName);
    const std::string& table = run.m_sCurrentTable;
    std::int16_t number = 0;
    for (const repository::ObjectId target : GetForeignKeyTargets(run.m_colFields)) {
        number = automation::ToInteger(number + 1);
        Append(text, "\r\n");
        Append(text, "CREATE INDEX ", IndexName(table, number), " ON ", owner, table, "(",
               names.at(target).Text(), ")", terminator);
    }
}

}  // namespace korvex::scriptgen
