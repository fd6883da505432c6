#include "hosts/cli/korvex_command.h"
#include "support/driver.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace korvex::tests {
namespace {

constexpr const char* Model = R"({"version": 1,
"definitions": [{"storage": "Things", "root": "Thing"}],
"objects": [{"name": "Thing", "values": [
  {"name": "Name", "type": "string", "maxLength": 40},
  {"name": "Count", "type": "long"}, {"name": "Price", "type": "currency"}, {"name": "Weight", "type": "single"},
  {"name": "MadeOn", "type": "date"}, {"name": "IsNew", "type": "boolean"}, {"name": "Photo", "type": "variant"},
  {"name": "Mind", "type": "unknown"},
  {"name": "Maker", "child": {"name": "Maker", "values": [
    {"name": "Rating", "type": "integer"},
    {"name": "Town", "child": {"name": "Town", "values": [{"name": "Zip", "type": "string", "maxLength": 8}]}}]}},
  {"name": "Parts", "child": {"name": "Parts", "values": [{"name": "Kind", "type": "long"}],
    "element": {"name": "Part", "values": [{"name": "Size", "type": "long"}]}}}]}]})";

constexpr const char* Things = R"([
{"Name": "50% off_", "Count": 1, "Price": 90071992.4775, "Weight": 0.1, "MadeOn": "2026-02-28T12:30:00.250",
 "IsNew": true, "Maker": {"Rating": 5, "Town": {"Zip": "A-1"}}, "Parts": {"Kind": 7, "$items": [{"Size": 3}]}},
{"Name": "O'Neill; drop table tThing --!", "Count": -2, "Price": 0.5, "Weight": 7, "MadeOn": "1899-12-31",
 "IsNew": false, "Photo": {"$base64": "AQI="}, "Maker": {"Rating": 3}},
{"Name": "ALPHA", "Count": 3, "Maker": {"Rating": 4, "Town": {"Zip": "b\"2"}}, "IsNew": false}])";

class ListCommand : public testing::TestWithParam<Driver> {
  protected:
    void SetUp() override {
        ASSERT_EQ(RunKorvex({"relate", "--repository", m_repository.Path()}).messages, "");
        ASSERT_EQ(Run({"database", "create"}).messages, "");
        ASSERT_EQ(Run({"save"}, Things).output, "1\n2\n3\n");
    }

    CommandResult Run(std::vector<std::string> arguments, const std::string& input = {}) const {
        const std::string target = GetParam() == Driver::Sqlite
                                       ? "Provider=SQLite;Data Source=" + m_place
                                       : m_places.Connection(m_place) + ";FKSupport=1";
        for (const std::string& word :
             {std::string("--repository"), m_repository.Path(), std::string("--storage"),
              std::string("Things"), std::string("--connection"), target})
            arguments.push_back(word);
        return RunKorvex(arguments, {}, {},
                         input.empty() ? "/dev/null" : m_repository.Folder().Write("input", input));
    }
    std::string Found(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "list");
        const CommandResult result = Run(std::move(arguments));
        EXPECT_EQ(result.messages, "");
        return result.output;
    }

    RepositoryFile m_repository{Model};
    Places m_places{GetParam(), m_repository.Folder()};
    const std::string m_place = m_places.New("target");
};

TEST_P(ListCommand, ConditionsFindTheSameObjectsOnEveryEngine) {
    const std::pair<const char*, const char*> Conditions[] = {
        {"Count = 3", "3\n"},
        {"Count<>3", "1\n2\n"},
        {"Count <= -2", "2\n"},
        {"Price = 90071992.4775", "1\n"},
        {"Price < 1", "2\n3\n"},
        {"Weight = 0.1", "1\n"},
        {"MadeOn = 2026-02-28T12:30:00.250", "1\n"},
        {"MadeOn < 1900-01-01", "2\n3\n"},
        {"IsNew = true", "1\n"},
        {"IsNew <> true", "2\n3\n"},
        {"Name = O'Neill; drop table tThing --!", "2\n"},
        {"Name like %DROP TABLE%!", "2\n"},
        {"Name like a_pha", "3\n"},
        {"Name like 50%", "1\n"},
        {"Name LIKE \\%", ""},
        {"Photo is null", "1\n3\n"},
        {"Photo IS NOT NULL", "2\n"},
        {"Maker.Rating > 3", "1\n3\n"},
        {"Maker.Town.Zip = b\"2", "3\n"},
        {"Maker.Town.Zip =", "2\n"},
        {"Parts.Kind = 7", "1\n"},
    };
    for (const auto& [condition, keys] : Conditions)
        EXPECT_EQ(Found({"--format", "keys", "--where", condition}), keys) << condition;
    EXPECT_EQ(Found({"--format", "keys", "--where", "Count > 0", "--where", "Maker.Rating < 5"}), "3\n");
    EXPECT_EQ(Found({"--format", "keys", "--order", "Maker.Town.Zip", "--descending", "--limit", "2"}),
              "3\n1\n");
}

TEST_P(ListCommand, LinesAreForPeopleAndPrograms) {
    const auto in = [&](const std::string& format) {
        return Found({"--fields", "Name,Price,MadeOn,Maker.Town.Zip", "--format", format});
    };
    EXPECT_EQ(in("table"),
              "Name                            Price          MadeOn                   Maker.Town.Zip\n"
              "50% off_                        90071992.4775  2026-02-28T12:30:00.250  A-1\n"
              "O'Neill; drop table tThing --!            0.5  1899-12-31\n"
              "ALPHA                                       0  1899-12-30               b\"2\n");
    EXPECT_EQ(in("csv"),
              "Name,Price,MadeOn,Maker.Town.Zip\n"
              "50% off_,90071992.4775,2026-02-28T12:30:00.250,A-1\n"
              "O'Neill; drop table tThing --!,0.5,1899-12-31,\"\"\n"
              "ALPHA,0,1899-12-30,\"b\"\"2\"\n");
    EXPECT_EQ(
        in("json"),
        R"({"Name": "50% off_", "Price": 90071992.4775, "MadeOn": "2026-02-28T12:30:00.250", "Maker.Town.Zip": "A-1"})"
        "\n"
        R"({"Name": "O'Neill; drop table tThing --!", "Price": 0.5, "MadeOn": "1899-12-31", "Maker.Town.Zip": ""})"
        "\n"
        R"({"Name": "ALPHA", "Price": 0, "MadeOn": "1899-12-30", "Maker.Town.Zip": "b\"2"})"
        "\n");
}

TEST_P(ListCommand, KeysGoFromOneCommandToTheNext) {
    const std::string keys = Found({"--format", "keys", "--where", "Count > 0"});
    const std::string lines = Run({"load", "--key", "-"}, keys).output;
    EXPECT_EQ(std::ranges::count(lines, '\n'), 2);
    EXPECT_EQ(Run({"load", "--all", "--key", "-"}, keys).exitCode, 2);
    const CommandResult refused = Run({"delete", "--key", "-"}, keys + "9\n");
    ExpectFailure(refused, "There is no record of tThing with ThingID = 9");
    EXPECT_EQ(Run({"delete", "--key", "-"}, keys).messages, "");
    EXPECT_EQ(Found({"--format", "keys"}), "2\n");
    EXPECT_THAT(Run({"load", "--all"}).output, testing::StartsWith(R"({"Name": "O'Neill)"));
}

TEST_P(ListCommand, WhatCannotBeAskedIsNamed) {
    const std::pair<const char*, const char*> Conditions[] = {
        {"Coun = 3", "The object \"Thing\" has no value \"Coun\"; did you mean \"Count\"?"},
        {"Maker.Ratin = 3", "did you mean \"Rating\"?"},
        {"Count = x", "Count: a text where a whole number"},
        {"Count = 3000000000", "Count: 3000000000 is out of range"},
        {"Count = null", "use \"is null\""},
        {"IsNew > true", "ask for it with = or <>"},
        {"Count like 3%", "Count\" is no text"},
        {"Photo = 3", "holds binary data"},
        {"Mind = 3", "\"Mind\" is not stored"},
        {"Maker = 3", "name one of its values"},
        {"Parts.Size = 3", "a value of elements"},
        {"Count", "has not the form VALUE OPERATOR OPERAND"},
        {"Count is null 3", "Nothing belongs behind \"is null\""},
    };
    for (const auto& [condition, message] : Conditions)
        ExpectFailure(Run({"list", "--where", condition}), message);
}

INSTANTIATE_TEST_SUITE_P(Drivers, ListCommand, AllDrivers(), DriverName);

}  // namespace
}  // namespace korvex::tests
