#include "hosts/cli/korvex_command.h"

#include <gtest/gtest.h>

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
    const struct {
        std::vector<std::string> options;
        const char* text;
    } cases[] = {
        {{},
         "definition Library: Reader in tReader\n"
         "  Full name: string(80), default n|n\n"
         "  Loans: Loans (collection) in tLoans\n"
         "    element: Loan in tLoan\n"
         "      TakenOn: date\n"
         "      Book: Book in tBook2\n"
         "        Pages: 99\n"
         "        BookID: long, auto number, primary key\n"
         "        FK_LoanID: long, refers to Loan\n"
         "        FK_ReaderID: long, refers to Reader\n"
         "      LoanID: long, auto number, primary key\n"
         "      FK_LoansID: long, refers to Loans\n"
         "    LoansID: long, auto number, primary key\n"
         "    FK_ReaderID: long, refers to Reader\n"
         "  Favourite: Book in tBook2 (shown above)\n"
         "  ReaderID: long, auto number, primary key\n"
         "\n"
         "in no definition: Book\n"
         "  Since: integer\n"},
        {{"--storage", "Library", "--format", "mermaid"},
         "erDiagram\n"
         "    Reader {\n"
         "        string(80) Full_name\n"
         "        long ReaderID PK\n"
         "    }\n"
         "    Loans {\n"
         "        long LoansID PK\n"
         "        long FK_ReaderID FK\n"
         "    }\n"
         "    Loan {\n"
         "        date TakenOn\n"
         "        long LoanID PK\n"
         "        long FK_LoansID FK\n"
         "    }\n"
         "    Book {\n"
         "        _99 Pages\n"
         "        long BookID PK\n"
         "        long FK_LoanID FK\n"
         "        long FK_ReaderID FK\n"
         "    }\n"
         "    Reader ||--o| Loans : \"Loans\"\n"
         "    Reader ||--o| Book : \"Favourite\"\n"
         "    Loans ||--o{ Loan : elements\n"
         "    Loan ||--o| Book : \"Book\"\n"},
        {{"--format", "dot"},
         "digraph definition {\n"
         "    node [shape=record];\n"
         "    \"Reader\" [label=\"{Reader\\ntReader|Full\\ name\\ :\\ string(80)\\lReaderID\\ :\\ "
         "long\\l}\"];\n"
         "    \"Loans\" [label=\"{Loans\\ntLoans|LoansID\\ :\\ long\\lFK_ReaderID\\ :\\ long\\l}\"];\n"
         "    \"Loan\" [label=\"{Loan\\ntLoan|TakenOn\\ :\\ date\\lLoanID\\ :\\ long\\lFK_LoansID\\ :\\ "
         "long\\l}\"];\n"
         "    \"Book\" [label=\"{Book\\ntBook2|Pages\\ :\\ 99\\lBookID\\ :\\ long\\lFK_LoanID\\ :\\ "
         "long\\lFK_ReaderID\\ :\\ long\\l}\"];\n"
         "    \"Book_2\" [label=\"{Book|Since\\ :\\ integer\\l}\"];\n"
         "    \"Reader\" -> \"Loans\" [label=\"Loans\"];\n"
         "    \"Reader\" -> \"Book\" [label=\"Favourite\"];\n"
         "    \"Loans\" -> \"Loan\" [label=\"elements\", arrowhead=crow];\n"
         "    \"Loan\" -> \"Book\" [label=\"Book\"];\n"
         "}\n"},
    };
    for (const auto& [options, text] : cases) {
        std::vector<std::string> arguments = {"repository", "show", repository.Path()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const CommandResult result = RunKorvex(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output, text);
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
