#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text helpers. Text is UTF-8 throughout the library; every length and position that the system speaks of
/// counts UTF-16 units, as the automation runtime's strings do.
namespace korvex::automation {

inline constexpr std::string_view CrLf = "\r\n";

constexpr bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// Conversions at the COM and ODBC edges; ill-formed input becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

/// Length in UTF-16 units.
std::size_t Length(std::string_view text) noexcept;
/// The first or last `units` UTF-16 units (all of it when it is shorter). A character outside the basic plane
/// that the cut would split is left out whole.
std::string_view Left(std::string_view text, std::size_t units) noexcept;
std::string_view Right(std::string_view text, std::size_t units) noexcept;

/// Without the blanks (U+0020 only) at both ends.
std::string_view Trim(std::string_view text) noexcept;

/// Comparison that ignores the case of ASCII letters; names of members, fields and keys compare so.
bool EqualsIgnoreCase(std::string_view a, std::string_view b) noexcept;
bool ContainsIgnoreCase(std::string_view text, std::string_view part) noexcept;
std::string ToUpperAscii(std::string_view text);

/// The text as a message shows it, in one line: a line break with the blanks around it is one blank, other
/// control characters are escaped as in JSON, and "..." stands for the middle of what is longer than `units`.
std::string Readable(std::string_view text, std::size_t units);
/// A name or value in double quotes, for an error description: readable, at most 40 units.
std::string Quoted(std::string_view text);
/// `text` and a further sentence behind it; either may be empty.
std::string AddSentence(std::string text, std::string_view sentence);

}  // namespace korvex::automation
