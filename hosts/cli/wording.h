#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>

/// How texts are put together, for people and for the languages that they stand in.
namespace korvex::cli {

/// "a, b and c", at most twenty of them; empty for none.
std::string JoinNames(std::span<const std::string> names);

/// "object" -> "objects", "index" -> "indexes".
std::string Plural(std::string_view noun);
/// "1 object", "2 objects".
std::string CountText(std::size_t count, std::string_view noun);

/// The text with another in the place of each of these characters.
std::string Escaped(std::string_view text, std::initializer_list<std::pair<char, std::string_view>> escapes);
/// The text between quotes, with those within it doubled.
std::string InQuotes(std::string_view text, char quote);

}  // namespace korvex::cli
