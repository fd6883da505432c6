// Arguments that a member changes come back in the caller's variables, whatever type those have.

#include "automation/com/bstr.h"
#include "automation/com/shell.h"
#include "automation/convert.h"
#include "automation/member_rows.h"
#include "support/late_bound.h"
#include "support/outcome_text.h"
#include "support/print_variant.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using automation::Passing;
using automation::Variant;
using automation::VarType;

constexpr automation::Parameter assignParameters[] = {{"vntTarget", VarType::Variant, Passing::ByReference},
                                                      {"vntValue"}};
constexpr automation::Parameter textParameters[] = {
    {"sText", VarType::String, Passing::ByReference},
    {"sMore", VarType::String, Passing::ByReference, true},
    {"lNumber", VarType::Long, Passing::ByReference, true},
    {"sCopy", VarType::String, Passing::ByValue, true},
};

class Probe final : public automation::TableObject {
  public:
    const automation::ClassInfo& Class() const noexcept override;
};

void Assign(Probe&, Variant& target, const Variant& value) { target = value; }

/// Lengthens each text, counts up.
Variant Change(automation::Object&, std::span<Variant> arguments) {
    for (const std::size_t i : {0u, 1u, 3u})
        arguments[i] = automation::ToString(arguments[i]) + "+";
    arguments[2] = automation::ToLong(arguments[2]) + 1;
    return {};
}

constexpr automation::Member members[] = {
    automation::MethodRow<Assign>("Assign", {assignParameters}),
    {.name = "Change", .parameters = textParameters, .call = Change},
    {.name = "Read",
     .parameters = textParameters,
     .call = [](automation::Object&, auto) { return Variant(); }},
};

constexpr automation::ClassInfo info = {.name = "Probe", .description = {}, .members = members};

const automation::ClassInfo& Probe::Class() const noexcept { return info; }

VARIANT ReferenceTo(VARIANT& variable) {
    VARIANT reference = {};
    const bool isVariant = variable.vt == VT_EMPTY;
    reference.vt = static_cast<VARTYPE>(VT_BYREF | (isVariant ? VARTYPE{VT_VARIANT} : variable.vt));
    reference.byref =
        isVariant || variable.vt == VT_DECIMAL ? static_cast<void*>(&variable) : &variable.byref;
    return reference;
}

VARIANT Plain(VARTYPE type) {
    VARIANT variable;
    VariantInit(&variable);
    variable.vt = type;
    return variable;
}

/// A caller's variable of the given type, as the system reads it afterwards: "<type> <text>".
std::string TextOf(VARIANT& variable) {
    com::ComVariant text;
    const HRESULT converted = VariantChangeTypeEx(&text, &variable, 0x409, VARIANT_ALPHABOOL, VT_BSTR);
    const std::string value = converted == S_OK ? com::FromBstr(text.Value().bstrVal) : "?";
    return std::to_string(variable.vt) + " " + value;
}

TEST(ByReferenceTest, VariablesOfEveryTypeReceiveAValue) {
    const auto probe = com::WrapObject(std::make_shared<Probe>());
    const struct {
        VARTYPE type;
        Variant value;
        const char* outcome;
        const char* variable;
    } cases[] = {
        {VT_I1, 7, "Empty", "16 7"},
        {VT_UI1, 200, "Empty", "17 200"},
        {VT_I2, 7.5, "Empty", "2 8"},
        {VT_UI2, 65535, "Empty", "18 65535"},
        {VT_I4, "70000", "Empty", "3 70000"},
        {VT_UI4, 3e9, "Empty", "19 3000000000"},
        {VT_INT, 7, "Empty", "22 7"},
        {VT_UINT, 7, "Empty", "23 7"},
        {VT_I8, 5e9, "Empty", "20 5000000000"},
        {VT_UI8, "18446744073709551615", "Empty", "21 18446744073709551615"},
        {VT_R4, 0.25, "Empty", "4 0.25"},
        {VT_R8, "1E3", "Empty", "5 1000"},
        {VT_CY, 2.5, "Empty", "6 2.5"},
        {VT_DATE, 2.0, "Empty", "7 1/1/1900"},
        {VT_BSTR, 12, "Empty", "8 12"},
        {VT_BOOL, "true", "Empty", "11 True"},
        {VT_DECIMAL, 12.5, "Empty", "14 12.5"},
        {VT_EMPTY, "text", "Empty", "8 text"},  // a Variant takes whatever comes
        {VT_EMPTY, Variant::Null(), "Empty", "1 ?"},
        // What does not fit leaves the variable alone.
        {VT_I2, 70000, "0x800A0006 <Korvex> <Overflow>", "2 0"},
        {VT_UI2, -1, "0x800A0006 <Korvex> <Overflow>", "18 0"},
        {VT_I4, "seven", "0x800A000D", "3 0"},
        {VT_BSTR, Variant::Null(), "0x800A005E", "8 "},
        {VT_DECIMAL, "seven", "0x800A000D <Korvex> <Type mismatch>", "14 0"},
    };
    for (const auto& test : cases) {
        VARIANT variable = Plain(test.type);
        const com::ComVariant value(test.value);
        const auto outcome =
            InvokeByName(probe.Get(), "Assign", DISPATCH_METHOD, {ReferenceTo(variable), value.Value()});
        EXPECT_EQ(OutcomeText(outcome).substr(0, std::string(test.outcome).size()), test.outcome)
            << "type " << test.type << ": " << OutcomeText(outcome);
        EXPECT_EQ(TextOf(variable), test.variable) << "type " << test.type;
        VariantClear(&variable);
    }
}

TEST(ByReferenceTest, ObjectsBytesAndNestedReferencesAreHandedOver) {
    const auto probe = com::WrapObject(std::make_shared<Probe>());
    const Variant object = com::FromDispatch(probe.Get());
    const com::ComVariant objectValue(object);
    for (const VARTYPE type : {VT_DISPATCH, VT_UNKNOWN}) {
        VARIANT variable = Plain(type);
        const auto outcome = InvokeByName(probe.Get(), "Assign", DISPATCH_METHOD,
                                          {ReferenceTo(variable), objectValue.Value()});
        EXPECT_EQ(OutcomeText(outcome), "Empty") << type;
        EXPECT_EQ(com::FromVariant(variable), object) << type;
        VariantClear(&variable);
    }

    VARIANT bytes = Plain(VT_ARRAY | VT_UI1);
    const com::ComVariant three(automation::Bytes{1, 2, 3});
    InvokeByName(probe.Get(), "Assign", DISPATCH_METHOD, {ReferenceTo(bytes), three.Value()});
    EXPECT_EQ(com::FromVariant(bytes), Variant(automation::Bytes{1, 2, 3}));
    VariantClear(&bytes);

    // A script host passes a variable on by reference that it got by reference itself.
    VARIANT number = Plain(VT_I4);
    VARIANT passedOn = ReferenceTo(number);
    VARIANT reference = {};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &passedOn;
    const com::ComVariant seven(7);
    InvokeByName(probe.Get(), "Assign", DISPATCH_METHOD, {reference, seven.Value()});
    EXPECT_EQ(TextOf(number), "3 7");
    EXPECT_EQ(passedOn.vt, VT_BYREF | VT_I4) << "the reference itself stays one";
}

TEST(ByReferenceTest, TypedParametersTakeAndGiveBackWhatTheCallerHas) {
    const auto probe = com::WrapObject(std::make_shared<Probe>());
    // The caller's variables for sText, sMore, lNumber and sCopy: by value, by reference, or left out.
    const auto call = [&](const char* member, Variant text, Variant number) {
        com::ComVariant variables[] = {com::ComVariant(text), com::ComVariant("more"),
                                       com::ComVariant(number), com::ComVariant("copy")};
        VARIANT any = {};
        any.vt = VT_BYREF | VT_VARIANT;
        any.pvarVal = &variables[0];
        InvokeByName(probe.Get(), member, DISPATCH_METHOD,
                     {any, variables[1].Value(), ReferenceTo(variables[2].Value()),
                      ReferenceTo(variables[3].Value())});
        std::string after;
        for (const auto& variable : variables)
            after += automation::Describe(com::FromVariant(variable.Value())) + ", ";
        return after;
    };
    EXPECT_EQ(call("Change", "text", 1), "String <text+>, String <more>, Long 2, String <copy>, ");
    EXPECT_EQ(call("Change", 12, "1"), "String <12+>, String <more>, String <2>, String <copy>, ")
        << "an untyped variable takes the member's type, a typed one keeps its own";
    EXPECT_EQ(call("Read", 12, "1"), "Long 12, String <more>, String <1>, String <copy>, ")
        << "what a member only reads stays what it was";

    // Optional by-reference arguments may be left out: not given at all, or given as missing.
    com::Bstr text("a");
    BSTR variable = text.Detach();
    VARIANT reference = {};
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &variable;
    const com::ComVariant missing(Variant::Missing());
    for (const std::vector<VARIANT>& arguments : {std::vector{reference},
                                                  {reference, missing.Value()},
                                                  {reference, missing.Value(), missing.Value()}}) {
        EXPECT_EQ(OutcomeText(InvokeByName(probe.Get(), "Change", DISPATCH_METHOD, arguments)), "Empty");
    }
    EXPECT_EQ(com::FromBstr(variable), "a+++");
    SysFreeString(variable);
}

}  // namespace
}  // namespace korvex::tests
