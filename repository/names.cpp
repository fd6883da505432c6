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

}  // namespace korvex::repository
