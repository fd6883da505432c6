#include "hosts/cli/show/render.h"

#include <string_view>

namespace korvex::cli {

namespace {

/// Names of objects may be keywords of the language.
std::string Quoted(const std::string& name) { return "\"" + name + "\""; }

/// Text inside a record label: its own marks and quotes are escaped.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (std::string_view("\"\\{}|<> ").find(c) != std::string_view::npos) escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Label(const Model& model, const ModelObject& object) {
    std::string label = "{" + Escaped(object.name);
    if (object.tableName) label += "\\n" + Escaped(*object.tableName);
    label += "|";
    for (const std::size_t interface : object.interfaces) {
        for (const ModelValue& value : model.interfaces[interface].values) {
            if (!value.child) label += Escaped(value.name + " : " + TypeText(value)) + "\\l";
        }
    }
    return label + "}";
}

}  // namespace

std::string DotText(const Model& model) {
    const std::vector<std::string> names = DiagramNames(model);
    std::string text = "digraph definition {\n    node [shape=record];\n";
    for (std::size_t i = 0; i < model.objects.size(); ++i) {
        text += "    " + Quoted(names[i]) + " [label=\"" + Label(model, model.objects[i]) + "\"];\n";
    }
    for (std::size_t i = 0; i < model.objects.size(); ++i) {
        const ModelObject& object = model.objects[i];
        if (object.element) {
            text += "    " + Quoted(names[i]) + " -> " + Quoted(names[*object.element]) +
                    " [label=\"elements\", arrowhead=crow];\n";
        }
        for (const std::size_t interface : object.interfaces) {
            for (const ModelValue& value : model.interfaces[interface].values) {
                if (!value.child) continue;
                text += "    " + Quoted(names[i]) + " -> " + Quoted(names[*value.child]) + " [label=\"" +
                        Escaped(value.name) + "\"];\n";
            }
        }
    }
    return text + "}\n";
}

}  // namespace korvex::cli
