#include "repository/names.h"

#include "automation/error.h"
#include "automation/text.h"

#include <limits>

namespace korvex::repository {

std::string LimitNameLength(std::string_view sName, std::int16_t nReserve) {
    const int limit = MaxNameLength - nReserve;
    if (limit > std::numeric_limits<std::int16_t>::max()) throw automation::Error(automation::Overflow);
    const int length = static_cast<int>(automation::Length(sName));
    if (length <= limit) return std::string(sName);
    if (limit < 0) {
        throw automation::Error(automation::InvalidProcedureCall, "A reserve of " + std::to_string(nReserve) +
                                                                      " units leaves no room for the name '" +
                                                                      std::string(sName) + "'.");
    }
    return std::string(automation::Right(sName, static_cast<std::size_t>(limit)));
}

std::string TableName(std::string_view uniqueName) { return "t" + LimitNameLength(uniqueName, 1); }

std::string KeyInterfaceName(std::string_view objectName) {
    return std::string(objectName).append(KeyInterfaceSuffix);
}

std::string KeyColumnName(std::string_view objectName, std::int16_t prefixLength) {
    return LimitNameLength(std::string(objectName) + "ID", prefixLength);
}

std::string ValueColumnName(std::string_view valueName) { return LimitNameLength(valueName); }

}  // namespace korvex::repository
