#include "hosts/cli/show/render.h"

#include <algorithm>
#include <string_view>

namespace korvex::cli {

namespace {

/// Attribute names and types hold word characters only.
std::string Word(std::string_view text) {
    std::string word(text);
    std::replace_if(
        word.begin(), word.end(),
        [](char c) {
            const bool isAscii = static_cast<unsigned char>(c) < 0x80;
            const bool isWord =
                (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
            return isAscii && !isWord && c != '(' && c != ')';
        },
        '_');
    const bool startsWell = !word.empty() && !(word.front() >= '0' && word.front() <= '9');
    return startsWell ? word : "_" + word;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') {
            quoted += "#quot;";
        } else {
            quoted += c;
        }
    }
    return quoted + "\"";
}

std::string KeyMark(const ModelObject& object, const ModelValueRef& ref) {
    for (const ModelPrimaryKey& key : object.primaryKeys) {
        if (key.value == ref) return " PK";
    }
    for (const ModelForeignKey& key : object.foreignKeys) {
        if (key.value == ref) return " FK";
    }
    return "";
}

}  // namespace

std::string MermaidText(const Model& model) {
    const std::vector<std::string> names = DiagramNames(model);
    std::string entities;
    std::string relations;
    for (std::size_t i = 0; i < model.objects.size(); ++i) {
        const ModelObject& object = model.objects[i];
        entities += "    " + names[i] + " {\n";
        if (object.element)
            relations += "    " + names[i] + " ||--o{ " + names[*object.element] + " : elements\n";
        for (const std::size_t interface : object.interfaces) {
            const std::vector<ModelValue>& values = model.interfaces[interface].values;
            for (std::size_t v = 0; v < values.size(); ++v) {
                if (values[v].child) {
                    relations += "    " + names[i] + " ||--o| " + names[*values[v].child] + " : " +
                                 Quoted(values[v].name) + "\n";
                } else {
                    entities += "        " + Word(TypeText(values[v])) + " " + Word(values[v].name) +
                                KeyMark(object, {interface, v}) + "\n";
                }
            }
        }
        entities += "    }\n";
    }
    return "erDiagram\n" + entities + relations;
}

}  // namespace korvex::cli
