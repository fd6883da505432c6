#include "persistence/definition_carrier.h"

#include "automation/error.h"
#include "automation/text.h"
#include "persistence/definition_walk.h"

namespace korvex::persistence {

namespace {

void ExpectTable(QORObject& valueDef, std::string_view name) {
    if (!valueDef.BooleanAttribute(attIsIncluded) || !valueDef.StringAttribute(attTableName).empty()) return;
    throw automation::Error(
        automation::InvalidProcedureCall,
        "The value definition of the child object " + automation::Quoted(name) +
            " names no table, so what is stored beneath it cannot be deleted. It must answer for "
            "the definition of the child object, or the host must supply working data objects.");
}

}  // namespace

automation::Variant DefinitionCarrier::NamedValue(std::string_view name) {
    std::shared_ptr<DefinitionCarrier> child;
    const auto values = m_definition != nullptr ? m_definition->ObjectAttribute(attValues) : nullptr;
    ForEach(values.get(), [&](const Ref& valueDef) {
        if (child != nullptr || !IsChild(*valueDef) || valueDef->StringAttribute(attName) != name) return;
        ExpectTable(*valueDef, name);
        child = std::make_shared<DefinitionCarrier>();
        child->DataDef(valueDef);
    });
    return child != nullptr ? automation::Variant(child) : PlainObject::NamedValue(name);
}

}  // namespace korvex::persistence
