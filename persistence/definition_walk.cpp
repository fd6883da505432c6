#include "persistence/definition_walk.h"

#include "automation/convert.h"
#include "automation/error.h"

namespace korvex::persistence {

using automation::Error;
using automation::Variant;

const QORObject::Ref& Need(const QORObject::Ref& reference, std::string_view what) {
    if (reference == nullptr)
        throw Error(automation::ObjectVariableNotSet, "There is no " + std::string(what) + ".");
    return reference;
}

QORObject::Ref DefinitionOf(const QORObject::Ref& coData) {
    return Need(Need(coData, "data object")->DataDef(), "definition of the data object");
}

QORObject::Ref ToQORObject(const Variant& value, std::string_view what) {
    const auto* reference = value.If<automation::ObjectRef>();
    if (reference == nullptr)
        throw Error(automation::ObjectRequired, "The " + std::string(what) + " holds no data object.");
    auto object = std::dynamic_pointer_cast<QORObject>(*reference);
    if (*reference != nullptr && object == nullptr)
        throw Error(automation::TypeMismatch, "The " + std::string(what) + " is no QORObject.");
    return Need(object, what);
}

std::string StoredColumn(QORObject& valueDef) {
    if (IsChild(valueDef) || !valueDef.BooleanAttribute(attIsIncluded)) return {};
    return valueDef.StringAttribute(attFieldName);
}

Variant ColumnValue(QORObject& coData, std::string_view column) {
    return coData.Value(coData.ValueIndex(column));
}

bool IsBlank(const Variant& value) {
    const auto* text = value.If<std::string>();
    return IsEmptyOrNull(value) || (text != nullptr && text->empty());
}

}  // namespace korvex::persistence
