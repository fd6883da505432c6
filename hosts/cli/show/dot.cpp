#include "hosts/cli/show/render.h"

#include <string_view>

namespace korvex::cli {

namespace {

/// With more objects than this, or more rows, a picture of all columns takes too long to lay out and to open.
constexpr std::size_t MostObjectsWithRows = 250;
constexpr std::size_t MostRows = 3000;

/// The page finds these colours again and gives them the ones of its own light or dark dress.
constexpr std::string_view Frame =
    R"(    graph [rankdir=LR, bgcolor=transparent, nodesep=0.3, ranksep=0.7, fontname="Helvetica,Arial,sans-serif"];
    node [shape=plain, fontname="Helvetica,Arial,sans-serif", fontsize=11, fontcolor="#1c2733"];
    edge [dir=both, arrowtail=none, arrowsize=0.8, color="#8895a7", fontcolor="#5f6d7e", fontname="Helvetica,Arial,sans-serif", fontsize=9];
)";

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

std::string Cell(std::string_view attributes, std::string_view content) {
    std::string cell = "<td";
    if (!attributes.empty()) (cell += ' ') += attributes;
    return ((cell += ">") += content) + "</td>";
}

std::string Coloured(std::string_view colour, std::string_view text) {
    if (text.empty()) return {};
    std::string content = "<font color=\"";
    return ((content += colour) += "\">") + MarkupText(text) + "</font>";
}

std::string Row(const ShownValue& value) {
    const std::string name = MarkupText(value.Name());
    return "\n        <tr>" + Cell("align=\"left\"", Coloured("#0f6b6b", value.KeyMarks(" "))) +
           Cell("align=\"left\"", name.empty() ? " " : name) +
           Cell("align=\"left\"", Coloured("#5f6d7e", value.TypeText())) + "</tr>";
}

std::string Label(const ShownObject& object, bool withRows) {
    std::string head = "<b>" + MarkupText(object.row->Name) + "</b>";
    if (object.row->Name.empty()) head = " ";
    if (object.table != nullptr) head += "<br/>" + Coloured("#5f6d7e", object.table->Name);
    std::string label =
        "<<table border=\"1\" cellborder=\"0\" cellspacing=\"0\" cellpadding=\"3\" "
        "color=\"#8895a7\" bgcolor=\"#ffffff\"><tr>" +
        Cell("colspan=\"3\" cellpadding=\"6\" bgcolor=\"#e8eef4\"", head) + "</tr>";
    if (withRows)
        for (const ShownValue& value : object.DiagramRows())
            label += Row(value);
    return label + "</table>>";
}

/// An edge says the name of its value only where that tells more than the object at its end.
std::string Edge(const ShownObject& from, const ShownObject& to, std::string_view attributes) {
    std::string edge = "    " + Quoted(from.identifier) + " -> " + Quoted(to.identifier) + " [";
    return (edge += attributes) + "];\n";
}

bool TakesRows(const std::vector<ShownObject>& objects) {
    std::size_t rows = 0;
    for (const ShownObject& object : objects)
        rows += object.values.size();
    return objects.size() <= MostObjectsWithRows && rows <= MostRows;
}

}  // namespace

std::string DotText(const ShownDefinition& shown, bool links) {
    const std::vector<ShownObject>& objects = shown.Objects();
    const bool withRows = TakesRows(objects);
    std::string text = "digraph definition {\n";
    text += Frame;
    for (const ShownObject& object : objects) {
        text += "    " + Quoted(object.identifier) + " [label=" + Label(object, withRows);
        if (links)
            text +=
                ", URL=" + Quoted(ObjectLink(object)) + ", tooltip=" + Quoted(MarkupText(object.row->Name));
        text += "];\n";
    }
    for (const ShownObject& object : objects) {
        if (object.element) text += Edge(object, objects[*object.element], "arrowhead=crowodot");
        for (const ShownValue& value : object.values) {
            if (!value.child) continue;
            const ShownObject& child = objects[*value.child];
            std::string attributes = "arrowhead=teeodot";
            if (value.Name() != child.row->Name) attributes += ", label=" + Quoted(MarkupText(value.Name()));
            text += Edge(object, child, attributes);
        }
    }
    return text + "}\n";
}

}  // namespace korvex::cli
