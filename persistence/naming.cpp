#include "persistence/naming.h"

#include "persistence/definition_walk.h"

namespace korvex::persistence {

std::string GetTableName(CrudState& session, const QORObject::Ref& coDataDef) {
    session.ResetLastResult();
    if (Need(coDataDef, "data definition")->BooleanAttribute(attIsIncluded))
        return coDataDef->StringAttribute(attTableName);
    session.Fail(dbTableNotIncluded);
    return {};
}

std::string GetPrimaryKeyFieldName(CrudState& session, const QORObject::Ref& coDataDef) {
    session.ResetLastResult();
    return session.Read(Need(coDataDef, "data definition"))->keyColumn;
}

std::string GetForeignKeyFieldName(CrudState& session, const QORObject::Ref& coDataDef) {
    session.ResetLastResult();
    const auto keys = Need(coDataDef, "data definition")->ObjectAttribute(attForeignKeys);
    if (keys == nullptr) return {};
    const auto first = keys->NewEnum()->Next();
    return first ? ToQORObject(*first, "foreign-key entry")->StringAttribute(attForeignKeyField)
                 : std::string();
}

}  // namespace korvex::persistence
