#pragma once

#include "automation/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The characters, words and comments that statements consist of. Letters beyond ASCII belong to words.
namespace korvex::automation::sql {

enum class CharClass : std::uint8_t {
    Plain,
    Letter,  ///< begins or continues a word
    Digit,
    Quote,
    Bracket,
    Compare,
    Dash,
    Slash,
    Open,
    Close,
    Semicolon,
    Placeholder,
    Dollar,
};

constexpr std::array<CharClass, 256> MakeClasses() {
    std::array<CharClass, 256> classes{};
    const auto set = [&](std::string_view characters, CharClass value) {
        for (const char c : characters)
            classes[static_cast<unsigned char>(c)] = value;
    };
    set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", CharClass::Letter);
    for (std::size_t c = 0x80; c < 256; ++c)
        classes[c] = CharClass::Letter;
    set("0123456789", CharClass::Digit);
    set("'\"`", CharClass::Quote);
    set("[", CharClass::Bracket);
    set("<>=!", CharClass::Compare);
    set("-", CharClass::Dash);
    set("/", CharClass::Slash);
    set("(", CharClass::Open);
    set(")", CharClass::Close);
    set(";", CharClass::Semicolon);
    set("?", CharClass::Placeholder);
    set("$", CharClass::Dollar);
    return classes;
}

inline constexpr std::array<CharClass, 256> Classes = MakeClasses();

constexpr CharClass ClassOf(char c) noexcept { return Classes[static_cast<unsigned char>(c)]; }
using automation::IsDigit;
constexpr bool IsBlank(char c) noexcept { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr std::array<bool, 256> MakeWordParts() {
    std::array<bool, 256> parts{};
    for (std::size_t c = 0; c < 256; ++c) {
        const auto character = static_cast<char>(c);
        parts[c] = ClassOf(character) == CharClass::Letter || IsDigit(character) || character == '$' ||
                   character == '#' || character == '@';
    }
    return parts;
}

inline constexpr std::array<bool, 256> WordParts = MakeWordParts();

constexpr bool IsWordPart(char c) noexcept { return WordParts[static_cast<unsigned char>(c)]; }
constexpr bool IsHexDigit(char c) noexcept {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Behind the blanks, or the rest of a word, from `at` on.
constexpr std::size_t BehindBlanks(std::string_view text, std::size_t at) noexcept {
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    return at;
}
constexpr std::size_t BehindWord(std::string_view text, std::size_t at) noexcept {
    while (at < text.size() && IsWordPart(text[at]))
        ++at;
    return at;
}

/// Behind the comment that begins at `at`; `at` itself when none does.
inline std::size_t BehindComment(std::string_view text, std::size_t at) noexcept {
    const std::string_view opening = text.substr(at, 2);
    if (opening == "--") return std::min(text.find('\n', at), text.size());
    if (opening != "/*") return at;
    const std::size_t end = text.find("*/", at + 2);
    return end == std::string_view::npos ? text.size() : end + 2;
}

template <std::size_t N>
bool IsOneOf(std::string_view word, const std::array<std::string_view, N>& words) noexcept {
    return std::ranges::any_of(words, [&](std::string_view w) { return EqualsIgnoreCase(w, word); });
}

/// Whether a word is `lower`, in any case.
constexpr bool IsWord(std::string_view word, std::string_view lower) noexcept {
    if (word.size() != lower.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if ((word[i] | ' ') != lower[i]) return false;
    }
    return true;
}

}  // namespace korvex::automation::sql
