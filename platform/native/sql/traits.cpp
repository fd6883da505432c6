#include "platform/native/sql/traits.h"

namespace korvex::native::sql {

std::string EngineTraits::Quote(std::string_view name) const {
    std::string quoted = quoteOpen;
    quoted.reserve(name.size() + 2);
    for (const char c : name) {
        quoted.push_back(c);
        if (quoteClose.size() == 1 && c == quoteClose[0]) quoted.push_back(c);
    }
    return quoted += quoteClose;
}

}  // namespace korvex::native::sql
