#include "hosts/cli/korvex_command.h"
#include "hosts/cli/program.h"
#include "support/text_files.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>

namespace korvex::tests {
namespace {

constexpr std::string_view Model = R"({
  "definitions": [ { "storage": "Library", "root": "Reader" } ],
  "objects": [
    { "name": "Reader", "values": [
        { "name": "Full name", "type": "string", "maxLength": 80, "default": "n|n" },
        { "name": "Loans", "child": { "name": "Loans", "element": { "name": "Loan", "values": [
            { "name": "PK", "type": "date" },
            { "name": "Book", "child": "Book" } ] } } },
        { "name": "Favourite", "child": "Book" } ] },
    { "name": "Book", "values": [ { "name": "Größe", "type": 99 } ] },
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

/// The program that draws is the first `dot` on the path: here one that gives back what it reads.
TEST(Show, DrawsWithTheProgramDot) {
    const RepositoryFile repository(Model);
    const auto show = [&](const std::string& program) {
        std::filesystem::permissions(repository.Folder().Write("dot", program),
                                     std::filesystem::perms::owner_all);
        const std::string path = "PATH=" + repository.Folder().Path("") + ":/usr/bin:/bin";
        return RunKorvex({"repository", "show", repository.Path(), "--format", "svg"}, {path});
    };
    const CommandResult drawn = show("#!/bin/sh\ntest \"$*\" = -Tsvg && cat\n");
    ExpectSameText("dot", drawn.output, ReadFile(KORVEX_EXPECTED "/library.dot"));
    EXPECT_EQ(drawn.messages, "");
    ExpectFailure(show("#!/bin/sh\necho 'no memory' >&2; exit 3\n"),
                  "error 429: There is no picture, because dot ended with a failure: no memory");
    ExpectFailure(RunKorvex({"repository", "show", repository.Path(), "--format", "svg"}, {"PATH=/none"}),
                  "error 429: There is no picture, because dot does not start: No such file or directory "
                  "(Debian: graphviz).");
}

/// More than a pipe holds goes both ways, and a program that does not end is ended.
TEST(Program, IsRunToItsEndOrToItsLimit) {
    const std::string text(1'000'000, 'x');
    const cli::ProgramResult echo = cli::RunProgram({"cat"}, text, std::chrono::minutes(1));
    EXPECT_EQ(echo.output, text);
    EXPECT_EQ(echo.failure, "");
    EXPECT_EQ(cli::RunProgram({"true"}, text, std::chrono::minutes(1)).failure, "") << "reads nothing";
    const cli::ProgramResult blank =
        cli::RunProgram({"sh", "-c", "printf '\\nmore' >&2; exit 1"}, "", std::chrono::minutes(1));
    EXPECT_EQ(blank.failure, "sh ended with a failure");
    const cli::ProgramResult late = cli::RunProgram({"sleep", "600"}, "", std::chrono::milliseconds(20));
    EXPECT_EQ(late.failure, "sleep took longer than 0 s");
}

/// What the page looks like in a browser is the business of page_test.py.
TEST(Show, APageWithoutPicture) {
    const RepositoryFile repository(Model);
    const std::string file = repository.Folder().Path("page.html");
    const CommandResult result = RunKorvex(
        {"repository", "show", repository.Path(), "--format", "html", "--out", file}, {"PATH=/none"});
    const std::string problem =
        "There is no picture, because dot does not start: No such file or directory (Debian: graphviz).";
    EXPECT_EQ(result.messages, "korvex: " + problem + "\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
    const std::string page = repository.Folder().Read("page.html");
    const std::size_t begin = page.find("<main>");
    ExpectSameText("page", page.substr(begin, page.find("<footer>") - begin),
                   ReadFile(KORVEX_EXPECTED "/library.page.html"));
    EXPECT_THAT(page, testing::HasSubstr(problem));

    repository.Execute({"update tObjects set CollectionObjectID = 1 where Name = 'Loan'"});
    ExpectFailure(RunKorvex({"repository", "show", repository.Path(), "--format", "html", "--out", file}),
                  "error 28: An object is its own ancestor: Reader > Loans > Loan > Reader");
    EXPECT_EQ(repository.Folder().Read("page.html"), page) << "the file stays as it was";
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
