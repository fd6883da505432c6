#include "persistence/qor_object.h"

#include "automation/member_rows.h"

namespace korvex {

namespace {

using automation::GetRow;
using automation::LetRow;
using automation::Parameter;
using automation::Passing;
using automation::Taking;
using automation::VarType;

constexpr Parameter AttributeId[] = {{"AttributeID", VarType::Long}};
constexpr Parameter AttributeIdAndLong[] = {{"AttributeID", VarType::Long}, {"newValue", VarType::Long}};
constexpr Parameter AttributeIdAndInteger[] = {{"AttributeID", VarType::Long},
                                               {"newValue", VarType::Integer}};
constexpr Parameter ValueIndexOnly[] = {{"Index", VarType::Long}};
constexpr Parameter ValueIndexAndValue[] = {{"Index", VarType::Long}, {"newValue", VarType::Variant}};
constexpr Parameter MemberName[] = {{"Name", VarType::String}};
constexpr Parameter FieldName[] = {{"FieldName", VarType::String}};
constexpr Parameter NewDefinition[] = {{"newValue", VarType::Object, Passing::ByValue, false, "QORObject"}};
constexpr Parameter AddItemParameters[] = {{"vnt1", VarType::Variant, Passing::ByValue, true},
                                           {"vnt2", VarType::Variant, Passing::ByValue, true}};

constexpr automation::Member Members[] = {
    GetRow<&QORObject::Parent>("Parent", {.resultTypeName = "QORObject"}),
    GetRow<Taking<>(&QORObject::Modified)>("Modified"),
    LetRow<Taking<bool>(&QORObject::Modified)>("Modified"),
    GetRow<&QORObject::StringAttribute>("StringAttribute", {AttributeId}),
    GetRow<Taking<std::int32_t>(&QORObject::LongAttribute)>("LongAttribute", {AttributeId}),
    LetRow<Taking<std::int32_t, std::int32_t>(&QORObject::LongAttribute)>("LongAttribute",
                                                                          {AttributeIdAndLong}),
    GetRow<&QORObject::BooleanAttribute>("BooleanAttribute", {AttributeId}),
    GetRow<Taking<std::int32_t>(&QORObject::IntegerAttribute)>("IntegerAttribute", {AttributeId}),
    LetRow<Taking<std::int32_t, std::int16_t>(&QORObject::IntegerAttribute)>("IntegerAttribute",
                                                                             {AttributeIdAndInteger}),
    GetRow<Taking<std::int32_t>(&QORObject::Value)>("Value", {ValueIndexOnly}),
    LetRow<Taking<std::int32_t, const automation::Variant&>(&QORObject::Value)>("Value",
                                                                                {ValueIndexAndValue}),
    GetRow<&QORObject::NamedValue>("NamedValue", {MemberName}),
    GetRow<&QORObject::ObjectAttribute>("ObjectAttribute", {AttributeId}),
    automation::SetRow<Taking<const QORObject::Ref&>(&QORObject::DataDef)>("DataDef", {NewDefinition}),
    GetRow<Taking<>(&QORObject::DataDef)>("DataDef", {.resultTypeName = "QORObject"}),
    automation::MethodRow<&QORObject::AddItem>("AddItem", {AddItemParameters, {}, "QORObject"}),
    GetRow<&QORObject::HasAttribute>("HasAttribute", {AttributeId}),
    GetRow<&QORObject::ValueIndex>("ValueIndex", {FieldName}),
};

constexpr automation::ClassInfo Info = {.name = "QORObject", .description = {}, .members = Members};

}  // namespace

const automation::ClassInfo& QORObject::Class() const noexcept { return Info; }

bool QORObject::IsA(const automation::ClassInfo& info) const noexcept { return &info == &Info; }

QORObject* QORObject::From(automation::Object* object) noexcept {
    return object != nullptr && object->IsA(Info) ? static_cast<QORObject*>(object) : nullptr;
}

}  // namespace korvex
