#include "persistence/definition_walk.h"

#include "automation/convert.h"
#include "automation/error.h"

namespace korvex::persistence {

using automation::Error;
using automation::Variant;

namespace {

[[noreturn]] void RaiseNothing(std::string_view what) {
    throw Error(automation::ObjectVariableNotSet, "There is no " + std::string(what) + ".");
}

}  // namespace

const QORObject::Ref& Need(const QORObject::Ref& reference, std::string_view what) {
    if (reference == nullptr) RaiseNothing(what);
    return reference;
}

QORObject::Ref DefinitionOf(const QORObject::Ref& coData) {
    return Need(Need(coData, "data object")->DataDef(), "definition of the data object");
}

QORObject::Ref ElementDefinitionOf(QORObject& definition) {
    return Need(definition.ObjectAttribute(attElementDef), "definition of the collection's elements");
}

QORObject::Ref ToQORObject(const Variant& value, std::string_view what) {
    const auto* reference = value.If<automation::ObjectRef>();
    if (reference == nullptr)
        throw Error(automation::ObjectRequired, "The " + std::string(what) + " holds no data object.");
    if (*reference == nullptr) RaiseNothing(what);
    auto* object = QORObject::From(reference->get());
    if (object == nullptr)
        throw Error(automation::TypeMismatch, "The " + std::string(what) + " is no QORObject.");
    return {*reference, object};
}

Variant ColumnValue(QORObject& coData, std::string_view column) {
    return coData.Value(coData.ValueIndex(column));
}

std::int32_t ToKey(const Variant& value) { return IsBlank(value) ? 0 : automation::ToLong(value); }

bool IsBlank(const Variant& value) {
    const auto* text = value.If<std::string>();
    return IsEmptyOrNull(value) || (text != nullptr && text->empty());
}

}  // namespace korvex::persistence
