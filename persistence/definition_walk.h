#pragma once

#include "automation/dispatch.h"
#include "persistence/qor_object.h"

#include <string>

/// Reading data objects and their definitions. Everything rests on the operations of QORObject alone.
namespace korvex::persistence {

/// `reference` when it refers to something; ObjectVariableNotSet (91) with "There is no <what>" otherwise.
const QORObject::Ref& Need(const QORObject::Ref& reference, std::string_view what);

/// The definition of a data object; ObjectVariableNotSet (91) when there is no object or no definition.
QORObject::Ref DefinitionOf(const QORObject::Ref& coData);

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

/// Calls `visit` for each value definition of a definition, in order.
template <class Visit>
void ForEachValueDef(QORObject& definition, Visit&& visit) {
    const auto values = definition.ObjectAttribute(attValues);
    ForEach(values.get(), visit);
}

/// The value is a child data object.
inline bool IsChild(QORObject& valueDef) { return valueDef.HasAttribute(attValues); }
/// The definition is that of a collection-kind object.
inline bool IsCollection(QORObject& definition) { return definition.HasAttribute(attElementDef); }

/// Column of a value definition; "" for one that is not stored in a column: a child object, not included, or
/// without a column name.
std::string StoredColumn(QORObject& valueDef);

/// Calls `visit(const QORObject::Ref& child)` for each child object of a data object, in the order of its
/// definition.
template <class Visit>
void ForEachChild(QORObject& coData, QORObject& definition, Visit&& visit) {
    ForEachValueDef(definition, [&](const QORObject::Ref& valueDef) {
        if (!IsChild(*valueDef)) return;
        const std::string name = valueDef->StringAttribute(attName);
        visit(ToQORObject(coData.NamedValue(name), name));
    });
}

/// The value that a data object holds for a column.
automation::Variant ColumnValue(QORObject& coData, std::string_view column);

inline bool IsEmptyOrNull(const automation::Variant& value) { return value.IsEmpty() || value.IsNull(); }
/// Empty, Null or "".
bool IsBlank(const automation::Variant& value);

}  // namespace korvex::persistence
