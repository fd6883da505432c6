#include "persistence/statements.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <charconv>

namespace korvex::persistence {

using automation::Error;
using automation::Variant;

namespace {

/// Sign, digits, decimal point and exponent, with blanks around them.
bool IsPlainNumber(std::string_view text) {
    text = automation::Trim(text);
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    if (text.empty() || (text.front() != '.' && !automation::IsDigit(text.front()))) return false;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::string ConvertedNumber(std::string_view text) {
    try {
        return automation::ToString(automation::ParseNumber(text));
    } catch (const Error&) {
        throw Error(automation::TypeMismatch, "The key " + automation::Quoted(text) + " is not a number.");
    }
}

/// Keys stand in the statements without quotes, so nothing but a plain number may pass. What the conversions
/// read as a number in another form ("1,200", "$5", "(12)") passes as the number that it is.
std::string KeyLiteral(const Variant& key) {
    if (const auto* number = key.If<std::int32_t>()) return std::to_string(*number);
    if (key.IsEmpty() || key.IsNull()) return {};
    std::string text = automation::ToString(key);
    return IsPlainNumber(text) ? text : ConvertedNumber(text);
}

constexpr std::string_view SelectVerb = "select * from ";

/// The verb and the table, with room for `more` characters.
std::string Begin(std::string_view verb, std::string_view table, std::size_t more) {
    std::string text;
    text.reserve(verb.size() + table.size() + more);
    text.append(verb).append(table);
    return text;
}

std::string Where(std::string_view verb, std::string_view table, std::string_view keyColumn,
                  const Variant& key, KeyClause clause) {
    std::string text = Begin(verb, table, keyColumn.size() + 32);
    text.append(" where ").append(keyColumn);
    text.append(clause == KeyClause::Tight ? "=" : " = ").append(KeyLiteral(key));
    return text;
}

}  // namespace

std::string SelectAll(std::string_view table) { return Begin(SelectVerb, table, 0); }

std::string SelectWhere(std::string_view table, std::string_view keyColumn, const Variant& key,
                        KeyClause clause) {
    return Where(SelectVerb, table, keyColumn, key, clause);
}

std::string DeleteWhere(std::string_view table, std::string_view keyColumn, const Variant& key) {
    return Where("delete from ", table, keyColumn, key, KeyClause::Tight);
}

}  // namespace korvex::persistence
