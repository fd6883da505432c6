#include "platform/native/sql/statement_text.h"

#include "support/print_variant.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace korvex::native::sql {
namespace {

struct ScanCase {
    std::string composed;
    std::string text;
    std::vector<std::int64_t> literals;
};

using automation::Variant;
using Literals = std::vector<Variant>;

TEST(StatementText, LiteralsBehindComparisonsAreLiftedAndTouchingWordsParted) {
    const std::vector<ScanCase> cases = {
        {"select a from t where IsIncluded <> 0and TableName is not null and ObjectID = 12",
         "select a from t where IsIncluded <> ? and TableName is not null and ObjectID = ?",
         {0, 12}},
        {"SELECT a FROM t WHERE ((VID>100 And VID<-200) AND ((b)= 3))ORDER BY VID",
         "SELECT a FROM t WHERE ((VID>? And VID<?) AND ((b)= ?))ORDER BY VID",
         {100, -200, 3}},
        {"update t set a = 5, b='6=7', c=+8 where d>=9",
         "update t set a = ?, b='6=7', c=? where d>=?",
         {5, 8, 9}},
        {"DELETE from t where a != 1 and b == 2 and c <= 3 and d <> 4",
         "DELETE from t where a != ? and b == ? and c <= ? and d <> ?",
         {1, 2, 3, 4}},
        {"select * from t where a = 9223372036854775807 and b = -9223372036854775808 and c = "
         "9223372036854775808",
         "select * from t where a = ? and b = ? and c = 9223372036854775808",
         {INT64_MAX, INT64_MIN}},
        // Only whole decimal numbers are literals to lift, and only they are parted from a word.
        {"select * from t where a = 1.5 and b = 1e5 and c = 0x1F and d = .5 and e = 2. and f = 1e+5 and g = "
         "3e",
         "select * from t where a = 1.5 and b = 1e5 and c = 0x1F and d = .5 and e = 2. and f = 1e+5 and g = "
         "? e",
         {3}},
        {"select 0x1Fand, 1.5and, c1and, c_1and, 1_000 from t",
         "select 0x1Fand, 1.5and, c1and, c_1and, 1_000 from t",
         {}},
        // Not behind a comparison, or behind an operator that only ends like one.
        {"select * from t where a in (1,2) and b between 3 and 4 and 5 = c and d = 6 and e = - 7 and f->8 > "
         "9",
         "select * from t where a in (1,2) and b between 3 and 4 and 5 = c and d = ? and e = - 7 and f->8 > "
         "?",
         {6, 9}},
        // What names a result column, groups or orders keeps its text.
        {"select a = 1, (select 2 where 3 = 4) from t where b = 5 group by a = 6",
         "select a = 1, (select 2 where 3 = 4) from t where b = ? group by a = 6",
         {5}},
        {"insert into t values (1and, '2and')", "insert into t values (1 and, '2and')", {}},
        // Quotes and comments.
        {"select * from t where a = 'x''=1' and \"b=2\" = 3 and [c=4] = 5 and `d=6` = 7 -- e = 8",
         "select * from t where a = 'x''=1' and \"b=2\" = ? and [c=4] = ? and `d=6` = ? -- e = 8",
         {3, 5, 7}},
        {"/* a = 1; */ select 2and /* 3and */ from t where b = /* c */ 4",
         "/* a = 1; */ select 2 and /* 3and */ from t where b = /* c */ 4",
         {}},
        {"select * from t where a = 'open = 1", "select * from t where a = 'open = 1", {}},
        // The values of a host's own placeholders are not ours to number.
        {"select * from t where a = 1and b = ?", "select * from t where a = 1 and b = ?", {}},
        {"select * from t where \xC3\xA4 = 1\xC3\xA4", "select * from t where \xC3\xA4 = ? \xC3\xA4", {1}},
        {"", "", {}},
    };
    StatementText result;
    for (const ScanCase& each : cases) {
        ScanStatement(each.composed, {}, result);
        EXPECT_EQ(result.text, each.text);
        EXPECT_EQ(result.literals, Literals(each.literals.begin(), each.literals.end())) << each.composed;
    }
}

TEST(StatementText, AnotherNumberInTheSamePlaceNeedsNoScan) {
    StatementText scan;
    for (const char* never :
         {"select * from t where ID=1 and V=2", "select * from t where ID=5x", "select * from t where ID='5'",
          "select * from t where N=? and ID=5", "select * from t where ID=-5",
          "select * from t where ID=5; drop table t", "select * from t"}) {
        ScanStatement(never, {.liftsTexts = true}, scan);
        EXPECT_FALSE(scan.Repeats(never)) << never;
    }
    const std::string before = "select * from t where ID=";
    ScanStatement(before + "12 order by N", {}, scan);
    for (const char* other : {"7", "-7 order by N", " order by N", "7 or 1=1 order by N", "0x7 order by N",
                              "1234567890123456789 order by N", "7' order by N"})
        EXPECT_FALSE(scan.Repeats(before + other)) << other;
    EXPECT_TRUE(scan.Repeats(before + "7 order by N"));
    EXPECT_EQ(scan.text, before + "? order by N");
    EXPECT_EQ(scan.literals, Literals{std::int64_t{7}});
}

TEST(StatementText, TextsThatAQueryComparesAreLiftedWhereThatPays) {
    const struct {
        const char* composed;
        const char* text;
        Literals literals;
    } cases[] = {
        {"select * from t where Name='Customer' and ID = 3",
         "select * from t where Name=? and ID = ?",
         {"Customer", std::int64_t{3}}},
        {"SELECT a FROM t WHERE (t.Name Like '%x_') or b <> ''ORDER BY 'c'",
         "SELECT a FROM t WHERE (t.Name Like ?) or b <> ?ORDER BY 'c'",
         {"%x_", ""}},
        // What does not stand for itself alone.
        {"select * from t where a = 'it''s' and b = N'x' and c = 'x' || d and e like 'f' escape '!' and g in "
         "('h')",
         "select * from t where a = 'it''s' and b = N'x' and c = 'x' || d and e like 'f' escape '!' and g in "
         "('h')",
         {}},
        {"select 'a', b = 'c' from t where d = 'open", "select 'a', b = 'c' from t where d = 'open", {}},
        {"select * from t where a = 'b' and c = ?", "select * from t where a = 'b' and c = ?", {}},
        {"update t set a = 'b' where c = 'd'", "update t set a = 'b' where c = 'd'", {}},
        {"delete from t where a = 'b'", "delete from t where a = 'b'", {}},
    };
    StatementText result;
    for (const auto& each : cases) {
        ScanStatement(each.composed, {.liftsTexts = true}, result);
        EXPECT_EQ(result.text, each.text);
        EXPECT_EQ(result.literals, each.literals) << each.composed;
    }
    const std::string backslash = R"(select * from t where a = 'it\'s' and b = 'c')";
    ScanStatement(backslash, {.backslashEscapes = true, .liftsTexts = true}, result);
    EXPECT_EQ(result.text, R"(select * from t where a = 'it\'s' and b = ?)");
    // The same statement where a backslash is a letter: the quote behind it ends the text.
    const std::string plain = R"(select * from t where a = 'x\' and b like 'y\_' and c in ('z\'))";
    const LexicalRules letters{
        .backslashEscapes = true, .likeEscapes = true, .liftsTexts = true, .plainBackslashes = true};
    ScanStatement(plain, letters, result);
    EXPECT_EQ(result.text, R"(select * from t where a = ? and b like ? and c in ('z\\'))");
    EXPECT_EQ(result.literals, (Literals{R"(x\)", R"(y\\_)"}));
    ScanStatement(R"(delete from t where a like '\b' or a = '\')", letters, result);
    EXPECT_EQ(result.text, R"(delete from t where a like '\\\\b' or a = '\\')");
    ScanStatement("select * from t where a like 'b'", {.exactLike = true, .liftsTexts = true}, result);
    EXPECT_EQ(result.text, "select * from t where a ILIKE ?");
}

TEST(StatementText, QuotesFollowTheEngine) {
    const std::string backslash = R"(select 'it\'s; a = 1' from t where b = 2)";
    const std::string array = "select a[1and 2] from t where b[3] = 4";
    const std::string dollar = "select $x$ ' ; $x$, E'\\' ; ' from t where a = 1";
    StatementText result;
    ScanStatement(backslash, {.bracketNames = false, .backslashEscapes = true}, result);
    EXPECT_FALSE(result.secondStatement);
    EXPECT_EQ(result.literals, Literals{std::int64_t{2}});
    ScanStatement(array, {.bracketNames = false}, result);
    EXPECT_EQ(result.text, "select a[1 and 2] from t where b[3] = ?");
    ScanStatement(dollar, {.bracketNames = false, .dollarQuotes = true}, result);
    EXPECT_FALSE(result.secondStatement);
    EXPECT_EQ(result.literals, Literals{std::int64_t{1}});
    // The same text where these are no quotes.
    ScanStatement("select $x$ ; drop table t; $x$", {}, result);
    EXPECT_TRUE(result.secondStatement);
}

TEST(StatementText, ASecondStatementIsSeen) {
    const std::vector<std::string> seconds = {
        "select 1; drop table t",
        "select 1;;delete from t",
        "select 1 ; -- x\n select 2",
        "drop table a; drop table b",
        "create table a (b int); drop table c",
        "begin; drop table t",
        "select 1; /* x */ y",
    };
    const std::vector<std::string> singles = {
        "select 1;",
        "select 1; ; -- drop table t",
        "select 1; /* drop table t */ ",
        "select ';' , \"a;b\", [c;d]",
        "create trigger x after insert on t begin delete from u; delete from v; end",
        "CREATE OR REPLACE PROCEDURE p AS BEGIN delete from u; Commit; END;",
        "begin delete from t; commit; end;",
        "declare x int; begin null; end;",
    };
    StatementText result;
    for (const std::string& text : seconds) {
        ScanStatement(text, {}, result);
        EXPECT_TRUE(result.secondStatement) << text;
    }
    for (const std::string& text : singles) {
        ScanStatement(text, {}, result);
        EXPECT_FALSE(result.secondStatement) << text;
    }
}

TEST(StatementText, TheFirstWordTellsTheKind) {
    using enum StatementVerb;
    const std::vector<std::pair<std::string, StatementVerb>> cases = {
        {"Select 1", Select},
        {" -- update\n\tUPDATE t", Update},
        {"(select 1)", Select},
        {"/*x*/delete from t", Delete},
        {"replace into t", Insert},
        {"insert into t", Insert},
        {"CREATE TABLE t", Definition},
        {"drop table t", Definition},
        {"with a as (select 1) select 2", Other},
        {"selects", Other},
        {"", Other},
    };
    StatementText result;
    for (const auto& [text, kind] : cases) {
        ScanStatement(text, {}, result);
        EXPECT_EQ(result.kind, kind) << text;
        EXPECT_EQ(VerbOf(text), kind) << text;
    }
}

}  // namespace
}  // namespace korvex::native::sql
