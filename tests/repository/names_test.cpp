#include "repository/names.h"

#include "repository/name_list.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace korvex::repository {
namespace {

TEST(LimitNameLengthTest, KeepsTheEndOfNamesThatAreTooLong) {
    const std::string thirtyFive = "ABCDEabcdefghijklmnopqrstuvwxyz1234";
    struct Case {
        std::string name;
        std::int16_t reserve;
        std::string expected;
    };
    const Case cases[] = {
        {"Customer", 0, "Customer"},
        {thirtyFive.substr(5), 0, thirtyFive.substr(5)},
        {thirtyFive, 0, thirtyFive.substr(5)},
        {thirtyFive, 4, thirtyFive.substr(9)},
        {thirtyFive, -5, thirtyFive},
        {thirtyFive, 30, ""},
        // Thirty characters of two bytes, and fifteen that count twice.
        {"üäöüäöüäöüäöüäöüäöüäöüäöüäöüäö", 0, "üäöüäöüäöüäöüäöüäöüäöüäöüäöüäö"},
        {"x😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀", 0, "😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(LimitNameLength(test.name, test.reserve), test.expected)
            << test.name << " with reserve " << test.reserve;
    }
}

TEST(LimitNameLengthTest, RefusesReservesBeyondItsRange) {
    const auto errorFor = [](std::int16_t reserve) {
        return tests::ErrorOf([reserve] { LimitNameLength("Customer", reserve); });
    };
    EXPECT_EQ(errorFor(31), automation::InvalidProcedureCall);
    EXPECT_EQ(errorFor(-32737), 0);
    EXPECT_EQ(errorFor(-32738), automation::Overflow);
}

TEST(NamesTest, TellIdentifiersFromSqlText) {
    const struct {
        std::string name;
        bool isIdentifier;
        std::string mark;
    } cases[] = {
        {"Customer", true, ""},
        {"_a1$#", true, ""},
        {"Größe", true, ""},
        {"Заказ", true, ""},
        {"注文", true, ""},
        {"हिन्दी", true, ""},
        {"𐐀b", true, ""},
        {"", false, ""},
        {"1st", false, ""},
        {"Unit price", false, ""},
        {"a\xC2\xA0z", false, ""},
        {"a–b", false, ""},
        {"😀", false, ""},
        {"a,b", false, ""},
        {"a-b", false, ""},
        {"a--b", false, "\"--\""},
        {"a/*", false, "\"/*\""},
        {"a;b", false, "\";\""},
        {"a=b", false, "\"=\""},
        {"[a]", false, "a bracket"},
        {"a)", false, "a bracket"},
        {"{a", false, "a bracket"},
        {"a'", false, "a quote"},
        {"\"a\"", false, "a quote"},
        {"`a`", false, "a quote"},
        {"a\nb", false, "a control character"},
        {"a\x7F", false, "a control character"},
        {"a\xC2\x85", false, "a control character"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(IsIdentifier(test.name), test.isIdentifier) << test.name;
        EXPECT_EQ(FindSqlMark(test.name), test.mark) << test.name;
    }
}

TEST(NamesTest, TablesOfAnObjectMayBeNumbered) {
    const std::string forty = "AnObjectWhoseNameIsFortyCharactersLong40";
    for (const std::string table : {"tOrder line", "tOrder line2", "tOrder line32767"})
        EXPECT_TRUE(IsTableNameOf(table, "Order line")) << table;
    for (const std::string table :
         {"", "7", "Order line", "tOrder lines", "tOrder line 2", "tOrder line123456"})
        EXPECT_FALSE(IsTableNameOf(table, "Order line")) << table;
    for (const char* number : {"", "2", "345"})
        EXPECT_TRUE(IsTableNameOf(TableName(forty + number), forty)) << number;
}

TEST(NameListTest, NumbersNamesThatAreTaken) {
    NameList names;
    std::vector<std::string> given;
    for (const char* name :
         {"Customer", "Customer", "customer", "Customer2", "Customer", "Customer2", "Customer"}) {
        given.push_back(names.MakeUniqueName(name));
    }
    EXPECT_EQ(given, (std::vector<std::string>{"Customer", "Customer2", "customer", "Customer22", "Customer3",
                                               "Customer23", "Customer4"}));
    EXPECT_TRUE(names.IsNameTaken("Customer3"));
    EXPECT_FALSE(names.IsNameTaken("Customer5"));
}

TEST(NameListTest, NumbersEndAtSixteenBits) {
    NameList names;
    names.MakeUniqueName("Node");
    for (int number = 2; number <= std::numeric_limits<std::int16_t>::max(); ++number) {
        ASSERT_EQ(names.MakeUniqueName("Node"), "Node" + std::to_string(number));
    }
    EXPECT_EQ(tests::ErrorOf([&] { names.MakeUniqueName("Node"); }), automation::Overflow);
}

}  // namespace
}  // namespace korvex::repository
