#include "platform/native/sql/traits.h"

namespace korvex::native::sql {

std::string QuoteName(const EngineTraits& traits, std::string_view name) {
    std::string quoted = traits.quoteOpen;
    quoted.reserve(name.size() + 2);
    for (const char c : name) {
        quoted.push_back(c);
        if (traits.quoteClose.size() == 1 && c == traits.quoteClose[0]) quoted.push_back(c);
    }
    return quoted += traits.quoteClose;
}

}  // namespace korvex::native::sql
