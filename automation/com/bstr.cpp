#include "automation/com/bstr.h"

#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>

namespace korvex::com {

namespace {

constexpr char Tail(unsigned bits) noexcept { return static_cast<char>(0x80 | (bits & 0x3F)); }

/// Starts what stands for an odd byte: a character beyond the last one of Unicode, plus the byte.
constexpr std::string_view OddByteLead = "\xF4\x90";
constexpr std::size_t OddByteSize = 4;

std::string OddByteText(unsigned byte) { return std::string(OddByteLead) + Tail(byte >> 6) + Tail(byte); }

bool EndsWithOddByte(std::string_view text) noexcept {
    return text.size() >= OddByteSize && text.substr(text.size() - OddByteSize).starts_with(OddByteLead);
}

constexpr bool IsHalf(wchar_t unit, unsigned half) noexcept { return (unit & 0xFC00u) == half; }

/// The first surrogate from `start` on that has no partner.
std::size_t FindLoneSurrogate(std::wstring_view text, std::size_t start) noexcept {
    for (std::size_t i = start; i < text.size(); ++i) {
        if (IsHalf(text[i], 0xDC00)) return i;
        if (!IsHalf(text[i], 0xD800)) continue;
        if (i + 1 == text.size() || !IsHalf(text[i + 1], 0xDC00)) return i;
        ++i;
    }
    return text.npos;
}

bool IsSurrogateAt(std::string_view utf8, std::size_t position) noexcept {
    const std::string_view bytes = utf8.substr(position, 3);
    return bytes.size() == 3 && (bytes[1] & 0xE0) == 0xA0 && (bytes[2] & 0xC0) == 0x80;
}

void AppendUtf16(std::wstring& text, std::string_view utf8) {
    const std::u16string units = automation::ToUtf16(utf8);
    text.append(units.begin(), units.end());
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
    std::wstring text;
    std::size_t done = 0;
    for (auto i = utf8.find('\xED'); i != utf8.npos; i = utf8.find('\xED', i + 1)) {
        if (!IsSurrogateAt(utf8, i)) continue;
        AppendUtf16(text, utf8.substr(done, i - done));
        text += static_cast<wchar_t>(0xD000 | (utf8[i + 1] & 0x3F) << 6 | (utf8[i + 2] & 0x3F));
        done = i + 3;
    }
    AppendUtf16(text, utf8.substr(done));
    return text;
}

std::string FromWide(std::wstring_view text) {
    std::string utf8;
    std::size_t start = 0;
    for (;;) {
        const std::size_t lone = FindLoneSurrogate(text, start);
        const std::wstring_view part = text.substr(start, lone - start);
        utf8 += automation::ToUtf8(std::u16string(part.begin(), part.end()));
        if (lone == text.npos) return utf8;
        utf8 += {'\xED', Tail(text[lone] >> 6), Tail(text[lone])};
        start = lone + 1;
    }
}

std::string FromBstr(const OLECHAR* text) {
    if (text == nullptr) return {};
    const UINT size = SysStringByteLen(const_cast<BSTR>(text));
    std::string utf8 = FromWide({text, size / sizeof(OLECHAR)});
    if (size % 2 != 0) utf8 += OddByteText(reinterpret_cast<const std::uint8_t*>(text)[size - 1]);
    return utf8;
}

BSTR ToBstr(std::string_view utf8) {
    const bool isOdd = EndsWithOddByte(utf8);
    const std::wstring units = ToWide(utf8.substr(0, utf8.size() - (isOdd ? OddByteSize : 0)));
    const std::size_t size = units.size() * sizeof(wchar_t);
    BSTR text = SysAllocStringByteLen(nullptr, static_cast<UINT>(size + (isOdd ? 1 : 0)));
    if (text == nullptr) throw automation::Error(automation::OutOfMemory);
    std::copy(units.begin(), units.end(), text);
    if (isOdd) {
        const auto last = static_cast<unsigned>((utf8.end()[-2] & 0x3) << 6 | (utf8.end()[-1] & 0x3F));
        reinterpret_cast<std::uint8_t*>(text)[size] = static_cast<std::uint8_t>(last);
    }
    return text;
}

}  // namespace korvex::com
