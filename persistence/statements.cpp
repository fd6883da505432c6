#include "persistence/statements.h"

#include "automation/convert.h"
#include "automation/error.h"

namespace korvex::persistence {

using automation::Error;
using automation::Variant;

namespace {

std::string Where(std::string_view verb, std::string_view table, std::string_view keyColumn,
                  const Variant& key, KeyClause clause) {
    RefuseQuote(table);
    RefuseQuote(keyColumn);
    std::string text(verb);
    text.append(table).append(" where ").append(keyColumn);
    text.append(clause == KeyClause::Tight ? "=" : " = ").append(KeyText(key));
    return text;
}

}  // namespace

// Keys stand in the statements without quotes, so nothing but a number may pass.
std::string KeyText(const Variant& key) {
    if (const auto* number = key.If<std::int32_t>()) return std::to_string(*number);
    if (key.IsEmpty() || key.IsNull()) return {};
    std::string text = automation::ToString(key);
    try {
        automation::ParseNumber(text);
    } catch (const Error&) {
        throw Error(automation::TypeMismatch, "The key \"" + text + "\" is not a number");
    }
    return text;
}

std::string SelectAll(std::string_view table) {
    RefuseQuote(table);
    return std::string("select * from ").append(table);
}

std::string SelectWhere(std::string_view table, std::string_view keyColumn, const Variant& key,
                        KeyClause clause) {
    return Where("select * from ", table, keyColumn, key, clause);
}

std::string DeleteWhere(std::string_view table, std::string_view keyColumn, const Variant& key) {
    return Where("delete from ", table, keyColumn, key, KeyClause::Tight);
}

void RefuseQuote(std::string_view name) {
    if (name.find('\'') != std::string_view::npos)
        throw Error(automation::InvalidProcedureCall,
                    "The name \"" + std::string(name) + "\" holds a single quote");
}

}  // namespace korvex::persistence
