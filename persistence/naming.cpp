#include "persistence/naming.h"

#include "persistence/definition_walk.h"

namespace korvex::persistence {

namespace {

/// The first plain value whose column is `column`.
bool HasPlainColumn(QORObject& values, const std::string& column) {
    const auto items = values.NewEnum();
    while (const auto item = items->Next()) {
        const auto valueDef = ToQORObject(*item, "value definition");
        if (!IsChild(*valueDef) && valueDef->StringAttribute(attFieldName) == column) return true;
    }
    return false;
}

}  // namespace

std::string GetTableName(Session& session, const QORObject::Ref& coDataDef) {
    session.ResetLastResult();
    if (Need(coDataDef, "data definition")->BooleanAttribute(attIsIncluded))
        return coDataDef->StringAttribute(attTableName);
    session.Fail(dbTableNotIncluded);
    return {};
}

std::string GetPrimaryKeyFieldName(Session& session, const QORObject::Ref& coDataDef) {
    session.ResetLastResult();
    std::string result;
    const auto values = Need(coDataDef, "data definition")->ObjectAttribute(attValues);
    const auto keys = coDataDef->ObjectAttribute(attPrimaryKeys);
    if (values == nullptr) return result;
    ForEach(keys.get(), [&](const QORObject::Ref& key) {
        std::string column = key->StringAttribute(attName);
        if (HasPlainColumn(*values, column)) result = std::move(column);
    });
    return result;
}

std::string GetForeignKeyFieldName(Session& session, const QORObject::Ref& coDataDef) {
    session.ResetLastResult();
    const auto keys = Need(coDataDef, "data definition")->ObjectAttribute(attForeignKeys);
    if (keys == nullptr) return {};
    const auto first = keys->NewEnum()->Next();
    return first ? ToQORObject(*first, "foreign-key entry")->StringAttribute(attForeignKeyField)
                 : std::string();
}

}  // namespace korvex::persistence
