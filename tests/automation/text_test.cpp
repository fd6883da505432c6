#include "automation/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korvex::automation {
namespace {

struct EncodedText {
    const char* utf8;
    std::u16string utf16;
};

TEST(Text, ConvertsBetweenTheEncodings) {
    const EncodedText texts[] = {
        {"", u""},
        {"plain text of some length", u"plain text of some length"},
        {"Gr\xC3\xB6\xC3\x9F"
         "e",
         u"Gr\u00F6\u00DFe"},
        {"\xE2\x82\xAC", u"\u20AC"},
        {"\xF0\x9D\x84\x9E.", u"\U0001D11E."},
        {"\xEF\xBF\xBF\xF4\x8F\xBF\xBF", u"\uFFFF\U0010FFFF"},
    };
    for (const EncodedText& text : texts) {
        EXPECT_EQ(ToUtf16(text.utf8), text.utf16);
        EXPECT_EQ(ToUtf8(text.utf16), text.utf8);
        EXPECT_EQ(Length(text.utf8), text.utf16.size());
    }
}

TEST(Text, MessagesShowTextsInOneReadableLine) {
    const struct {
        std::string text;
        std::size_t units;
        std::string shown;
    } cases[] = {
        {"", 10, ""},
        {"a\r\n\t b\n", 10, "a b"},
        {"select  *", 10, "select  *"},
        {"a\x1b[31m\x07 \x7f", 20, "a\\u001b[31m\\u0007 \\u007f"},
        {std::string("a\0b", 3), 10, "a\\u0000b"},
        {"0123456789abc", 13, "0123456789abc"},
        {"0123456789abcd", 13, "0123456...bcd"},
        {std::string(8'000'000, 'x') + "y", 12, "xxxxxx...xxy"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Readable(each.text, each.units), each.shown);
    EXPECT_EQ(AddSentence("One", "Two."), "One. Two.");
    EXPECT_EQ(AddSentence("One?", "Two."), "One? Two.");
    EXPECT_EQ(AddSentence("", "Two."), "Two.");
    EXPECT_EQ(AddSentence("One.", ""), "One.");
}

TEST(Text, IllFormedInputBecomesReplacementCharacters) {
    const EncodedText texts[] = {
        {"a\x80z", u"a\uFFFDz"},                            // a continuation alone
        {"\xC0\xAF", u"\uFFFD\uFFFD"},                      // overlong
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},            // overlong
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // an encoded surrogate
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
        {"\xF0\x9D\x84", u"\uFFFD"},                        // cut off
        {"\xE2\x82z", u"\uFFFDz"},                          // broken off
        {"\xFF\xFE", u"\uFFFD\uFFFD"},
    };
    for (const EncodedText& text : texts) {
        EXPECT_EQ(ToUtf16(text.utf8), text.utf16);
        EXPECT_EQ(Length(text.utf8), text.utf16.size()) << "the length must agree with the conversion";
    }
    for (const std::u16string& lone :
         {std::u16string(1, char16_t{0xD834}), std::u16string(1, char16_t{0xDD1E})}) {
        EXPECT_EQ(ToUtf8(lone), "\xEF\xBF\xBD");
        EXPECT_EQ(ToUtf8(lone + u"x"), "\xEF\xBF\xBDx");
    }
}

TEST(Text, CutsByUtf16UnitsAndNeverThroughACharacter) {
    // a, o umlaut, a character of two units, z: 1 + 1 + 2 + 1 units.
    constexpr std::string_view text = "a\xC3\xB6\xF0\x9D\x84\x9Ez";
    const std::string_view lefts[] = {"",   "a", "a\xC3\xB6", "a\xC3\xB6", "a\xC3\xB6\xF0\x9D\x84\x9E",
                                      text, text};
    const std::string_view rights[] = {"",   "z", "z", "\xF0\x9D\x84\x9Ez", "\xC3\xB6\xF0\x9D\x84\x9Ez",
                                       text, text};
    for (std::size_t units = 0; units < std::size(lefts); ++units) {
        EXPECT_EQ(Left(text, units), lefts[units]) << units;
        EXPECT_EQ(Right(text, units), rights[units]) << units;
    }
    constexpr std::string_view longName = "CustomerOrderPositionDetailHistory";
    EXPECT_EQ(Left(longName, 13), "CustomerOrder");
    EXPECT_EQ(Right(longName, 30), "omerOrderPositionDetailHistory");
}

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim("\t a"), "\t a");
}

TEST(Text, ComparesWithoutTheCaseOfAsciiLetters) {
    EXPECT_TRUE(EqualsIgnoreCase("FKPrefix_1", "fkpREFIX_1"));
    EXPECT_FALSE(EqualsIgnoreCase("abc", "abcd"));
    EXPECT_FALSE(EqualsIgnoreCase("[", "{")) << "32 apart, as letters of two cases are";
    EXPECT_FALSE(EqualsIgnoreCase("\xC3\xB6", "\xC3\x96"));
    EXPECT_TRUE(ContainsIgnoreCase("driver=x;dsn=Data", "DSN="));
    EXPECT_TRUE(ContainsIgnoreCase("", ""));
    EXPECT_FALSE(ContainsIgnoreCase("dsn", "dsn="));
    EXPECT_EQ(ToUpperAscii("a\xC3\xB6z{"), "A\xC3\xB6Z{");
}

}  // namespace
}  // namespace korvex::automation
