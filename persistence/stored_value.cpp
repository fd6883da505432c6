#include "persistence/stored_value.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "persistence/definition_walk.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

bool IsZero(const Variant& stored) {
    return !stored.IsString() && !stored.Holds<automation::Bytes>() && automation::ToDouble(stored) == 0;
}

}  // namespace

bool SameAsStored(const Variant& stored, const Variant& value) {
    if (IsBlank(value)) return IsBlank(stored) || IsZero(stored);
    if (IsEmptyOrNull(stored)) return false;
    try {
        const Variant converted = automation::ChangeType(value, stored.Type());
        if (const auto* date = stored.If<automation::Date>())  // engines keep milliseconds, no finer
            return automation::ToMilliseconds(*date) ==
                   automation::ToMilliseconds(*converted.If<automation::Date>());
        return converted == stored;
    } catch (const automation::Error&) {
        return false;  // what cannot be compared is written, and the engine judges it
    }
}

}  // namespace korvex::persistence
