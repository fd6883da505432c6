#include "hosts/cli/show/render.h"
#include "hosts/cli/wording.h"

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

/// Many boxes are kept plain, so that a browser opens them quickly.
constexpr std::string_view PlainBoxes =
    R"(    node [shape=box, style=filled, color="#8895a7", fillcolor="#e8eef4", height=0.3];
)";

std::string Quoted(std::string_view text) {
    return '"' + Escaped(text, {{'"', "\\\""}, {'\\', "\\\\"}}) + '"';
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

/// A table with a row for each column.
std::string TableLabel(const ShownObject& object) {
    std::string head = "<b>" + MarkupText(object.row->Name) + "</b>";
    if (object.row->Name.empty()) head = " ";
    if (object.table != nullptr) head += "<br/>" + Coloured("#5f6d7e", object.table->Name);
    std::string label =
        "<<table border=\"1\" cellborder=\"0\" cellspacing=\"0\" cellpadding=\"3\" "
        "color=\"#8895a7\" bgcolor=\"#ffffff\"><tr>" +
        Cell("colspan=\"3\" cellpadding=\"6\" bgcolor=\"#e8eef4\"", head) + "</tr>";
    for (const ShownValue& value : object.DiagramRows())
        label += Row(value);
    return label + "</table>>";
}

/// Text of its own, of which nothing is an escape.
std::string PlainText(std::string_view text) { return Quoted(MarkupText(text)); }

class Graph {
  public:
    Graph(const ShownDefinition& shown, bool links)
        : m_objects(shown.Objects()), m_hasRows(HasRoomForRows(shown)), m_hasLinks(links) {}

    std::string Text() {
        m_text = "digraph definition {\n";
        m_text += Frame;
        if (!m_hasRows) m_text += PlainBoxes;
        for (const ShownObject& object : m_objects)
            AddNode(object);
        for (const ShownObject& object : m_objects) {
            if (object.element) AddEdge(object, *object.element, nullptr);
            for (const ShownValue& value : object.values)
                if (value.child) AddEdge(object, *value.child, value.row);
        }
        return m_text + "}\n";
    }

  private:
    void AddNode(const ShownObject& object) {
        m_text += "    " + Quoted(object.identifier) +
                  " [label=" + (m_hasRows ? TableLabel(object) : PlainText(object.row->Name));
        if (m_hasLinks) {
            m_text += ", id=" + Quoted(PictureID(object)) + ", URL=" + Quoted(ObjectLink(object)) +
                      ", tooltip=" + PlainText(object.row->Name);
        }
        m_text += "];\n";
    }

    /// To an object that a value holds, or, without one, to the elements. Says the name of the value only
    /// where that tells more than the object.
    void AddEdge(const ShownObject& from, std::size_t to, const repository::ValueRow* value) {
        const ShownObject& end = m_objects[to];
        const std::string_view child = m_hasRows ? "teeodot" : "none";
        const std::string_view elements = m_hasRows ? "crowodot" : "crow";
        m_text += "    " + Quoted(from.identifier) + " -> " + Quoted(end.identifier) + " [arrowhead=";
        m_text += value == nullptr ? elements : child;
        if (m_hasRows && value != nullptr && value->Name != end.row->Name)
            m_text += ", label=" + PlainText(value->Name);
        m_text += "];\n";
    }

    const std::vector<ShownObject>& m_objects;
    bool m_hasRows;
    bool m_hasLinks;
    std::string m_text;
};

}  // namespace

bool HasRoomForRows(const ShownDefinition& shown) {
    std::size_t rows = 0;
    for (const ShownObject& object : shown.Objects())
        rows += object.values.size();
    return shown.Objects().size() <= MostObjectsWithRows && rows <= MostRows;
}

std::string DotText(const ShownDefinition& shown, bool links) { return Graph(shown, links).Text(); }

}  // namespace korvex::cli
