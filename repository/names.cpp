#include "repository/names.h"

#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace korvex::repository {

namespace {

constexpr std::string_view KeyInterfaceSuffix = "DBKeys";

/// A table's number has no more digits than fit 16 bits.
constexpr std::size_t LongestNumber = 5;

constexpr bool IsDigit(char32_t c) { return c >= '0' && c <= '9'; }

struct Range {
    char32_t first;
    char32_t last;
};

/// Beyond ASCII: controls, blanks, punctuation, symbols and what no script uses. Everything else is taken for
/// a letter, or for a mark that belongs to one.
constexpr Range NoLetters[] = {
    {0x80, 0xA9},       {0xAB, 0xB4},        {0xB6, 0xB9},     {0xBB, 0xBF},     {0xD7, 0xD7},
    {0xF7, 0xF7},       {0x37E, 0x37E},      {0x387, 0x387},   {0x55A, 0x55F},   {0x589, 0x58F},
    {0x600, 0x60F},     {0x61B, 0x61F},      {0x66A, 0x66D},   {0x964, 0x965},   {0x1680, 0x1680},
    {0x2000, 0x200B},   {0x200E, 0x206F},    {0x2072, 0x207E}, {0x2080, 0x208E}, {0x20A0, 0x20CF},
    {0x2190, 0x2BFF},   {0x2E00, 0x2E7F},    {0x3000, 0x3004}, {0x3008, 0x3020}, {0x3030, 0x3030},
    {0xD800, 0xF8FF},   {0xFD3E, 0xFD3F},    {0xFE10, 0xFE1F}, {0xFE30, 0xFE6F}, {0xFEFF, 0xFEFF},
    {0xFF00, 0xFF0F},   {0xFF1A, 0xFF20},    {0xFF3B, 0xFF40}, {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF},
    {0x1F000, 0x1FBFF}, {0xE0000, 0x10FFFF},
};

constexpr bool IsLetter(char32_t c) {
    if (c < 0x80) return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return std::none_of(std::begin(NoLetters), std::end(NoLetters),
                        [c](const Range& range) { return c >= range.first && c <= range.last; });
}

std::u32string CodePoints(std::string_view text) {
    const std::u16string units = automation::ToUtf16(text);
    std::u32string points;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool isPair = units[i] >= 0xD800 && units[i] < 0xDC00 && i + 1 < units.size();
        if (!isPair) {
            points += units[i];
            continue;
        }
        points += static_cast<char32_t>(0x10000 + ((char32_t{units[i]} - 0xD800) << 10) +
                                        (char32_t{units[i + 1]} - 0xDC00));
        ++i;
    }
    return points;
}

}  // namespace

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

bool IsTableNameOf(std::string_view table, std::string_view objectName) {
    const auto isNumbered = [&](std::size_t digits) {
        return TableName(std::string(objectName).append(table.substr(table.size() - digits))) == table;
    };
    std::size_t digits = 0;
    while (!isNumbered(digits)) {
        const bool hasOneMore = digits < std::min(LongestNumber, table.size()) &&
                                IsDigit(static_cast<unsigned char>(table[table.size() - digits - 1]));
        if (!hasOneMore) return false;
        ++digits;
    }
    return true;
}

std::string KeyColumnName(std::string_view objectName, std::int16_t prefixLength) {
    return LimitNameLength(std::string(objectName) + "ID", prefixLength);
}

std::string ValueColumnName(std::string_view valueName) { return LimitNameLength(valueName); }

std::string KeyInterfaceName(std::string_view objectName) {
    return std::string(objectName).append(KeyInterfaceSuffix);
}

bool IsKeyInterfaceName(std::string_view name) {
    return name.size() >= KeyInterfaceSuffix.size() &&
           automation::EqualsIgnoreCase(name.substr(name.size() - KeyInterfaceSuffix.size()),
                                        KeyInterfaceSuffix);
}

bool IsIdentifier(std::string_view name) {
    const std::u32string points = CodePoints(name);
    return !points.empty() && !IsDigit(points.front()) &&
           std::all_of(points.begin(), points.end(), [](char32_t c) {
               return IsLetter(c) || IsDigit(c) || c == '_' || c == '$' || c == '#';
           });
}

bool HasControlCharacter(std::string_view text) {
    const std::u16string units = automation::ToUtf16(text);
    return std::any_of(units.begin(), units.end(),
                       [](char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); });
}

std::string FindSqlMark(std::string_view name) {
    if (HasControlCharacter(name)) return "a control character";
    for (std::size_t i = 0; i < name.size(); ++i) {
        const std::string_view pair = name.substr(i, 2);
        if (pair == "--" || pair == "/*") return "\"" + std::string(pair) + "\"";
        if (std::string_view("'\"`").find(name[i]) != std::string_view::npos) return "a quote";
        if (std::string_view("()[]{}").find(name[i]) != std::string_view::npos) return "a bracket";
        if (name[i] == ';' || name[i] == '=') return "\"" + std::string(1, name[i]) + "\"";
    }
    return {};
}

}  // namespace korvex::repository
