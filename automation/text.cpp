#include "automation/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace korvex::automation {

namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;

/// One character of a UTF-8 text.
struct Decoded {
    char32_t character;
    std::size_t bytes;

    std::size_t Units() const noexcept { return character > 0xFFFF ? 2 : 1; }
};

constexpr std::uint8_t ByteAt(std::string_view text, std::size_t position) noexcept {
    return static_cast<std::uint8_t>(text[position]);
}

/// The lead byte of a sequence tells its length and, against overlong forms, surrogates and values beyond
/// U+10FFFF, the range of the second byte.
struct Lead {
    std::size_t length;
    unsigned secondMin;
    unsigned secondMax;
};

constexpr Lead LeadOf(std::uint8_t byte) noexcept {
    if (byte < 0x80) return {1, 0, 0};
    if (byte < 0xC2 || byte > 0xF4) return {0, 0, 0};
    if (byte < 0xE0) return {2, 0x80, 0xBF};
    if (byte < 0xF0) return {3, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    return {4, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
}

/// The character at `position`. An ill-formed sequence reads as one U+FFFD per longest start of a well-formed
/// one, so that counting and converting always agree.
Decoded Decode(std::string_view text, std::size_t position) noexcept {
    const std::uint8_t first = ByteAt(text, position);
    const Lead lead = LeadOf(first);
    if (lead.length == 1) return {first, 1};
    if (lead.length == 0) return {ReplacementCharacter, 1};

    char32_t character = first & (0x7FU >> lead.length);
    for (std::size_t i = 1; i < lead.length; ++i) {
        if (position + i >= text.size()) return {ReplacementCharacter, i};
        const std::uint8_t next = ByteAt(text, position + i);
        const unsigned lowest = i == 1 ? lead.secondMin : 0x80;
        const unsigned highest = i == 1 ? lead.secondMax : 0xBF;
        if (next < lowest || next > highest) return {ReplacementCharacter, i};
        character = (character << 6) | (next & 0x3FU);
    }
    return {character, lead.length};
}

/// Number of ASCII bytes from `position` on; most texts are nothing else.
std::size_t AsciiRun(std::string_view text, std::size_t position) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t end = position;
    while (end + sizeof(std::uint64_t) <= text.size()) {
        std::uint64_t block = 0;
        std::memcpy(&block, text.data() + end, sizeof block);
        if ((block & highBits) != 0) break;
        end += sizeof block;
    }
    while (end < text.size() && ByteAt(text, end) < 0x80)
        ++end;
    return end - position;
}

/// A character beyond ASCII.
void AppendUtf8(std::string& text, char32_t character) {
    int tailBits = character < 0x800 ? 6 : character < 0x10000 ? 12 : 18;
    const char32_t lead = tailBits == 6 ? 0xC0 : tailBits == 12 ? 0xE0 : 0xF0;
    text.push_back(static_cast<char>(lead | (character >> tailBits)));
    while ((tailBits -= 6) >= 0)
        text.push_back(static_cast<char>(0x80 | ((character >> tailBits) & 0x3F)));
}

constexpr char16_t HighSurrogates = 0xD800;
constexpr char16_t LowSurrogates = 0xDC00;

constexpr bool IsSurrogate(char16_t unit, char16_t half) noexcept { return (unit & 0xFC00) == half; }

constexpr char UpperAscii(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool SameIgnoringCase(char a, char b) noexcept { return UpperAscii(a) == UpperAscii(b); }

/// The position at which the first `units` UTF-16 units end, before a character that does not fit whole.
/// `units` gets what is left of the count: 1 where a character was not to be split, or more than the text
/// holds.
std::size_t Advance(std::string_view text, std::size_t& units) noexcept {
    std::size_t position = 0;
    while (position < text.size() && units > 0) {
        // Looks no further than the units wanted, so that taking chunk after chunk of a text stays linear.
        const std::size_t ascii = AsciiRun(text.substr(position, units), 0);
        if (ascii > 0) {
            position += ascii;
            units -= ascii;
            continue;
        }
        const Decoded next = Decode(text, position);
        if (next.Units() > units) break;
        position += next.bytes;
        units -= next.Units();
    }
    return position;
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
    std::u16string result;
    result.reserve(utf8.size());
    std::size_t position = 0;
    while (position < utf8.size()) {
        if (const std::size_t ascii = AsciiRun(utf8, position); ascii > 0) {
            const std::string_view run = utf8.substr(position, ascii);
            result.append(run.begin(), run.end());
            position += ascii;
            continue;
        }
        const Decoded next = Decode(utf8, position);
        if (next.Units() == 2) {
            const char32_t offset = next.character - 0x10000;
            result.push_back(static_cast<char16_t>(HighSurrogates + (offset >> 10)));
            result.push_back(static_cast<char16_t>(LowSurrogates + (offset & 0x3FF)));
        } else {
            result.push_back(static_cast<char16_t>(next.character));
        }
        position += next.bytes;
    }
    return result;
}

std::string ToUtf8(std::u16string_view utf16) {
    std::string result;
    result.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const char16_t unit = utf16[i];
        if (IsSurrogate(unit, HighSurrogates) && i + 1 < utf16.size() &&
            IsSurrogate(utf16[i + 1], LowSurrogates)) {
            const char32_t high = unit & 0x3FFU;
            const char32_t low = utf16[++i] & 0x3FFU;
            AppendUtf8(result, 0x10000 + (high << 10) + low);
        } else if (IsSurrogate(unit, HighSurrogates) || IsSurrogate(unit, LowSurrogates)) {
            AppendUtf8(result, ReplacementCharacter);
        } else if (unit < 0x80) {
            result.push_back(static_cast<char>(unit));
        } else {
            AppendUtf8(result, unit);
        }
    }
    return result;
}

std::size_t Length(std::string_view text) noexcept {
    std::size_t units = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t ascii = AsciiRun(text, position);
        units += ascii;
        position += ascii;
        if (position == text.size()) break;
        const Decoded next = Decode(text, position);
        units += next.Units();
        position += next.bytes;
    }
    return units;
}

std::string_view Left(std::string_view text, std::size_t units) noexcept {
    return text.substr(0, Advance(text, units));
}

std::string_view Right(std::string_view text, std::size_t units) noexcept {
    const std::size_t length = Length(text);
    if (length <= units) return text;
    std::size_t skip = length - units;
    std::size_t start = Advance(text, skip);
    if (skip > 0) start += Decode(text, start).bytes;
    return text.substr(start);
}

std::string_view Trim(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) noexcept {
    // Names mostly agree in case as well, which is told at once.
    return a == b || (a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), SameIgnoringCase));
}

bool ContainsIgnoreCase(std::string_view text, std::string_view part) noexcept {
    return part.empty() ||
           std::search(text.begin(), text.end(), part.begin(), part.end(), SameIgnoringCase) != text.end();
}

std::string ToUpperAscii(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), UpperAscii);
    return result;
}

std::string Readable(std::string_view text, std::size_t units) {
    constexpr std::string_view omission = "...";
    if (Length(text) > units) {
        const std::size_t kept = units - std::min(units, omission.size());
        const std::string_view end = Right(text, kept / 3);
        return Readable(Left(text, kept - kept / 3), units).append(omission).append(Readable(end, units));
    }
    std::string shown;
    shown.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' || c == '\n' || c == '\t') {
            if (!shown.empty() && !shown.ends_with(' ') && i + 1 < text.size()) shown += ' ';
        } else if (static_cast<unsigned char>(c) < 0x20 || c == '\x7F') {
            constexpr std::string_view digits = "0123456789abcdef";
            shown.append("\\u00");
            shown += digits[static_cast<unsigned char>(c) >> 4U];
            shown += digits[static_cast<unsigned char>(c) & 0xFU];
        } else if (c != ' ' || i == 0 || (text[i - 1] != '\n' && text[i - 1] != '\t')) {
            shown += c;
        }
    }
    return shown;
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t shownUnits = 40;
    return '"' + Readable(text, shownUnits) + '"';
}

std::string AddSentence(std::string text, std::string_view sentence) {
    if (text.empty() || sentence.empty()) return text.append(sentence);
    const bool ended = text.ends_with('.') || text.ends_with('!') || text.ends_with('?');
    return text.append(ended ? " " : ". ").append(sentence);
}

}  // namespace korvex::automation
