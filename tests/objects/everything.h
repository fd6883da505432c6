#pragma once

#include "objects/definition.h"

#include <memory>
#include <utility>

namespace korvex::tests {

/// An object of every type, with a child and a collection of lines.
inline std::shared_ptr<objects::Definition> Everything() {
    using automation::VarType;
    using objects::Definition;
    const std::pair<const char*, VarType> values[] = {
        {"EverythingID", VarType::Long}, {"Integer", VarType::Integer}, {"Long", VarType::Long},
        {"LongLong", VarType::LongLong}, {"Single", VarType::Single},   {"Double", VarType::Double},
        {"Currency", VarType::Currency}, {"Date", VarType::Date},       {"String", VarType::String},
        {"Boolean", VarType::Boolean},   {"Byte", VarType::Byte},       {"Object", VarType::Object},
        {"Variant", VarType::Variant},
    };
    auto definition = std::make_shared<Definition>("Everything", "");
    for (const auto& [name, type] : values)
        definition->AddValue({name, "", static_cast<std::int32_t>(type)});
    const auto child = std::make_shared<Definition>("Child", "");
    child->AddValue({"Name"});
    definition->AddChild("Child", child);
    const auto line = std::make_shared<Definition>("Line", "tLine");
    line->AddValue({"LineID", "LineID", static_cast<std::int32_t>(VarType::Long)});
    line->AddPrimaryKey("LineID");
    line->AddValue({"Quantity", "", static_cast<std::int32_t>(VarType::Integer)});
    const auto lines = std::make_shared<Definition>("Lines", "");
    lines->AddValue({"Next", "", static_cast<std::int32_t>(VarType::Long)});
    lines->ElementDefinition(line);
    definition->AddChild("Lines", lines);
    return definition;
}

}  // namespace korvex::tests
