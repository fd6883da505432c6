#include "automation/dispatch.h"

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/member_rows.h"
#include "automation/outcome.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

namespace korvex::automation {
namespace {

/// A class with every kind of member and parameter. Its methods note the values that reached them.
class Probe : public TableObject {
  public:
    const ClassInfo& Class() const noexcept override;

    void Note(std::span<const Variant> arguments) {
        received.clear();
        for (const Variant& argument : arguments) {
            if (!received.empty()) received += ", ";
            received += Describe(argument);
        }
    }

    std::string received;
    std::string prefix = "FK_";
    std::shared_ptr<Collection> partner;
    std::array<std::int32_t, 3> cells{};
};

constexpr Parameter openParameters[] = {
    {.name = "sFile", .type = VarType::String, .passing = Passing::ByReference},
    {.name = "lCount", .type = VarType::Long},
    {.name = "vntKey"},
    {.name = "sName", .type = VarType::String, .passing = Passing::ByReference, .optional = true},
    {.name = "vntPrefix", .passing = Passing::ByReference, .optional = true},
    {.name = "nMode", .type = VarType::Integer, .optional = true},
    {.name = "bQuick", .type = VarType::Boolean, .optional = true},
    {.name = "oOwner", .type = VarType::Object, .passing = Passing::ByReference, .optional = true},
};
constexpr Parameter changeParameters[] = {
    {.name = "sText", .type = VarType::String, .passing = Passing::ByReference},
    {.name = "vnt", .passing = Passing::ByReference},
    {.name = "lNumber", .type = VarType::Long, .passing = Passing::ByReference},
    {.name = "sCopy", .type = VarType::String, .optional = true},
    {.name = "sMore", .type = VarType::String, .passing = Passing::ByReference, .optional = true},
};
constexpr Parameter objectParameter[] = {
    {.name = "oValue", .type = VarType::Object, .passing = Passing::ByReference}};
constexpr Parameter cellParameters[] = {{.name = "lIndex", .type = VarType::Long, .optional = true},
                                        {.name = "lValue", .type = VarType::Long}};

Variant ChangeAll(Object&, std::span<Variant> arguments) {
    const bool fails = arguments[0] == Variant("fail");
    for (Variant& argument : arguments)
        argument = argument.Type() == VarType::Long ? Variant(7) : Variant("changed");
    if (fails) throw Error(57);
    return {};
}

std::string GetPrefix(Probe& probe) { return probe.prefix; }
void LetPrefix(Probe& probe, const std::string& value) { probe.prefix = value; }
std::shared_ptr<Collection> GetPartner(Probe& probe) { return probe.partner; }
void LetPartner(Probe& probe, const std::shared_ptr<Collection>& value) { probe.partner = value; }
void LetCell(Probe& probe, std::int32_t index, std::int32_t value) {
    probe.cells.at(static_cast<std::size_t>(index)) = value;
}
std::int32_t LastResult(Probe&) { return 0; }

constexpr Member members[] = {
    {.name = "Open",
     .parameters = openParameters,
     .result = VarType::Long,
     .call =
         [](Object& self, std::span<Variant> arguments) {
             static_cast<Probe&>(self).Note(arguments);
             return Variant(static_cast<std::int32_t>(arguments.size()));
         }},
    {.name = "Change", .parameters = changeParameters, .call = ChangeAll},
    GetRow<GetPrefix>("FKPrefix"),
    LetRow<LetPrefix, Passing::ByReference>("FKPrefix"),
    LetRow<LetPartner>("Partner", {objectParameter}),
    GetRow<GetPartner>("Partner"),
    LetRow<LetCell>("Cell", {cellParameters}),
    GetRow<LastResult>("LastResult"),
};

const ClassInfo& Probe::Class() const noexcept {
    static constexpr ClassInfo info = {
        .name = "Probe", .description = {}, .members = members, .defaultMember = "FKPrefix"};
    return info;
}

class Dispatch : public testing::Test {
  protected:
    std::shared_ptr<Probe> probe = std::make_shared<Probe>();
    Object& object = *probe;

    template <class... Args>
    std::string Outcome(std::string_view name, InvokeKind kind, Args&&... arguments) {
        std::array<Variant, sizeof...(Args)> values = {Variant(std::forward<Args>(arguments))...};
        return OutcomeOf([&] { return object.Invoke(name, kind, values); });
    }
};

TEST_F(Dispatch, ArgumentsReachTheirParametersConverted) {
    EXPECT_EQ(Call(object, "OPEN", 12, "34", 5.5, true, "P_", 2.5, "true", probe), Variant(8));
    EXPECT_EQ(
        probe->received,
        "String <12>, Long 34, Double 5.5, String <True>, String <P_>, Integer 2, Boolean True, Object");
}

TEST_F(Dispatch, OptionalArgumentsMayBeLeftOutAnywhere) {
    Call(object, "Open", "f", 1, Variant::Null());
    EXPECT_EQ(probe->received,
              "String <f>, Long 1, Null, String <>, Missing, Integer 0, Boolean False, Nothing");
    Call(object, "Open", "f", 1, Variant(), Variant::Missing(), "P_", Variant::Missing(), true);
    EXPECT_EQ(probe->received,
              "String <f>, Long 1, Empty, String <>, String <P_>, Integer 0, Boolean True, Nothing");
}

TEST_F(Dispatch, WrongCallsRaiseTheRuntimesErrors) {
    using enum InvokeKind;
    EXPECT_EQ(Outcome("Open", Method, "f", 1), "error 449");
    EXPECT_EQ(Outcome("Open", Method, "f", Variant::Missing(), 1), "error 449");
    EXPECT_EQ(Outcome("Open", Method, "f", 1, 2, "n", "p", 0, true, probe, 9), "error 450");
    EXPECT_EQ(Outcome("LastResult", PropertyGet, 1), "error 450");
    EXPECT_EQ(Outcome("Open", Method, "f", "one", 2), "error 13");
    EXPECT_EQ(Outcome("Open", Method, "f", Variant::Null(), 2), "error 94");
    EXPECT_EQ(Outcome("Open", Method, "f", 1, 2, "n", "p", 40000), "error 6");
    EXPECT_EQ(Outcome("Open", Method, "f", 1, 2, "n", "p", 0, true, "owner"), "error 13");
    EXPECT_EQ(Outcome("LastResult", PropertyLet, 1), "error 383");
    EXPECT_EQ(Outcome("LastResult", PropertySet, probe), "error 383");
    EXPECT_EQ(Outcome("Open", PropertyLet, 1), "error 438");
    EXPECT_EQ(Outcome("Cell", PropertyGet), "error 438");
    EXPECT_EQ(Outcome("Close", Method), "error 438");
    EXPECT_EQ(Outcome("FKPrefix", PropertyLet), "error 449");
    EXPECT_EQ(OutcomeOf([&] { object.NewEnum(); }), "error 438");
    EXPECT_EQ(probe->received, "") << "no refused call may reach the member";
}

TEST_F(Dispatch, ErrorsNameTheMemberAndTheArgument) {
    const auto description = [&](auto... arguments) {
        return tests::ErrorOf([&] { Call(object, "Open", arguments...); }).description;
    };
    EXPECT_EQ(description("f", "one", 2),
              "Type mismatch: \"one\" is not a number (argument lCount of Probe.Open)");
    EXPECT_EQ(description("f"), "Argument not optional: Probe.Open, argument lCount");
}

TEST_F(Dispatch, ByReferenceArgumentsAreWrittenBack) {
    Variant variables[] = {"text", 1, 2, "copy", "more"};
    object.Invoke("Change", InvokeKind::Method, variables);
    EXPECT_EQ(variables[0], Variant("changed"));
    EXPECT_EQ(variables[1], Variant(7));
    EXPECT_EQ(variables[2], Variant(7));
    EXPECT_EQ(variables[3], Variant("copy")) << "passed by value";
    EXPECT_EQ(variables[4], Variant("changed"));

    Variant leftOut[] = {1, Variant(), "2", Variant::Missing(), Variant::Missing()};
    object.Invoke("Change", InvokeKind::Method, leftOut);
    EXPECT_EQ(leftOut[0], Variant("changed"));
    EXPECT_EQ(leftOut[1], Variant("changed"));
    EXPECT_EQ(leftOut[2], Variant(7));
}

TEST_F(Dispatch, VariablesStayAsTheyAreWhenTheMemberOnlyReadsOrFails) {
    const Variant missing = Variant::Missing();
    Variant variables[] = {12, 1, 2, missing, missing, missing, missing, missing};
    object.Invoke("Open", InvokeKind::Method, variables);
    EXPECT_EQ(variables[0], Variant(12)) << "still a number, though the member saw a text";
    for (std::size_t i = 3; i < std::size(variables); ++i)
        EXPECT_EQ(variables[i], missing) << i;

    Variant kept[] = {"fail", 1, 2};
    EXPECT_EQ(OutcomeOf([&] { object.Invoke("Change", InvokeKind::Method, kept); }), "error 57");
    EXPECT_EQ(kept[0], Variant("fail"));
    EXPECT_EQ(kept[2], Variant(2));
}

TEST_F(Dispatch, PropertiesAreReadAndAssigned) {
    Let(object, "fkprefix", 5);
    EXPECT_EQ(Get(object, "FKPREFIX"), Variant("5"));
    EXPECT_EQ(Call(object, "FKPrefix"), Variant("5")) << "callers that cannot tell a get from a call";
    EXPECT_EQ(Outcome("FKPrefix", static_cast<InvokeKind>(3)), "String <5>")
        << "callers that send both flags";
    EXPECT_EQ(Get(object, ""), Variant("5")) << "the default member";

    Variant indexed[] = {2, 40};
    object.Invoke("Cell", InvokeKind::PropertyLet, indexed);
    Let(object, "Cell", 30);
    EXPECT_EQ(probe->cells, (std::array<std::int32_t, 3>{30, 0, 40})) << "the new value is the last argument";
}

TEST_F(Dispatch, ObjectsAreAssignedWithLetAndWithSet) {
    const auto first = std::make_shared<Collection>();
    const auto second = std::make_shared<Collection>();
    using enum InvokeKind;
    EXPECT_EQ(Outcome("Partner", PropertyLet, first), "Empty");
    EXPECT_EQ(Get(object, "Partner"), Variant(first));
    EXPECT_EQ(Outcome("Partner", PropertySet, second), "Empty");
    EXPECT_EQ(probe->partner, second);
    EXPECT_EQ(Outcome("Partner", PropertySet, 5), "error 424");
    EXPECT_EQ(Outcome("Partner", PropertyLet, 5), "error 13");
    EXPECT_EQ(Outcome("Partner", PropertySet, probe), "error 13") << "an object of another class";
    EXPECT_EQ(probe->partner, second);
    EXPECT_EQ(Outcome("Partner", PropertySet, ObjectRef()), "Empty");
    EXPECT_EQ(probe->partner, nullptr);
}

TEST(Error, CarriesTheStandardTextUnlessItIsGivenOne) {
    EXPECT_EQ(Error(383).Description(), "Set not supported (read-only property)");
    EXPECT_EQ(Error(28).Description(), "Out of stack space");
    EXPECT_EQ(Error(3343, "no database").Description(), "no database");
    EXPECT_EQ(Error(3343).Description(), "Application-defined or object-defined error");
}

}  // namespace
}  // namespace korvex::automation
