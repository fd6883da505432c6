#include "persistence/qor_object.h"

#include <span>

namespace korvex {

namespace {

using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::Parameter;
using automation::Passing;
using automation::Variant;
using automation::VarType;
using Arguments = std::span<Variant>;

QORObject& Self(Object& self) { return static_cast<QORObject&>(self); }
std::int32_t Id(Arguments arguments) { return *arguments[0].If<std::int32_t>(); }
const std::string& Text(const Variant& value) { return *value.If<std::string>(); }

constexpr Parameter AttributeId[] = {{"AttributeID", VarType::Long}};
constexpr Parameter AttributeIdAndLong[] = {{"AttributeID", VarType::Long}, {"newValue", VarType::Long}};
constexpr Parameter AttributeIdAndInteger[] = {{"AttributeID", VarType::Long},
                                               {"newValue", VarType::Integer}};
constexpr Parameter ValueIndexOnly[] = {{"Index", VarType::Long}};
constexpr Parameter ValueIndexAndValue[] = {{"Index", VarType::Long}, {"newValue", VarType::Variant}};
constexpr Parameter MemberName[] = {{"Name", VarType::String}};
constexpr Parameter FieldName[] = {{"FieldName", VarType::String}};
constexpr Parameter NewFlag[] = {{"newValue", VarType::Boolean}};
constexpr Parameter NewDefinition[] = {{"newValue", VarType::Object, Passing::ByValue, false, "QORObject"}};
constexpr Parameter AddItemParameters[] = {{"vnt1", VarType::Variant, Passing::ByValue, true},
                                           {"vnt2", VarType::Variant, Passing::ByValue, true}};

constexpr Member Members[] = {
    {.name = "Parent",
     .kind = InvokeKind::PropertyGet,
     .result = VarType::Object,
     .call = [](Object& self, Arguments) -> Variant { return Self(self).Parent(); },
     .resultTypeName = "QORObject"},
    {.name = "Modified",
     .kind = InvokeKind::PropertyGet,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments) -> Variant { return Self(self).Modified(); }},
    {.name = "Modified",
     .kind = InvokeKind::PropertyLet,
     .parameters = NewFlag,
     .call = [](Object& self, Arguments arguments) -> Variant {
         Self(self).Modified(*arguments[0].If<bool>());
         return {};
     }},
    {.name = "StringAttribute",
     .kind = InvokeKind::PropertyGet,
     .parameters = AttributeId,
     .result = VarType::String,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).StringAttribute(Id(arguments));
     }},
    {.name = "LongAttribute",
     .kind = InvokeKind::PropertyGet,
     .parameters = AttributeId,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).LongAttribute(Id(arguments));
     }},
    {.name = "LongAttribute",
     .kind = InvokeKind::PropertyLet,
     .parameters = AttributeIdAndLong,
     .call = [](Object& self, Arguments arguments) -> Variant {
         Self(self).LongAttribute(Id(arguments), *arguments[1].If<std::int32_t>());
         return {};
     }},
    {.name = "BooleanAttribute",
     .kind = InvokeKind::PropertyGet,
     .parameters = AttributeId,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).BooleanAttribute(Id(arguments));
     }},
    {.name = "IntegerAttribute",
     .kind = InvokeKind::PropertyGet,
     .parameters = AttributeId,
     .result = VarType::Integer,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).IntegerAttribute(Id(arguments));
     }},
    {.name = "IntegerAttribute",
     .kind = InvokeKind::PropertyLet,
     .parameters = AttributeIdAndInteger,
     .call = [](Object& self, Arguments arguments) -> Variant {
         Self(self).IntegerAttribute(Id(arguments), *arguments[1].If<std::int16_t>());
         return {};
     }},
    {.name = "Value",
     .kind = InvokeKind::PropertyGet,
     .parameters = ValueIndexOnly,
     .result = VarType::Variant,
     .call = [](Object& self, Arguments arguments) { return Self(self).Value(Id(arguments)); }},
    {.name = "Value",
     .kind = InvokeKind::PropertyLet,
     .parameters = ValueIndexAndValue,
     .call = [](Object& self, Arguments arguments) -> Variant {
         Self(self).Value(Id(arguments), arguments[1]);
         return {};
     }},
    {.name = "NamedValue",
     .kind = InvokeKind::PropertyGet,
     .parameters = MemberName,
     .result = VarType::Variant,
     .call = [](Object& self, Arguments arguments) { return Self(self).NamedValue(Text(arguments[0])); }},
    {.name = "ObjectAttribute",
     .kind = InvokeKind::PropertyGet,
     .parameters = AttributeId,
     .result = VarType::Object,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).ObjectAttribute(Id(arguments));
     }},
    {.name = "DataDef",
     .kind = InvokeKind::PropertySet,
     .parameters = NewDefinition,
     .call = [](Object& self, Arguments arguments) -> Variant {
         Self(self).DataDef(automation::ObjectAs<QORObject>(arguments[0]));
         return {};
     }},
    {.name = "DataDef",
     .kind = InvokeKind::PropertyGet,
     .result = VarType::Object,
     .call = [](Object& self, Arguments) -> Variant { return Self(self).DataDef(); },
     .resultTypeName = "QORObject"},
    {.name = "AddItem",
     .parameters = AddItemParameters,
     .result = VarType::Object,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).AddItem(arguments[0], arguments[1]);
     },
     .resultTypeName = "QORObject"},
    {.name = "HasAttribute",
     .kind = InvokeKind::PropertyGet,
     .parameters = AttributeId,
     .result = VarType::Boolean,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).HasAttribute(Id(arguments));
     }},
    {.name = "ValueIndex",
     .kind = InvokeKind::PropertyGet,
     .parameters = FieldName,
     .result = VarType::Long,
     .call = [](Object& self, Arguments arguments) -> Variant {
         return Self(self).ValueIndex(Text(arguments[0]));
     }},
};

constexpr automation::ClassInfo Info = {.name = "QORObject", .description = {}, .members = Members};

}  // namespace

const automation::ClassInfo& QORObject::Class() const noexcept { return Info; }

bool QORObject::IsA(const automation::ClassInfo& info) const noexcept { return &info == &Info; }

QORObject* QORObject::From(Object* object) noexcept {
    return object != nullptr && object->IsA(Info) ? static_cast<QORObject*>(object) : nullptr;
}

}  // namespace korvex
