#include "objects/json.h"

#include "automation/outcome.h"
#include "objects/everything.h"
#include "support/error_of.h"
#include "support/small_stack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvex::objects {
namespace {

using automation::Variant;
using tests::Everything;

std::string ErrorOf(std::string_view text) {
    return tests::ErrorOf([text] { FromJson(Everything(), text); }).Text();
}

constexpr std::string_view WholeText = R"({
  "EverythingID": 7,
  "Integer": -32768,
  "Long": 2147483647,
  "LongLong": 9223372036854775807,
  "Single": 0.1,
  "Double": 0.30000000000000004,
  "Currency": 922337203685477.5807,
  "Date": "2026-11-21T08:30:00.250",
  "String": "Gr\u00fc\u00dfe, \"\ud83d\ude00\"\r\n\u0000",
  "Boolean": true,
  "Byte": 255,
  "Object": {"$base64": "AAEC/w=="},
  "Variant": null,
  "Child": {
    "Name": ""
  },
  "Lines": {
    "Next": 3,
    "$state": {
      "SelectedItem": 2,
      "CounterHolder": -1
    },
    "$items": [
      {
        "LineID": 1,
        "Quantity": 5,
        "$state": {
          "SelectState": 0,
          "Counter": 4
        }
      },
      {}
    ]
  }
}
)";

TEST(Json, GoesThereAndBackExactly) {
    const auto object = FromJson(Everything(), WholeText);
    const std::pair<const char*, Variant> values[] = {
        {"Integer", std::int16_t{-32768}},
        {"LongLong", std::int64_t{9223372036854775807}},
        {"Single", 0.1F},
        {"Double", 0.1 + 0.2},
        {"Currency", automation::Currency{9223372036854775807}},
        {"String", std::string("Gr\u00fc\u00dfe, \"\U0001F600\"\r\n\0", 18)},
        {"Boolean", true},
        {"Byte", std::uint8_t{255}},
        {"Object", automation::Bytes{0, 1, 2, 255}},
        {"Variant", Variant::Null()},
    };
    for (const auto& [name, value] : values)
        EXPECT_EQ(object->Get(name), value) << name;
    const auto lines = object->Child("Lines");
    EXPECT_EQ(lines->LongAttribute(attCounterHolder), -1);
    EXPECT_EQ(lines->Items().at(0)->LongAttribute(attCounter), 4);
    EXPECT_EQ(lines->Items().at(1)->Parent(), lines);
    EXPECT_TRUE(object->Modified());

    const std::string text = ToJson(*object);
    const auto again = FromJson(Everything(), text);
    EXPECT_EQ(ToJson(*again), text);
    for (const auto& [name, value] : values)
        EXPECT_EQ(again->Get(name), value) << name;
    std::string expected(WholeText);
    const std::string escaped = "Gr\\u00fc\\u00dfe, \\\"\\ud83d\\ude00\\\"";
    expected.replace(expected.find("Gr\\u"), escaped.size(), "Gr\u00fc\u00dfe, \\\"\U0001F600\\\"");
    EXPECT_EQ(text, expected);
}

TEST(Json, NumbersMayBeWrittenInOtherWays) {
    const auto object =
        FromJson(Everything(), R"({"Long": 1.0e3, "Single": 2, "Currency": 1.50000, "Double": 1e-400,
                                                   "Variant": 1.5, "Date": "2026-11-21"})");
    EXPECT_EQ(object->Get("Long"), Variant(1000));
    EXPECT_EQ(object->Get("Single"), Variant(2.0F));
    EXPECT_EQ(object->Get("Currency"), Variant(automation::Currency{15'000}));
    EXPECT_EQ(object->Get("Double"), Variant(0.0));
    EXPECT_EQ(object->Get("Variant"), Variant(1.5));
    EXPECT_EQ(object->Get("Date"), Variant(automation::Date{46347}));
    EXPECT_EQ(ToJson(*FromJson(Everything(), "{}")), "{}\n");
}

TEST(Json, ErrorsNameThePlaceAndWhatBelongsThere) {
    const std::pair<const char*, const char*> rows[] = {
        {"",
         "5: line 1, column 1: syntax error while parsing value - unexpected end of input; expected '[', "
         "'{', or a literal"},
        {"{\n  \"Long\": 1,\n  \"\xC3\xBC\": ?",
         "5: line 3, column 8: syntax error while parsing value - invalid "
         "literal; last read: '\"\xC3\xBC\": ?'"},
        {"{\"Long\": 1",
         "5: line 1, column 11: syntax error while parsing object - unexpected end of input; "
         "expected '}'"},
        {"{\"Double\": 1e999}", "5: line 1, column 16: number overflow parsing '1e999'"},
        {"{\"Long\": 1,\n \"Long\": 2}",
         "5: line 2, column 7: the member \"Long\" stands twice in the same object"},
        {"[]", "13: the document: an array where the object Everything belongs."},
        {"{\"Lnog\": 1}",
         "438: Lnog: the definition does not know \"Lnog\"; the nearest name that it "
         "knows is \"Long\"."},
        {"{\"$items\": []}",
         "438: $items: the definition does not know \"$items\"; the nearest name that it knows is "
         "\"Lines\"."},
        {"{\"Long\": \"12\"}",
         "13: Long: a text where a whole number from -2147483648 to 2147483647 belongs."},
        {"{\"Integer\": 1.5}", "13: Integer: 1.5 where a whole number from -32768 to 32767 belongs."},
        {"{\"Integer\": 40000}",
         "6: Integer: 40000 is out of range: a whole number from -32768 to 32767 belongs here."},
        {"{\"Byte\": -1}", "6: Byte: -1 is out of range: a whole number from 0 to 255 belongs here."},
        {"{\"LongLong\": 9223372036854775808}",
         "6: LongLong: 9223372036854775808 is out of range: a whole number from -9223372036854775808 to "
         "9223372036854775807 belongs here."},
        {"{\"Single\": 1e39}", "6: Single: 1e39 is out of range: a number of single precision belongs here."},
        {"{\"Currency\": 0.00001}",
         "13: Currency: 0.00001 where an amount with at most four decimals belongs."},
        {"{\"Currency\": 1e-5}", "13: Currency: 1e-5 where an amount with at most four decimals belongs."},
        {"{\"Currency\": 1e15}",
         "6: Currency: 1e15 is out of range: an amount from -922337203685477.5808 to "
         "922337203685477.5807 belongs here."},
        {"{\"Date\": \"soon\"}", "13: Date: \"soon\" where a date as ISO 8601 text belongs."},
        {"{\"Boolean\": 1}", "13: Boolean: a number where true or false belongs."},
        {"{\"String\": {}}", "13: String: an object where a text belongs."},
        {"{\"Object\": \"AA==\"}", "13: Object: a text where binary data as {\"$base64\": \"...\"} belongs."},
        {"{\"Object\": {\"$base64\": \"AB==\"}}",
         "13: Object: a text that is not base64 where base64 text belongs."},
        {"{\"Child\": null}", "13: Child: null where the object Child belongs."},
        {"{\"Lines\": {\"$items\": {}}}", "13: Lines.$items: an object where an array belongs."},
        {"{\"Lines\": {\"$items\": [{}, {\"Quantity\": true}]}}",
         "13: Lines.$items[1].Quantity: true or false where a whole number from -32768 to 32767 belongs."},
        {"{\"Lines\": {\"$state\": {\"Counter\": 1}}}",
         "438: Lines.$state.Counter: the definition does not know \"Counter\"; the nearest name that it "
         "knows is "
         "\"CounterHolder\"."},
        {"{\"$state\": {\"SelectState\": 32768}}",
         "6: $state.SelectState: 32768 is out of range: a whole number from -32768 to 32767 belongs here."},
        {"{\"$state\": {\"Counter\": null}}", "13: $state.Counter: null where a whole number belongs."},
    };
    for (const auto& [text, error] : rows)
        EXPECT_EQ(ErrorOf(text), error) << text;
}

TEST(Json, AListGivesOneObjectPerItem) {
    EXPECT_EQ(ListFromJson(Everything(), R"([{"Long": 1}, {"Long": 2}])").at(1)->Get("Long"), Variant(2));
    EXPECT_EQ(ListFromJson(Everything(), R"({"Long": 1})").size(), 1U);
    EXPECT_TRUE(ListFromJson(Everything(), "[]").empty());
    const auto textForANumber = [] { ListFromJson(Everything(), R"([{}, {"Long": "x"}])"); };
    EXPECT_THAT(tests::ErrorOf(textForANumber).description, testing::StartsWith("[1].Long: "));
}

TEST(Json, AppliedToAnObjectItChangesWhatItMentions) {
    const auto object = FromJson(Everything(), WholeText);
    const auto lines = object->Child("Lines");
    const auto first = lines->Items().at(0);
    for (const auto& part : {object, object->Child("Child"), lines, first})
        part->Modified(false);

    ApplyJson(*object, R"({"Child": {"Name": ""}, "Lines": {"$items": [{"Quantity": 9}, {"LineID": 1}]}})");
    EXPECT_FALSE(object->Modified());
    EXPECT_FALSE(object->Child("Child")->Modified());
    EXPECT_FALSE(first->Modified());
    EXPECT_TRUE(lines->Modified());
    ASSERT_EQ(lines->Items().size(), 2U);
    EXPECT_EQ(lines->Items().at(1), first);
    EXPECT_EQ(first->Get("Quantity"), Variant(std::int16_t{5}));
    EXPECT_EQ(object->Get("Integer"), Variant(std::int16_t{-32768}));

    lines->Modified(false);
    ApplyJson(*object, R"({"Lines": {"$items": [{"Quantity": 9}, {"LineID": 1}]}})");
    EXPECT_EQ(lines->Items().size(), 2U);  // the element without a key is a new one again
    EXPECT_TRUE(lines->Modified());
    ApplyJson(*object, R"({"Lines": {"$items": [{"LineID": 1.0}, {"LineID": 0}, {"LineID": 0}]}})");
    EXPECT_EQ(lines->Items().size(), 3U);
    EXPECT_EQ(lines->Items().at(0), first);  // however its number is written; and 0 is the key of none
    for (const std::string items : {R"({"LineID": 1}, {"LineID": 1.0})", R"({"LineID": 7}, {"LineID": 7})"})
        EXPECT_THAT(
            tests::ErrorOf([&] { ApplyJson(*object, R"({"Lines": {"$items": [)" + items + "]}}"); }).Text(),
            testing::StartsWith("457: Lines.$items[1]: an item before it has the same key, "));
}

TEST(Json, NamesWhatIsNotStored) {
    const auto part = [](bool isIncluded) {
        auto definition = std::make_shared<Definition>("Part", "tPart", isIncluded);
        definition->AddValue({"Name", "Name"});
        definition->AddValue({"Note", ""});
        definition->AddValue({"Left", "Left", 8, false});
        return definition;
    };
    auto definition = part(true);
    definition->AddChild("Kept", part(true));
    definition->AddChild("Out", part(false));
    definition->ElementDefinition(part(false));
    UnstoredMembers unstored;
    constexpr auto text = R"({"Name": "a", "Note": "b", "Left": null, "Kept": {"Left": "c"},
        "Out": {"Note": "d"}, "$items": [{"Name": "e"}, {"Note": "f"}]})";
    FromJson(definition, text, &unstored);
    EXPECT_THAT(unstored, testing::ElementsAre("Note", "Kept.Left", "Out", "$items"));
    ListFromJson(definition, "[" + std::string(text) + ", {\"Left\": \"\"}]", &unstored);
    EXPECT_THAT(unstored, testing::ElementsAre("Note", "Kept.Left", "Out", "$items", "Left"));
}

TEST(Json, NestingHasALimitInsteadOfACrash) {
    constexpr std::size_t deep = 50'000;
    auto definition = std::make_shared<Definition>("Level", "");
    for (std::size_t i = 0; i < deep; ++i) {
        auto above = std::make_shared<Definition>("Level", "");
        above->AddChild("n", std::move(definition));
        definition = std::move(above);
    }
    const auto nested = [](std::size_t levels) {
        std::string text;
        for (std::size_t i = 0; i < levels; ++i)
            text += "{\"n\":";
        return text + "{}" + std::string(levels, '}');
    };
    tests::RunOnSmallStacks([&] {
        EXPECT_THAT(ToJson(*FromJson(definition, nested(500))), testing::EndsWith("}\n}\n"));
        EXPECT_EQ(tests::ErrorOf([&] { FromJson(definition, nested(deep)); }), automation::OutOfStackSpace);
    });
    EXPECT_THROW(FromJson(definition, std::string(1'000'000, '[')), automation::Error);
}

}  // namespace
}  // namespace korvex::objects
