#pragma once

#include "hosts/cli/model/model.h"

#include <string>

/// Pictures of a model as text.
namespace korvex::cli {

/// Every definition as an indented tree of objects and values. An object that was shown before is only named.
std::string TreeText(const Model& model);

/// An entity-relationship diagram for Mermaid.
std::string MermaidText(const Model& model);

/// A directed graph for Graphviz.
std::string DotText(const Model& model);

/// "string(40)", "long", "17".
std::string TypeText(const ModelValue& value);

/// One name per object that diagram languages take as an identifier: letters, digits and underscores,
/// numbered where two would be the same.
std::vector<std::string> DiagramNames(const Model& model);

}  // namespace korvex::cli
