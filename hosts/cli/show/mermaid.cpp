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

/// What stands between quotes takes neither these nor percent signs, backslashes and control characters.
std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') {
            quoted += "#quot;";
        } else {
            const bool isTaken = static_cast<unsigned char>(c) >= 0x20 && c != '%' && c != '\\';
            quoted += isTaken ? c : '_';
        }
    }
    return quoted + "\"";
}

std::string Title(const ShownObject& object) {
    return object.row->Name + (object.table == nullptr ? "" : " (" + object.table->Name + ")");
}

std::string Entity(const ShownObject& object) {
    std::string text = "    " + object.identifier + "[" + Quoted(Title(object)) + "] {\n";
    for (const ShownValue& row : object.DiagramRows()) {
        const std::string marks = row.KeyMarks(", ");
        text += "        " + Word(row.TypeText()) + " " + Word(row.Name()) +
                (marks.empty() ? "" : " " + marks) + "\n";
    }
    return text + "    }\n";
}

}  // namespace

std::string MermaidText(const ShownDefinition& shown) {
    const std::vector<ShownObject>& objects = shown.Objects();
    std::string entities;
    std::string relations;
    for (const ShownObject& object : objects) {
        entities += Entity(object);
        if (object.element)
            relations += "    " + object.identifier + " ||--o{ " + objects[*object.element].identifier +
                         " : elements\n";
        for (const ShownValue& value : object.values) {
            if (!value.child) continue;
            relations += "    " + object.identifier + " ||--o| " + objects[*value.child].identifier + " : " +
                         Quoted(value.Name()) + "\n";
        }
    }
    return "erDiagram\n" + entities + relations;
}

}  // namespace korvex::cli
