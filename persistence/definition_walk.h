#pragma once

#include "automation/dispatch.h"
#include "persistence/qor_object.h"

#include <string>
#include <string_view>
#include <vector>

/// Reading data objects and their definitions. Everything rests on the operations of QORObject alone.
namespace korvex::persistence {

/// `reference` when it refers to something; ObjectVariableNotSet (91) with "There is no <what>" otherwise.
const QORObject::Ref& Need(const QORObject::Ref& reference, std::string_view what);

/// The definition of a data object; ObjectVariableNotSet (91) when there is no object or no definition.
QORObject::Ref DefinitionOf(const QORObject::Ref& coData);

/// The definition of a collection's elements; ObjectVariableNotSet (91) when there is none.
QORObject::Ref ElementDefinitionOf(QORObject& definition);

/// A value that holds a QORObject; ObjectRequired (424) for one that holds none, ObjectVariableNotSet (91)
/// for Nothing, TypeMismatch (13) for another kind of object. `what` names it in the description.
QORObject::Ref ToQORObject(const automation::Variant& value, std::string_view what);

/// Calls `visit(const QORObject::Ref&)` for each item of a collection, in order; none when it is absent.
template <class Visit>
void ForEach(QORObject* collection, Visit&& visit) {
    if (collection == nullptr) return;
    const auto items = collection->NewEnum();
    while (const auto item = items->Next())
        visit(ToQORObject(*item, "item of the collection"));
}

/// The value is a child data object.
inline bool IsChild(QORObject& valueDef) { return valueDef.HasAttribute(attValues); }
/// The definition is that of a collection-kind object.
inline bool IsCollection(QORObject& definition) { return definition.HasAttribute(attElementDef); }

/// Calls `visit(const QORObject::Ref& child)` for the child objects of these names.
template <class Visit>
void ForEachChild(QORObject& coData, const std::vector<std::string>& names, Visit&& visit) {
    for (const auto& name : names)
        visit(ToQORObject(coData.NamedValue(name), name));
}

/// The value that a data object holds for a column.
automation::Variant ColumnValue(QORObject& coData, std::string_view column);

inline bool IsEmptyOrNull(const automation::Variant& value) { return value.IsEmpty() || value.IsNull(); }
/// Empty, Null or "".
bool IsBlank(const automation::Variant& value);
/// A value as the key that a data object carries; 0 for a blank one, as a key below 1 is none.
std::int32_t ToKey(const automation::Variant& value);

}  // namespace korvex::persistence
