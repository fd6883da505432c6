#include "automation/collection.h"

#include "automation/convert.h"
#include "automation/outcome.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace korvex::automation {
namespace {

std::shared_ptr<Collection> Letters(std::string_view letters) {
    auto collection = std::make_shared<Collection>();
    for (const char letter : letters)
        collection->Add(std::string(1, letter), std::string(1, letter));
    return collection;
}

std::string Contents(Collection& collection) {
    std::string contents;
    const auto items = collection.NewEnum();
    while (const auto item = items->Next())
        contents += ToString(*item);
    return contents;
}

TEST(Collection, ItemsAreFoundByPositionAndByKeyInAnyCase) {
    const auto letters = Letters("abc");
    EXPECT_EQ(letters->Item(1), Variant("a"));
    EXPECT_EQ(letters->Item(2.5), Variant("b")) << "positions round as every number does";
    EXPECT_EQ(letters->Item("C"), Variant("c"));
    EXPECT_EQ(letters->Count(), 3);

    EXPECT_EQ(OutcomeOf([&] { return letters->Item(0); }), "error 9");
    EXPECT_EQ(OutcomeOf([&] { return letters->Item(4); }), "error 9");
    EXPECT_EQ(OutcomeOf([&] { return letters->Item("1"); }), "error 5") << "a text is always a key";
    EXPECT_EQ(OutcomeOf([&] { return letters->Item(Variant::Null()); }), "error 94");
    EXPECT_EQ(OutcomeOf([&] { letters->Remove("x"); }), "error 5");
}

TEST(Collection, KeysFollowTheirItemsThroughEveryChange) {
    const auto letters = Letters("bd");
    letters->Add("a", "a", /*before=*/1);
    letters->Add("c", "c", Variant::Missing(), /*after=*/"B");
    letters->Add("e", "e");
    EXPECT_EQ(Contents(*letters), "abcde");
    for (const char* key : {"a", "b", "c", "d", "e"})
        EXPECT_EQ(letters->Item(key), Variant(key));

    letters->Remove(2);
    letters->Remove("E");
    EXPECT_EQ(Contents(*letters), "acd");
    for (const char* key : {"a", "c", "d"})
        EXPECT_EQ(letters->Item(key), Variant(key));
    EXPECT_EQ(OutcomeOf([&] { return letters->Item("b"); }), "error 5");
    EXPECT_EQ(OutcomeOf([&] { return letters->Item("e"); }), "error 5");
    letters->Add("B", "b", "c");
    EXPECT_EQ(Contents(*letters), "aBcd");
}

TEST(Collection, ARefusedAddLeavesItAsItWas) {
    const auto letters = Letters("ab");
    EXPECT_EQ(OutcomeOf([&] { letters->Add("x", "A"); }), "error 457");
    EXPECT_EQ(OutcomeOf([&] { letters->Add("x", 1); }), "error 13");
    EXPECT_EQ(OutcomeOf([&] { letters->Add("x", "x", 1, 1); }), "error 5");
    EXPECT_EQ(OutcomeOf([&] { letters->Add("x", "x", 3); }), "error 9");
    EXPECT_EQ(OutcomeOf([&] { letters->Add("x", "x", Variant::Missing(), "y"); }), "error 5");
    EXPECT_EQ(Contents(*letters), "ab");
    letters->Add("c", "x");
    EXPECT_EQ(letters->Item("x"), Variant("c"));
}

TEST(Collection, EnumerationFollowsTheLiveCollection) {
    const auto letters = Letters("abcdef");
    const auto items = letters->NewEnum();
    std::string seen;
    while (const auto item = items->Next()) {
        seen += ToString(*item);
        if (seen == "ab") {
            letters->Remove("b");         // the one in hand: nothing is skipped
            letters->Remove("c");         // the next one: not met
            letters->Add("x", "x", "a");  // behind: not met, nothing repeats
            letters->Add("z", "z", "d");  // at the place that comes next: met
            letters->Add("y", "y");       // ahead: met
        }
    }
    EXPECT_EQ(seen, "abzdefy");
    EXPECT_EQ(Contents(*letters), "xazdefy");
}

TEST(Collection, EnumerationKeepsTheCollectionAlive) {
    auto letters = Letters("ab");
    const auto items = letters->NewEnum();
    letters.reset();
    EXPECT_EQ(items->Next(), Variant("a"));
    EXPECT_EQ(items->Next(), Variant("b"));
    EXPECT_EQ(items->Next(), std::nullopt);
}

TEST(Collection, ServesLateBoundCallers) {
    const auto holder = std::make_shared<Collection>();
    Object& collection = *holder;
    Call(collection, "add", "first", "k");
    Call(collection, "Add", "second", Variant::Missing(), "K");
    EXPECT_EQ(Get(collection, "Count"), Variant(2));
    EXPECT_EQ(Call(collection, "Item", 1), Variant("second"));
    EXPECT_EQ(Call(collection, "", "k"), Variant("first")) << "Item is the default member";
    Call(collection, "Remove", "k");
    EXPECT_EQ(Contents(*holder), "second");
    EXPECT_EQ(OutcomeOf([&] { Let(collection, "Count", 5); }), "error 383");
    EXPECT_EQ(OutcomeOf([&] { Call(collection, "Clear"); }), "error 438");
}

}  // namespace
}  // namespace korvex::automation
