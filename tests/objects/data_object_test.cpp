#include "objects/data_object.h"

#include "automation/convert.h"
#include "support/error_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvex::objects {
namespace {

using automation::Bytes;
using automation::Currency;
using automation::Date;
using automation::Variant;
using tests::ErrorOf;

constexpr std::int32_t Code(automation::VarType type) { return static_cast<std::int32_t>(type); }

std::shared_ptr<Definition> Line() {
    auto definition = std::make_shared<Definition>("Line", "tLine");
    definition->AddValue({"Sku", "Sku"});
    return definition;
}

std::shared_ptr<Definition> Order() {
    auto lines = std::make_shared<Definition>("Lines", "tLines");
    lines->ElementDefinition(Line());
    auto definition = std::make_shared<Definition>("Order", "tOrder");
    definition->AddValue({"Count", "nCount", Code(automation::VarType::Integer)});
    definition->AddValue({"Photo", "Photo", Code(automation::VarType::Object)});
    definition->AddChild("Lines", lines);
    return definition;
}

std::shared_ptr<DataObject> New(std::shared_ptr<Definition> definition) {
    return std::make_shared<DataObject>(std::move(definition));
}

TEST(DataObjects, ValuesAreKeptInTheTypeOfTheirDefinition) {
    struct Row {
        automation::VarType type;
        Variant given, kept;
    };
    using automation::VarType;
    const Row rows[] = {
        {VarType::Integer, 5.0, std::int16_t{5}},
        {VarType::Long, "12", std::int32_t{12}},
        {VarType::Long, "", {}},  // a blank
        {VarType::Long, Variant::Null(), Variant::Null()},
        {VarType::Boolean, 1, true},
        {VarType::Byte, "65", std::uint8_t{65}},  // stored as text
        {VarType::Currency, 1.5, Currency{15'000}},
        {VarType::Date, "2026-11-21", Date{46347}},
        {VarType::String, 7, "7"},
        {VarType::String, "", ""},
        {VarType::Single, 0.5, 0.5F},
        {VarType::LongLong, 7, std::int64_t{7}},
        {VarType::Object, Bytes{1}, Bytes{1}},
        {VarType::Variant, Date{1}, Date{1}},
    };
    for (const auto& row : rows) {
        const auto definition = std::make_shared<Definition>("One", "");
        definition->AddValue({"v", "", Code(row.type)});
        const auto object = New(definition);
        object->Set("v", row.given);
        EXPECT_EQ(object->Get("v"), row.kept) << Code(row.type);
        EXPECT_EQ(object->Modified(), !row.kept.IsEmpty());
        object->Modified(false);
        object->Set("v", row.given);
        EXPECT_FALSE(object->Modified()) << "the same value once more";
    }
}

TEST(DataObjects, PartsKnowTheirParentAndModifiedStaysWithItsObject) {
    const auto order = New(Order());
    const auto lines = order->Child("Lines");
    EXPECT_EQ(order->Child("Lines"), lines);
    EXPECT_EQ(lines->Parent(), order);
    EXPECT_FALSE(order->Modified());

    const auto line = lines->Add();
    EXPECT_TRUE(lines->Modified());
    EXPECT_FALSE(line->Modified());
    line->Set("Sku", "A");
    EXPECT_TRUE(line->Modified());
    EXPECT_FALSE(order->Modified());

    lines->Modified(false);
    lines->LongAttribute(attSelectedItem, 1);
    EXPECT_TRUE(lines->Modified());
    EXPECT_FALSE(lines->ListModified());
    lines->Modified(false);
    lines->Remove(0);
    EXPECT_TRUE(lines->Modified());
    EXPECT_TRUE(lines->ListModified());
    EXPECT_TRUE(lines->Items().empty());
    EXPECT_EQ(line->Parent(), lines);
}

TEST(DataObjects, ElementsAddedDuringAnEnumerationAreMet) {
    const auto lines = New(Order())->Child("Lines");
    lines->Add();
    const auto elements = lines->NewEnum();
    EXPECT_TRUE(elements->Next());
    lines->AddItem();
    EXPECT_TRUE(elements->Next());
    EXPECT_FALSE(elements->Next());
}

TEST(DataObjects, ADefinitionMayBeGivenLaterAndTakenBack) {
    const auto object = std::make_shared<DataObject>();
    EXPECT_EQ(ErrorOf([&] { object->Value(1); }).Text(), "91: The data object has no definition.");
    const auto definition = Order();
    // The definition of a value that holds a child stands for the child's.
    object->DataDef(definition->Values().at(2));
    EXPECT_EQ(object->DataDef(), definition->Values().at(2)->Child());
    object->Add();
    object->DataDef(nullptr);
    EXPECT_EQ(object->DataDef(), nullptr);
    EXPECT_TRUE(object->Items().empty());
}

TEST(DataObjects, ErrorsSayWhatIsMissing) {
    const auto order = New(Order());
    const std::pair<std::string, std::string> rows[] = {
        {ErrorOf([&] { order->ValueIndex("Count"); }).Text(),
         "9: The object Order has no value that is stored in column \"Count\"."},
        {ErrorOf([&] { order->NamedValue("Cuont"); }).Text(),
         "438: The object Order has no value named \"Cuont\"."},
        {ErrorOf([&] { order->Value(0); }).Text(), "9: The object Order has no value 0."},
        {ErrorOf([&] { order->Value(4, 1); }).Text(), "9: The object Order has no value 4."},
        {ErrorOf([&] { order->Child("Count"); }).Text(),
         "424: The value \"Count\" of the object Order is no child object."},
        {ErrorOf([&] { order->AddItem(); }).Text(), "5: The object Order is no collection."},
        {ErrorOf([&] { order->Child("Lines")->Remove(0); }).Text(),
         "9: The collection Lines has no element 0."},
        {ErrorOf([&] { order->Set("Lines", New(Line())); }).Text(), "13: Order.Lines takes an object Lines."},
        {ErrorOf([&] { order->DataDef(order); }).Text(),
         "13: The definition given to the data object is none."},
        {ErrorOf([&] { order->LongAttribute(attSelectState, 1); }).Text(),
         "5: The object has no attribute -200001 to set."},
        {ErrorOf([&] { Line()->AddValue({"x"}), Order()->AddValue({"Count"}); }).Text(),
         "457: The object \"Order\" has two values named \"Count\"; rename one of them."},
    };
    for (const auto& [raised, expected] : rows)
        EXPECT_EQ(raised, expected);
    EXPECT_THAT(ErrorOf([&] { order->Set("Count", 40'000); }).Text(),
                testing::StartsWith("6: Order.Count: "));
    EXPECT_THAT(ErrorOf([&] { order->Set("Count", "many"); }).Text(),
                testing::StartsWith("13: Order.Count: "));
    EXPECT_FALSE(order->Modified());
}

/// Taking apart what stands deep must not go as deep on the stack.
TEST(DataObjects, DeepDefinitionsAndTreesAreReleased) {
    auto definition = Line();
    for (int i = 0; i < 100'000; ++i) {
        auto above = std::make_shared<Definition>("Level", "");
        if (i % 2 == 0)
            above->AddChild("Below", std::move(definition));
        else
            above->ElementDefinition(std::move(definition));
        definition = std::move(above);
    }
    auto root = New(definition);
    std::weak_ptr<DataObject> deepest = root;
    for (auto object = root; object != nullptr;) {
        deepest = object;
        if (object->Type().ElementDefinition() != nullptr)
            object = object->Add();
        else
            object = object->Type().FindValue("Below") != nullptr ? object->Child("Below") : nullptr;
    }
    const std::weak_ptr<Definition> bottom = std::static_pointer_cast<Definition>(deepest.lock()->DataDef());
    root.reset();
    EXPECT_TRUE(deepest.expired());
    definition.reset();
    EXPECT_TRUE(bottom.expired());
}

}  // namespace
}  // namespace korvex::objects
