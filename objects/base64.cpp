#include "objects/base64.h"

#include <cstdint>

namespace korvex::objects {

namespace {

constexpr std::string_view Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string ToBase64(const automation::Bytes& data) {
    std::string text;
    text.reserve((data.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < data.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, data.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? data[i + k] : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? Alphabet[group >> (18 - 6 * k) & 63u] : '=';
    }
    return text;
}

std::optional<automation::Bytes> FromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    text.remove_suffix(padding);
    automation::Bytes data;
    data.reserve(text.size() * 3 / 4);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        const auto digit = Alphabet.find(c);
        if (digit == std::string_view::npos) return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        data.push_back(static_cast<std::uint8_t>(bits >> count & 255u));
    }
    const bool hasStrayBits = (bits & ((1u << count) - 1)) != 0;
    return hasStrayBits ? std::nullopt : std::optional(std::move(data));
}

}  // namespace korvex::objects
