#include "persistence/definition_carrier.h"

#include "persistence/definition_walk.h"

namespace korvex::persistence {

automation::Variant DefinitionCarrier::NamedValue(std::string_view name) {
    std::shared_ptr<DefinitionCarrier> child;
    const auto values = m_definition != nullptr ? m_definition->ObjectAttribute(attValues) : nullptr;
    ForEach(values.get(), [&](const Ref& valueDef) {
        if (child != nullptr || !IsChild(*valueDef) || valueDef->StringAttribute(attName) != name) return;
        child = std::make_shared<DefinitionCarrier>();
        child->DataDef(valueDef);
    });
    return child != nullptr ? automation::Variant(child) : PlainObject::NamedValue(name);
}

}  // namespace korvex::persistence
