#pragma once

#include "hosts/cli/model/model.h"
#include "hosts/cli/show/shown_definition.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Pictures of definitions as text.
namespace korvex::cli {

/// Every definition as an indented tree of objects and values. An object that was shown before is only named.
std::string TreeText(const Model& model);

/// An entity-relationship diagram for Mermaid.
std::string MermaidText(const ShownDefinition& shown);

/// A directed graph for Graphviz: boxes with the columns of a table, or, with very many objects, with its
/// name only. With `links` each box has the id PictureID and leads to ObjectLink of its object.
std::string DotText(const ShownDefinition& shown, bool links = false);

/// Whether there are so few objects that the boxes of DotText have columns.
bool HasRoomForRows(const ShownDefinition& shown);

/// Address of an object on the page, and the identifier of its box in the picture there.
std::string ObjectLink(const ShownObject& object);
std::string PictureID(const ShownObject& object);

/// "string(40)", "long", "17".
std::string TypeText(std::int32_t dataType, const std::string& maxLength);

/// Whether diagram languages take the character within an identifier: letters, digits and underscores of
/// ASCII; and a word of such characters that is an identifier, whatever it begins with.
bool IsPlain(char c);
std::string AsIdentifier(std::string word);

/// Text as XML and HTML take it, also between double quotes; characters that they do not know become U+FFFD.
std::string MarkupText(std::string_view text);

}  // namespace korvex::cli
