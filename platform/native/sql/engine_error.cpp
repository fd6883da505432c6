#include "platform/native/sql/engine_error.h"

#include "automation/text.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace korvex::native::sql {

namespace {

constexpr std::size_t LongestMessage = 500;
constexpr std::size_t LongestContext = 160;

/// What a failure means that no statement is to blame for, and what to do about it.
struct Meaning {
    ErrorKind kind;
    std::string_view text;
};

constexpr std::array Meanings = {
    Meaning{ErrorKind::Locked, "The data is locked by another user, try again when that work is done"},
    Meaning{ErrorKind::ReadOnly, "The database cannot be written, check its mode and the rights to it"},
    Meaning{ErrorKind::NoRights, "The user lacks the right to do this"},
    Meaning{ErrorKind::DiskFull, "The disk is full, make room and try again"},
    Meaning{ErrorKind::DiskFailed, "The database cannot be read or written, check its disk"},
    Meaning{ErrorKind::ConnectionLost, "The connection was lost, connect again"},
    Meaning{ErrorKind::LoginRefused, "The user or the password is refused"},
};

std::string_view MeaningOf(ErrorKind kind) noexcept {
    const auto* found = std::ranges::find(Meanings, kind, &Meaning::kind);
    return found == Meanings.end() ? std::string_view() : found->text;
}

}  // namespace

std::string ReadableStatement(std::string_view text) { return automation::Readable(text, LongestContext); }

std::string DescribeFailure(const EngineError& error, std::string_view context) {
    const std::string words = automation::Readable(error.what(), LongestMessage);
    std::string text(MeaningOf(error.Kind()));
    if (!text.empty()) {
        if (!error.Database().empty()) {
            text.append(": ").append(automation::Readable(error.Database(), LongestContext));
        }
        return text.append(" (").append(words).append(")");
    }
    text = words;
    if (!text.empty()) {
        text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    }
    if (context.empty()) context = error.Database();
    if (context.empty() || automation::ContainsIgnoreCase(error.what(), context)) return text;
    return text.append(" (").append(ReadableStatement(context)).append(")");
}

}  // namespace korvex::native::sql
