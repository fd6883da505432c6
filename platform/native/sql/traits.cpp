#include "platform/native/sql/traits.h"

namespace korvex::native::sql {

std::string EngineTraits::Quote(std::string_view name) const {
    std::string quoted = quote;
    quoted.reserve(name.size() + 2);
    for (const char c : name) {
        quoted.push_back(c);
        if (quote.size() == 1 && c == quote[0]) quoted.push_back(c);
    }
    return quoted += quote;
}

std::string EngineTraits::QuoteBeside(const TableName& table, std::string_view name) const {
    std::string text;
    for (const std::string* part : {&table.catalog, &table.schema}) {
        if (!part->empty()) text += Quote(*part) + ".";
    }
    return text + Quote(name);
}

}  // namespace korvex::native::sql
