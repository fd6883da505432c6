#include "automation/convert.h"
#include "automation/outcome.h"

#include <gtest/gtest.h>

#include <string>

namespace korvex::automation {
namespace {

struct DateForms {
    double days;
    const char* text;
    const char* iso;
};

TEST(Date, IsWrittenAndReadBackInBothForms) {
    const DateForms forms[] = {
        {0, "12:00:00 AM", "1899-12-30"},
        {0.5, "12:00:00 PM", "1899-12-30T12:00:00"},
        {0.25, "6:00:00 AM", "1899-12-30T06:00:00"},
        {1, "12/31/1899", "1899-12-31"},
        {-1, "12/29/1899", "1899-12-29"},
        {-1.25, "12/29/1899 6:00:00 AM", "1899-12-29T06:00:00"},
        {60, "2/28/1900", "1900-02-28"},
        {46347, "11/21/2026", "2026-11-21"},
        {46347 + 8.5 / 24, "11/21/2026 8:30:00 AM", "2026-11-21T08:30:00"},
        {45351, "2/29/2024", "2024-02-29"},
        {-657434, "1/1/100", "0100-01-01"},
        {2958465.75, "12/31/9999 6:00:00 PM", "9999-12-31T18:00:00"},
    };
    for (const DateForms& form : forms) {
        const Date date{form.days};
        EXPECT_EQ(ToString(date), form.text);
        EXPECT_EQ(FormatIsoDate(date), form.iso);
        EXPECT_EQ(ToDate(form.text), date) << form.text;
        EXPECT_EQ(ToDate(form.iso), date) << form.iso;
        EXPECT_EQ(ParseIsoDate(form.iso), date) << form.iso;
    }
}

TEST(Date, TimesRoundToTheSecondInTextAndToTheMillisecondInIso) {
    const Date almostMidnight{46347 - 1e-7};  // a hundredth of a second before
    EXPECT_EQ(ToString(almostMidnight), "11/21/2026");
    EXPECT_EQ(FormatIsoDate(almostMidnight), "2026-11-20T23:59:59.991");
    EXPECT_EQ(FormatIsoDate(ParseIsoDate("2026-11-21T08:30:00.250")), "2026-11-21T08:30:00.250");
    EXPECT_EQ(FormatIsoDate(ParseIsoDate("1850-01-02 23:59:59.9")), "1850-01-02T23:59:59.900");
    for (const double days :
         {46347 - 1e-7, 46347 - 1e-9, 46347.123456789, -1.99999999999, -18256.7654321, -0.25, 0.0})
        EXPECT_EQ(ToMilliseconds(Date{days}), ParseIsoDate(FormatIsoDate(Date{days}))) << days;
}

TEST(Date, LooseTextsAreRead) {
    const auto reads = [](const char* text, const char* iso) {
        EXPECT_EQ(OutcomeOf([&] { return FormatIsoDate(ToDate(text)); }), "String <" + std::string(iso) + ">")
            << text;
    };
    reads(" 11/21/2026 ", "2026-11-21");
    reads("1-2-2026", "2026-01-02");
    reads("21/11/2026", "2026-11-21");
    reads("2026/11/21", "2026-11-21");
    reads("11/2026", "2026-11-01");
    reads("1/2/29", "2029-01-02");
    reads("1/2/30", "1930-01-02");
    reads("Nov 21, 2026", "2026-11-21");
    reads("21 november 2026", "2026-11-21");
    reads("21-Nov-99", "1999-11-21");
    reads("2026 Nov 21", "2026-11-21");
    reads("November 2026", "2026-11-01");
    reads("11/21/2026 8:30PM", "2026-11-21T20:30:00");
    reads("8:30:15 11/21/2026", "2026-11-21T08:30:15");
    reads("11/21/2026 12:05 am", "2026-11-21T00:05:00");
    reads("8 PM", "1899-12-30T20:00:00");
    reads("23:59", "1899-12-30T23:59:00");
}

TEST(Date, OtherTextsAreRefused) {
    for (const char* text : {"",
                             "12",
                             "1.5",
                             "abc",
                             "Nov",
                             "11/21",
                             "13/13/2026",
                             "2/29/2025",
                             "2026-02-30",
                             "2026-13-01",
                             "1/1/99999999999",
                             "257/1/2026",
                             "0/1/2026",
                             "11//21/2026",
                             "11/21/2026/",
                             "/11/21/2026",
                             "1/2/3/4",
                             "24:00",
                             "8:60",
                             "8:30:60",
                             "8:",
                             ":30",
                             "8:30 8:30",
                             "13:00 AM",
                             "PM",
                             "2026-11-21T",
                             "2026-11-21T08",
                             "2026-11-21T08:30:00Z",
                             "Nov Dec 2026",
                             "1/1/50 BC"}) {
        EXPECT_EQ(OutcomeOf([&] { return ToDate(text); }), "error 13") << text;
    }
    for (const char* text :
         {"11/21/2026", "2026-1-2", "2026-11-21 8:30", " 2026-11-21", "0099-01-01", "2026-11-21T08:30:00."}) {
        EXPECT_EQ(OutcomeOf([&] { return ParseIsoDate(text); }), "error 13") << text;
    }
    EXPECT_EQ(OutcomeOf([] { return ToString(Date{1e300}); }), "error 6");
    EXPECT_EQ(OutcomeOf([] { return FormatIsoDate(Date{-657435}); }), "error 6");
}

}  // namespace
}  // namespace korvex::automation
