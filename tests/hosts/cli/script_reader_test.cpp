#include "hosts/cli/apply/script_reader.h"

#include "support/error_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace korvex::cli {
namespace {

using Statements = std::vector<std::pair<std::size_t, std::string>>;

struct ReaderCase {
    const char* name;
    ScriptStyle style;  ///< as it is to be guessed
    std::string text;
    Statements statements;
};

void PrintTo(const ReaderCase& test, std::ostream* stream) { *stream << test.name; }

class ScriptReader : public testing::TestWithParam<ReaderCase> {};

TEST_P(ScriptReader, GuessesTheStyleAndDividesTheStatements) {
    const ReaderCase& test = GetParam();
    ASSERT_EQ(GuessStyle(test.text), test.style);
    Statements found;
    for (const ScriptStatement& statement : ReadScript("f.sql", test.text, test.style))
        found.emplace_back(statement.line, statement.text);
    EXPECT_EQ(found, test.statements);
}

const ReaderCase Batches[] = {
    {"Nothing", ScriptStyle::Batches, "", {}},
    {"EmptyScript", ScriptStyle::Batches, "\r\n", {}},
    {"GoOnALineOfItsOwn",
     ScriptStyle::Batches,
     "select 1\r\nGO\r\n\r\n  go \r\nselect 2\r\n where 1 = 1\r\nGo\r\n",
     {{1, "select 1"}, {5, "select 2\r\n where 1 = 1"}}},
    {"LastBatchWithoutGo", ScriptStyle::Batches, "a\nGO\nb\n", {{1, "a"}, {3, "b"}}},
    {"GoInQuotesAndComments",
     ScriptStyle::Batches,
     "insert 'one\nGO\ntwo''s', \"x\nGO\n\", [y\nGO\n] /* z\nGO\n*/ -- it's\nGO\nb\nGO",
     {{1, "insert 'one\nGO\ntwo''s', \"x\nGO\n\", [y\nGO\n] /* z\nGO\n*/ -- it's"}, {11, "b"}}},
    {"GoAsPartOfALine", ScriptStyle::Batches, "select GO\nGOTO x\nGO\n", {{1, "select GO\nGOTO x"}}},
    {"CommentsInFrontAreLeftOut",
     ScriptStyle::Batches,
     "\xEF\xBB\xBF-- made by hand\n/* two\nlines */ select 1 -- rest\nGO\n-- only this\nGO\n",
     {{3, "select 1 -- rest"}}},
    {"SemicolonsInAProcedureStay",
     ScriptStyle::Batches,
     "create procedure p as\nbegin\n delete t;\nend\nGO\n",
     {{1, "create procedure p as\nbegin\n delete t;\nend"}}},
    {"AlterTableWithoutTerminators",
     ScriptStyle::Batches,
     "ALTER TABLE a\r\nADD CONSTRAINT x\r\n\r\nALTER TABLE b\r\nADD CONSTRAINT y\r\nalter table c\r\nADD "
     "z\r\n",
     {{1, "ALTER TABLE a\r\nADD CONSTRAINT x"},
      {4, "ALTER TABLE b\r\nADD CONSTRAINT y"},
      {6, "alter table c\r\nADD z"}}},
    {"AlterTableInsideAnotherBatch",
     ScriptStyle::Batches,
     "create procedure p as\nalter table t add c int\nGO\n",
     {{1, "create procedure p as\nalter table t add c int"}}},
};

const ReaderCase SqlPlus[] = {
    {"SemicolonAtTheLineEnd",
     ScriptStyle::SqlPlus,
     "\r\nrem  ***** It's a table\r\n\r\nCREATE TABLE t\r\n( \r\n\ta NUMBER(5)\r\n)\r\n; \r\n\r\nDROP TABLE "
     "t; \r\n",
     {{4, "CREATE TABLE t\r\n( \r\n\ta NUMBER(5)\r\n)"}, {10, "DROP TABLE t"}}},
    {"SemicolonElsewhere",
     ScriptStyle::SqlPlus,
     "rem\ninsert 'a;\n', 'b' ;\ninsert ';' -- no end;\n; select 1; -- end;\n",
     {{2, "insert 'a;\n', 'b'"}, {4, "insert ';' -- no end;\n; select 1"}}},
    {"BlocksEndWithASlash",
     ScriptStyle::SqlPlus,
     "CREATE INDEX i ON t(a); \n\n\n/\nCREATE TRIGGER tr BEFORE INSERT ON t\nBEGIN\n\tx := 1; \nEnd; \n/\n"
     "CREATE OR REPLACE PROCEDURE p\nAS\nBEGIN\n\tCommit; \n; \nEND; \n/\n\nselect 1;\n",
     {{1, "CREATE INDEX i ON t(a)"},
      {5, "CREATE TRIGGER tr BEFORE INSERT ON t\nBEGIN\n\tx := 1; \nEnd;"},
      {10, "CREATE OR REPLACE PROCEDURE p\nAS\nBEGIN\n\tCommit; \n; \nEND;"},
      {18, "select 1"}}},
    {"TransactionsAreNoBlocks",
     ScriptStyle::SqlPlus,
     "begin;\ndelete t;\ncommit;\n/\n",
     {{1, "begin"}, {2, "delete t"}, {3, "commit"}}},
    {"SlashEndsAStatementToo",
     ScriptStyle::SqlPlus,
     "select 1\n/\nselect 6\n / \n",
     {{1, "select 1"}, {3, "select 6"}}},
    {"RemInsideAStatement",
     ScriptStyle::SqlPlus,
     "create table t (\nRem int\n)\n/\n",
     {{1, "create table t (\nRem int\n)"}}},
    {"OnlyRemarks", ScriptStyle::SqlPlus, "rem nothing's here\nREMARK nor there\n", {}},
};

const ReaderCase Plain[] = {
    {"EverySemicolon",
     ScriptStyle::Plain,
     "-- made; by hand\ninsert 'a;''b', \";\", `;` /* ; */; select a[1], b[c[1]]; ;\nselect $1, a$$b, "
     "x[';']; "
     "-- end;\nselect 2",
     {{2, "insert 'a;''b', \";\", `;` /* ; */"},
      {2, "select a[1], b[c[1]]"},
      {3, "select $1, a$$b, x[';']"},
      {4, "select 2"}}},
    {"TriggerBodies",
     ScriptStyle::Plain,
     "create temp trigger t after update on x when 0 in (1) begin\n update x set y = 1;\n select case 1 when "
     "1 "
     "then 2 end;\nEND;\ncreate trigger u before insert on x for each row execute function f();\n"
     "create procedure p() begin end; create table begin (a int); select 1;\n",
     {{1,
       "create temp trigger t after update on x when 0 in (1) begin\n update x set y = 1;\n select case 1 "
       "when "
       "1 then 2 end;\nEND"},
      {5, "create trigger u before insert on x for each row execute function f()"},
      {6, "create procedure p() begin end"},
      {6, "create table begin (a int)"},
      {6, "select 1"}}},
    {"DollarQuotes",
     ScriptStyle::Plain,
     "create function f() returns trigger as $$\nbegin\n x := 'it''s $a$';\n/\nGO\nend $$;\n"
     "do $body$ select $$;$$; $ $body$;\nselect 1;\n",
     {{1, "create function f() returns trigger as $$\nbegin\n x := 'it''s $a$';\n/\nGO\nend $$"},
      {7, "do $body$ select $$;$$; $ $body$"},
      {8, "select 1"}}},
    {"Delimiters",
     ScriptStyle::Plain,
     "\xEF\xBB\xBF"
     "select 1;\r\nDELIMITER $$\r\ncreate trigger t after insert on x for each row begin\r\n "
     "delete from y;\r\nend$$\r\nselect '$$'; select 3 $$\r\n delimiter // rest\r\n"
     "select 4/2; // select 5//\ndelimiter ;\nselect 6;\n",
     {{1, "select 1"},
      {3, "create trigger t after insert on x for each row begin\r\n delete from y;\r\nend"},
      {6, "select '$$'; select 3"},
      {8, "select 4/2;"},
      {8, "select 5"},
      {10, "select 6"}}},
};

std::string CaseName(const testing::TestParamInfo<ReaderCase>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Batches, ScriptReader, testing::ValuesIn(Batches), CaseName);
INSTANTIATE_TEST_SUITE_P(Plain, ScriptReader, testing::ValuesIn(Plain), CaseName);
INSTANTIATE_TEST_SUITE_P(SqlPlus, ScriptReader, testing::ValuesIn(SqlPlus), CaseName);

TEST(ScriptReader, WhatIsNeverClosedIsNamedWhereItBegins) {
    const auto message = [](std::string_view text, ScriptStyle style = ScriptStyle::Batches) {
        return tests::ErrorOf([&] { ReadScript("x/f.sql", text, style); }).Text();
    };
    EXPECT_EQ(message("a\nGO\ninsert 'it's'\nGO\nb\n"),
              "5: x/f.sql, line 3: The quote that begins here is never closed.");
    EXPECT_EQ(message("a\n/* b\n"), "5: x/f.sql, line 2: The comment that begins here is never closed.");
    EXPECT_EQ(message("a;\n$x$ b; $$\n", ScriptStyle::Plain),
              "5: x/f.sql, line 2: The quote that begins here is never closed.");
    EXPECT_EQ(message("a;\n delimiter \nb;\n", ScriptStyle::Plain),
              "5: x/f.sql, line 2: DELIMITER must name the mark that ends statements.");
}

}  // namespace
}  // namespace korvex::cli
