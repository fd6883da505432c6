#include "repository/read_value.h"

#include "automation/text.h"

namespace korvex::repository {

std::string DescribeRow(std::string_view table, dao::Recordset& rows) {
    std::string text = "the " + std::string(table) + " row";
    std::string_view before = " with ";
    for (const std::string_view column : {"Storage", "ObjectID", "InterfaceID", "ValueID", "Name"}) {
        try {
            const automation::Variant value = rows.Fields(column).Value();
            if (value.IsNull()) continue;
            const std::string shown = automation::ToString(value);
            text.append(before).append(column).append(" = ");
            text += value.IsString() ? automation::Quoted(shown) : shown;
            before = ", ";
        } catch (const automation::Error&) {
            // The statement does not give that column.
        }
    }
    return text;
}

}  // namespace korvex::repository
