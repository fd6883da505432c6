#include "hosts/cli/korvex_command.h"
#include "support/text_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace korvex::tests {
namespace {

constexpr std::string_view Model = R"({
  "definitions": [ { "storage": "Library", "root": "Reader" } ],
  "objects": [
    { "name": "Reader", "values": [
        { "name": "Full name", "type": "string", "maxLength": 80, "default": "n|n" },
        { "name": "Loans", "child": { "name": "Loans", "element": { "name": "Loan", "values": [
            { "name": "TakenOn", "type": "date" },
            { "name": "Book", "child": "Book" } ] } } },
        { "name": "Favourite", "child": "Book" } ] },
    { "name": "Book", "values": [ { "name": "Pages", "type": 99 } ] },
    { "name": "Book", "id": "lost", "values": [ { "name": "Since", "type": "integer" } ] }
  ]
})";

TEST(Show, EachFormatOfADefinition) {
    const RepositoryFile repository(Model);
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    for (const auto& [options, file] : {std::pair("", "library.tree.txt"),
                                        {"--storage Library --format mermaid", "library.mermaid"},
                                        {"--format dot", "library.dot"}}) {
        std::vector<std::string> arguments = {"repository", "show", repository.Path()};
        std::ranges::copy(Words(options), std::back_inserter(arguments));
        const CommandResult result = RunKorvex(arguments);
        EXPECT_EQ(result.exitCode, 0);
        ExpectSameText(file, result.output, ReadFile(std::string(KORVEX_EXPECTED "/") + file));
        EXPECT_EQ(result.messages, "");
    }
}

TEST(Show, WhatLeadsNowhereIsLeftOutAndNamed) {
    const RepositoryFile repository(Model);
    ASSERT_EQ(RunKorvex({"relate", "--repository", repository.Path()}).exitCode, 0);
    repository.Execute({"update tObjects set CollectionObjectID = 77 where Name = 'Loans'",
                        "update tValues set ChildObjectID = 78 where Name = 'Favourite'",
                        "insert into tObjectInterfaces (ObjectID, InterfaceID) values (1, 79)",
                        "insert into tDataDefs (Storage, RootObjectID) values ('None', 80)",
                        "insert into tPrimaryKeys (ObjectID, ValueID, Seq) values (1, 81, 2)",
                        "update tForeignKeys set FKValueID = 82 where ObjectID = 2"});
    const CommandResult result = RunKorvex({"repository", "show", repository.Path(), "--format", "json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.messages,
              "korvex: Left out: definition \"None\": its root object 80 does not exist\n"
              "korvex: Left out: object Reader: interface 79 does not exist\n"
              "korvex: Left out: object Loans: its element object 77 does not exist\n"
              "korvex: Left out: value Favourite: its child object 78 does not exist\n"
              "korvex: Left out: object Reader: its primary-key value 81 is none of its values\n"
              "korvex: Left out: object Loans: its foreign key from value 10 to object 1, value 82 leads "
              "nowhere\n");
    EXPECT_EQ(RepositoryFile().Import(result.output).messages, "") << "what is left is a model";
}

}  // namespace
}  // namespace korvex::tests
