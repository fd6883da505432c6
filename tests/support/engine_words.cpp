#include "support/engine_words.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace korvex::tests {
namespace {

struct Word {
    std::string_view neutral;
    const char* mariaDb;  ///< null: no such type
    const char* postgreSql;
};

/// What is not here is the same everywhere.
constexpr Word Words[] = {
    {"bit", "bit", "boolean"},
    {"tinyint", "tinyint unsigned", nullptr},
    {"real", "float", "real"},
    {"float", "double", "double precision"},
    {"datetime", "datetime(3)", "timestamp(3)"},
    {"text", "longtext", "text"},
    {"image", "longblob", "bytea"},
    {"money", nullptr, nullptr},
    {"varchar", nullptr, nullptr},  // without a size
    {"INTEGER", "integer", "integer"},
    {"NUMBER", "numeric", "numeric"},
    {"VARCHAR2", "varchar", "varchar"},
    {"LONG", "longtext", "text"},
    {"LONG RAW", "longblob", "bytea"},
    {"RAW", "varbinary", nullptr},
    {"DATE", "datetime", "timestamp"},
    {"blob", "longblob", "bytea"},
    {"numbered", "integer auto_increment", "serial"},
    {"integer primary key", "integer auto_increment primary key", "serial primary key"},
};

const Word* FindWord(std::string_view neutral) {
    const auto* const found = std::ranges::find(Words, neutral, &Word::neutral);
    return found == std::ranges::end(Words) ? nullptr : found;
}

bool IsWordPart(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

std::size_t WordEnd(std::string_view text, std::size_t at) {
    while (at < text.size() && IsWordPart(text[at]))
        ++at;
    return at;
}

/// The word at a place; "integer primary key" is one.
std::string_view WordAt(std::string_view text, std::size_t at) {
    constexpr std::string_view key = "integer primary key";
    if (text.substr(at).starts_with(key)) return key;
    return text.substr(at, WordEnd(text, at) - at);
}

}  // namespace

std::optional<std::string> TypeIn(Driver driver, std::string_view declared) {
    if (!IsServer(driver)) return std::string(declared);
    const std::size_t size = std::min(declared.find('('), declared.size());
    const bool hasSize = size < declared.size();
    const Word* word =
        hasSize && declared.starts_with("varchar(") ? nullptr : FindWord(declared.substr(0, size));
    if (word == nullptr) return std::string(declared);
    const char* theirs = driver == Driver::MariaDb ? word->mariaDb : word->postgreSql;
    if (theirs == nullptr) return std::nullopt;
    return theirs + std::string(declared.substr(size));
}

std::string InWordsOf(Driver driver, std::string_view statement) {
    if (!IsServer(driver)) return std::string(statement);
    const char quote = driver == Driver::MariaDb ? '`' : '"';
    std::string result;
    for (std::size_t at = 0; at < statement.size();) {
        const char c = statement[at];
        const std::string_view rest = statement.substr(at);
        if (c == '\'') {
            const std::string_view literal = rest.substr(0, rest.find('\'', 1) + 1);
            result += literal;
            at += literal.size();
        } else if (c == '[') {
            const std::size_t end = rest.find(']');
            result.append(1, quote).append(rest.substr(1, end - 1)).append(1, quote);
            at += end + 1;
        } else if (IsWordPart(c)) {
            const std::string_view word = WordAt(statement, at);
            const bool isSized = rest.substr(word.size()).starts_with('(');
            const auto theirs = isSized && word == "varchar" ? std::string(word) : TypeIn(driver, word);
            if (!theirs) throw std::logic_error("this engine has no " + std::string(word));
            result += *theirs;
            at += word.size();
        } else {
            result += c;
            ++at;
        }
    }
    return result;
}

}  // namespace korvex::tests
