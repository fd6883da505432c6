#include "support/error_of.h"
#include "support/text_files.h"
#include "table_in_hand.h"

#include <gtest/gtest.h>

#include <map>

namespace korvex::scriptgen {
namespace {

struct Table {
    const char* what;
    std::string name;
    std::vector<Column> columns;
};

/// Tables as the example's definition makes none.
const Table Tables[] = {
    {"a key of two columns in the other order, a counter beside it, two references to one object",
     "OrderLine",
     {Key(Plain("LineNo", 2), 2), Key(Plain("OrderID", 3), 1), Reference("FK_CustomerID", 7, 70),
      Counter(Plain("SerialNo", 3)), Plain("Note", 8, "40"), Reference("FK_SiteID", 8, 80),
      Reference("FK_Branch", 7, 71), Plain("Due", 7)}},
    {"a key of two columns and nothing else", "T", {Key(Plain("K1", 3), 1), Key(Plain("K2", 2), 2)}},
    {"a key of two columns around a counter",
     "T",
     {Key(Plain("K1", 3)), Counter(Plain("N", 3)), Key(Plain("K2", 3))}},
    {"no key, a reference to what is not there", "T", {Plain("A", 3), Reference("B", 5, 50)}},
    {"only a counter", "T", {Counter(Plain("N", 3))}},
    {"two counters", "T", {Counter(Plain("M", 3)), Counter(Plain("N", 3))}},
    {"no columns", "T", {}},
    {"key columns outside the sequence",
     "T",
     {Key(Plain("Last", 3), 4), Key(Plain("Below", 3), -1), Key(Plain("Zero", 3), 0),
      Key(Plain("Beyond", 3), 5)}},
    {"names that lose their front",
     "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123",
     {Key(Plain("K", 3)), Reference("F", 7, 70)}},
};

/// Everything that a table puts into the five scripts.
std::string AllTexts(ScriptType type, const Table& table) {
    // Objects 7 and 8 and some of their columns; of others there are no names.
    std::map<std::int32_t, std::string> tables{{7, "Customer"}, {8, "Site"}};
    std::map<std::int32_t, std::string> fields{{70, "CustomerID"}, {71, "Branch"}, {80, "SiteID"}};
    TableInHand hand(type, table.name, table.columns);
    hand.dialect.AppendTableDrop(hand.run.Text(ScriptKind::Drop), hand.table);
    hand.dialect.AddStoredProcedures(hand.run, hand.table);
    hand.dialect.AddForeignKeys(hand.run, hand.table,
                                {[&](repository::ObjectId id) { return tables[Number(id)]; },
                                 [&](repository::ValueId id) { return fields[Number(id)]; }});
    std::string text = hand.CreateText();
    text += "-- procedures\r\n" + hand.run.Text(ScriptKind::Procedures);
    text += "-- foreign keys\r\n" + hand.run.Text(ScriptKind::CreateForeignKeys);
    return text + "-- drop\r\n" + hand.run.Text(ScriptKind::DropForeignKeys) +
           hand.run.Text(ScriptKind::Drop);
}

class Emitters : public testing::TestWithParam<std::pair<ScriptType, const char*>> {};

TEST_P(Emitters, WriteTheExpectedTexts) {
    const auto& [type, dialect] = GetParam();
    std::string texts;
    for (const Table& table : Tables)
        texts += std::string("-- ") + table.what + "\r\n" + AllTexts(type, table) + "\r\n";
    const std::string file = std::string(KORVEX_EXPECTED) + "/" + dialect + ".sql";
    tests::ExpectSameText(file, texts, tests::ReadFile(file));
}

INSTANTIATE_TEST_SUITE_P(Dialects, Emitters,
                         testing::Values(std::pair(ScriptType::SqlServer, "SqlServer"),
                                         std::pair(ScriptType::Oracle, "Oracle"),
                                         std::pair(ScriptType::Sybase, "Sybase")),
                         [](const auto& info) { return std::string(info.param.second); });

TEST(Indexes, ReferencedObjectWithinTheDigitsOfAnEarlierOneGetsNoIndex) {
    const struct {
        std::vector<Column> columns;
        std::string expected;
    } cases[] = {
        {{Reference("A", 12), Reference("B", 2)}, "\r\nCREATE INDEX T1 ON T(A)\r\nGO\r\n"},
        {{Reference("A", 2), Reference("B", 12)},
         "\r\nCREATE INDEX T1 ON T(A)\r\nGO\r\n\r\nCREATE INDEX T2 ON T(B)\r\nGO\r\n"},
        {{Reference("A", 3), Reference("B", 1), Reference("C", 31)},
         "\r\nCREATE INDEX T1 ON T(A)\r\nGO\r\n\r\nCREATE INDEX T2 ON T(B)\r\nGO\r\n"
         "\r\nCREATE INDEX T3 ON T(C)\r\nGO\r\n"},
        // Columns that are no foreign keys carry -1, which a reference may name as well.
        {{Plain("P", 3), Reference("A", -1)}, "\r\nCREATE INDEX T1 ON T(P, A)\r\nGO\r\n"},
    };
    for (const auto& c : cases) {
        const std::string text = TableInHand(ScriptType::Sybase, "T", c.columns).CreateText();
        const std::string tableEnd = ")\r\nGO\r\n";
        EXPECT_EQ(text.substr(text.find(tableEnd) + tableEnd.size()), c.expected);
    }
}

TEST(Indexes, AreCountedIn16Bits) {
    std::vector<Column> columns;
    for (int object = 0; object <= 32767; ++object)
        columns.push_back(Reference("A", 67000 + object));
    TableInHand hand(ScriptType::Sybase, "T", columns);
    EXPECT_EQ(tests::ErrorOf([&] { hand.CreateText(); }), automation::Overflow);
    EXPECT_EQ(hand.run.Text(ScriptKind::Create), "");
}

}  // namespace
}  // namespace korvex::scriptgen
