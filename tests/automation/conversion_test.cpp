#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/outcome.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <tuple>

namespace korvex::automation {
namespace {

struct Conversion {
    Variant from;
    VarType to;
    const char* outcome;
};

void Check(std::initializer_list<Conversion> conversions) {
    for (const Conversion& conversion : conversions) {
        EXPECT_EQ(OutcomeOf([&] { return ChangeType(conversion.from, conversion.to); }), conversion.outcome)
            << "from " << Describe(conversion.from) << " to type " << static_cast<int>(conversion.to);
    }
}

TEST(Conversion, FractionsRoundHalfToEven) {
    Check({
        {0.5, VarType::Long, "Long 0"},
        {1.5, VarType::Long, "Long 2"},
        {2.5, VarType::Long, "Long 2"},
        {-2.5, VarType::Long, "Long -2"},
        {-3.5, VarType::Integer, "Integer -4"},
        {2.5000001, VarType::Byte, "Byte 3"},
        {3.5F, VarType::LongLong, "LongLong 4"},
        {Date{45000.5}, VarType::Long, "Long 45000"},
        {Currency{25000}, VarType::Long, "Long 2"},
        {Currency{35000}, VarType::Long, "Long 4"},
        {Currency{-25001}, VarType::Long, "Long -3"},
        {Currency{-5000}, VarType::Long, "Long 0"},
        {"2.5", VarType::Long, "Long 2"},
        {"2.50000000000000000001", VarType::Long, "Long 3"},
        {"-35e-1", VarType::Long, "Long -4"},
        {".5", VarType::Byte, "Byte 0"},
        {0.00005, VarType::Currency, "Currency units 0"},
        {0.03125, VarType::Currency, "Currency units 312"},
        {0.09375, VarType::Currency, "Currency units 938"},
        {"0.00025", VarType::Currency, "Currency units 2"},
    });
}

TEST(Conversion, NumbersOutsideTheTargetOverflow) {
    constexpr auto notANumber = std::numeric_limits<double>::quiet_NaN();
    Check({
        {-0.5, VarType::Byte, "Byte 0"},
        {-0.51, VarType::Byte, "error 6"},
        {255.49, VarType::Byte, "Byte 255"},
        {255.5, VarType::Byte, "error 6"},
        {-1, VarType::Byte, "error 6"},
        {"256", VarType::Byte, "error 6"},
        {-32768.5, VarType::Integer, "Integer -32768"},
        {32767.5, VarType::Integer, "error 6"},
        {32768, VarType::Integer, "error 6"},
        {-2147483648.5, VarType::Long, "Long -2147483648"},
        {2147483647.49, VarType::Long, "Long 2147483647"},
        {2147483647.5, VarType::Long, "error 6"},
        {"2147483648", VarType::Long, "error 6"},
        {"-2147483648", VarType::Long, "Long -2147483648"},
        {std::int64_t{1} << 31, VarType::Long, "error 6"},
        {9223372036854775807.0, VarType::LongLong, "error 6"},
        {-9223372036854775808.0, VarType::LongLong, "LongLong -9223372036854775808"},
        {"9223372036854775807.4", VarType::LongLong, "LongLong 9223372036854775807"},
        {"9223372036854775807.5", VarType::LongLong, "error 6"},
        {"-9223372036854775808.5", VarType::LongLong, "LongLong -9223372036854775808"},
        {"99999999999999999999", VarType::LongLong, "error 6"},
        {"922337203685477.5807", VarType::Currency, "Currency units 9223372036854775807"},
        {"-922337203685477.5808", VarType::Currency, "Currency units -9223372036854775808"},
        {"922337203685477.5808", VarType::Currency, "error 6"},
        {1e15, VarType::Currency, "error 6"},
        {std::int64_t{922337203685478}, VarType::Currency, "error 6"},
        {1e39, VarType::Single, "error 6"},
        {1e-60, VarType::Single, "Single 0"},
        {"1e400", VarType::Double, "error 6"},
        {"-1e-400", VarType::Long, "Long 0"},
        {notANumber, VarType::Long, "error 6"},
        {1e10, VarType::Date, "error 6"},
        {notANumber, VarType::Date, "error 6"},
        {-657434, VarType::Date, "Date -657434"},
        {-657435, VarType::Date, "error 6"},
    });
}

TEST(Conversion, TruthIsMinusOne) {
    Check({
        {true, VarType::Long, "Long -1"},
        {true, VarType::Byte, "Byte 255"},
        {true, VarType::Double, "Double -1"},
        {true, VarType::Currency, "Currency units -10000"},
        {true, VarType::String, "String <True>"},
        {false, VarType::String, "String <False>"},
        {2, VarType::Boolean, "Boolean True"},
        {0.1, VarType::Boolean, "Boolean True"},
        {Currency{1}, VarType::Boolean, "Boolean True"},
        {Date{0}, VarType::Boolean, "Boolean False"},
        {"tRUE", VarType::Boolean, "Boolean True"},
        {"False", VarType::Boolean, "Boolean False"},
        {"0.4", VarType::Boolean, "Boolean True"},
        {"&H0", VarType::Boolean, "Boolean False"},
        {"", VarType::Boolean, "error 13"},
        {"yes", VarType::Boolean, "error 13"},
        {"True", VarType::Long, "error 13"},
    });
}

TEST(Conversion, TextsThatAreNumbers) {
    const auto reads = [](const char* text, double value) { EXPECT_EQ(ParseNumber(text), value) << text; };
    reads(" 12 ", 12);
    reads("\t12\r\n", 12);
    reads("+12", 12);
    reads("- 12", -12);
    reads("12-", -12);
    reads("(12)", -12);
    reads("( 12.5 )", -12.5);
    reads("-$12", -12);
    reads("$1,234,567.25", 1234567.25);
    reads("1,2", 12);
    reads("1.", 1);
    reads(".5", 0.5);
    reads("007", 7);
    reads("0.00", 0);
    reads("1e3", 1000);
    reads("1E-3", 0.001);
    reads("+1.5d+2", 150);
    reads("0.1", 0.1);
    reads("123456789012345678901234567890", 123456789012345678901234567890.0);
    reads("&HfF", 255);
    reads("&o17", 15);
    reads("&HFFFFFFFF", 4294967295.0);
}

TEST(Conversion, TextsThatAreNoNumbers) {
    for (const char* text : {"",
                             " ",
                             "abc",
                             "1a",
                             "1 2",
                             "1 000",
                             "--1",
                             "+-1",
                             "-1-",
                             "1.2.3",
                             ",1",
                             "1.5,2",
                             ".",
                             "-",
                             "e5",
                             "1e",
                             "1e+",
                             "1e5.5",
                             "inf",
                             "-inf",
                             "nan",
                             "0x10",
                             "&",
                             "&H",
                             "&HG",
                             "&17",
                             "&O8",
                             "&H-1",
                             "(1",
                             "1)",
                             "$",
                             "1$$",
                             "12%",
                             "\xC2\xA0"
                             "1",
                             "1\xFF"}) {
        EXPECT_EQ(OutcomeOf([&] { return ParseNumber(text); }), "error 13") << text;
        EXPECT_EQ(OutcomeOf([&] { return ToLong(text); }), "error 13") << text;
        EXPECT_EQ(OutcomeOf([&] { return ToCurrency(text); }), "error 13") << text;
    }
    EXPECT_EQ(OutcomeOf([] { return ToLong(std::string("1\0", 2)); }), "error 13")
        << "a zero character inside";
}

TEST(Conversion, HexAndOctalTextsAreBitPatterns) {
    Check({
        {"&HFFFF", VarType::Integer, "Integer -1"},
        {"&HFFFF", VarType::Long, "Long 65535"},
        {"&H8000", VarType::Integer, "Integer -32768"},
        {"&H10000", VarType::Integer, "error 6"},
        {"&HFFFFFFFF", VarType::Long, "Long -1"},
        {"&HFFFFFFFF", VarType::LongLong, "LongLong 4294967295"},
        {"&H1FFFFFFFF", VarType::Long, "error 6"},
        {"&HFFFFFFFFFFFFFFFF", VarType::LongLong, "LongLong -1"},
        {"&H1FFFFFFFFFFFFFFFF", VarType::LongLong, "error 6"},
        {" &O377 ", VarType::Byte, "Byte 255"},
        {"&H10", VarType::Currency, "Currency units 160000"},
    });
}

TEST(Conversion, NumbersAsText) {
    Check({
        {std::int32_t{-2147483647 - 1}, VarType::String, "String <-2147483648>"},
        {std::numeric_limits<std::int64_t>::min(), VarType::String, "String <-9223372036854775808>"},
        {std::uint8_t{200}, VarType::String, "String <200>"},
        {0.1, VarType::String, "String <0.1>"},
        {-0.0, VarType::String, "String <0>"},
        {0.1 + 0.2, VarType::String, "String <0.3>"},
        {1.0 / 3, VarType::String, "String <0.333333333333333>"},
        {-2.0 / 3, VarType::String, "String <-0.666666666666667>"},
        {1.0 / 30, VarType::String, "String <3.33333333333333E-02>"},
        {0.00001, VarType::String, "String <0.00001>"},
        {1e-15, VarType::String, "String <0.000000000000001>"},
        {1e-16, VarType::String, "String <1E-16>"},
        {100.0, VarType::String, "String <100>"},
        {123456789012345.0, VarType::String, "String <123456789012345>"},
        {999999999999999.9, VarType::String, "String <1E+15>"},
        {1e15, VarType::String, "String <1E+15>"},
        {-1.5e300, VarType::String, "String <-1.5E+300>"},
        {5e-324, VarType::String, "String <4.94065645841247E-324>"},
        {0.1F, VarType::String, "String <0.1>"},
        {1.0F / 3, VarType::String, "String <0.3333333>"},
        {1234567.0F, VarType::String, "String <1234567>"},
        {12345678.0F, VarType::String, "String <1.234568E+07>"},
        {1.0F / 30, VarType::String, "String <3.333334E-02>"},
        {Currency{12500}, VarType::String, "String <1.25>"},
        {Currency{-1}, VarType::String, "String <-0.0001>"},
        {Currency{10000000}, VarType::String, "String <1000>"},
        {Currency{std::numeric_limits<std::int64_t>::min()}, VarType::String,
         "String <-922337203685477.5808>"},
    });
}

TEST(Conversion, NoTargetTakesMissingBytesOrObjects) {
    const auto object = std::make_shared<Collection>();
    const auto sources = std::to_array<std::tuple<Variant, const char*>>({
        {Variant::Null(), "error 94"},
        {Variant::Missing(), "error 13"},
        {Bytes{1, 2}, "error 13"},
        {object, "error 13"},
        {ObjectRef(), "error 13"},
    });
    for (const VarType target :
         {VarType::Boolean, VarType::Byte, VarType::Integer, VarType::Long, VarType::LongLong,
          VarType::Single, VarType::Double, VarType::Currency, VarType::Date, VarType::String}) {
        for (const auto& [source, outcome] : sources)
            Check({{source, target, outcome}});
    }
    Check({
        {Variant(), VarType::Long, "Long 0"},
        {Variant(), VarType::String, "String <>"},
        {Variant(), VarType::Boolean, "Boolean False"},
        {Variant(), VarType::Date, "Date 0"},
        {Variant(), VarType::Object, "error 13"},
        {"x", VarType::Object, "error 13"},
        {ObjectRef(), VarType::Object, "Nothing"},
        {object, VarType::Object, "Object"},
        {Bytes{1, 2}, VarType::Bytes, "Bytes, length 2"},
        {"x", VarType::Bytes, "error 13"},
        {Variant::Missing(), VarType::Variant, "Missing"},
        {Variant::Null(), VarType::Variant, "Null"},
    });
    EXPECT_EQ(OutcomeOf([] { return ToObject(5); }), "error 424");
    EXPECT_EQ(OutcomeOf([] { return ToObject(ObjectRef()); }), "error 91");
    EXPECT_EQ(ToObject(object), object);
}

TEST(Conversion, ErrorsSayWhatDidNotConvert) {
    const auto description = [](const char* text) {
        return tests::ErrorOf([text] { ToLong(text); }).description;
    };
    EXPECT_EQ(description("12 apples"), "Type mismatch: \"12 apples\" is not a number");
    EXPECT_EQ(description("a text of more than forty characters, much more"),
              "Type mismatch: \"a text of more than forty...s, much more\" is not a number");
}

/// Writing with 15 digits and reading again keeps every number that has no more digits than that.
TEST(Conversion, ShortNumbersSurviveTheRoundTripThroughText) {
    double value = 1.37e-300;
    for (int step = 0; step < 600; ++step) {
        const double shortened = ToDouble(ToString(value));
        EXPECT_EQ(ToDouble(ToString(shortened)), shortened);
        EXPECT_NEAR(shortened / value, 1, 1e-14);
        value *= -9.87654321;
    }
}

}  // namespace
}  // namespace korvex::automation
