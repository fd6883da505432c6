#include "automation/text.h"
#include "hosts/cli/show/render.h"
#include "hosts/cli/wording.h"

#include <algorithm>
#include <string_view>

namespace korvex::cli {

namespace {

/// Attribute names and types hold word characters of ASCII only: one underscore for each other character. The
/// marks of keys are none.
std::string Word(std::string_view text) {
    std::string word;
    for (const char c : text) {
        const bool isWithinCharacter = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
        if (!isWithinCharacter) word += IsPlain(c) || c == '(' || c == ')' ? c : '_';
    }
    const bool isMark = automation::EqualsIgnoreCase(word, "PK") ||
                        automation::EqualsIgnoreCase(word, "FK") || automation::EqualsIgnoreCase(word, "UK");
    return isMark ? "_" + word : AsIdentifier(word);
}

/// What stands between quotes takes neither these nor percent signs, backslashes and control characters.
std::string Quoted(std::string_view text) {
    std::string quoted = Escaped(text, {{'"', "#quot;"}, {'%', "_"}, {'\\', "_"}});
    std::ranges::replace_if(
        quoted, [](unsigned char c) { return c < 0x20; }, '_');
    return '"' + quoted + '"';
}

std::string Title(const ShownObject& object) {
    return object.row->Name + (object.table == nullptr ? "" : " (" + object.table->Name + ")");
}

/// In quotes, as some words are none of a name: to, one, class, style ...
std::string Name(const ShownObject& object) { return Quoted(object.identifier); }

std::string Entity(const ShownObject& object) {
    std::string text = "    " + Name(object) + "[" + Quoted(Title(object)) + "] {\n";
    for (const ShownValue& row : object.DiagramRows()) {
        const std::string marks = row.KeyMarks(", ");
        const std::string name = Word(row.Name());
        text += "        " + Word(row.TypeText()) + " " + name + (marks.empty() ? "" : " " + marks) +
                (name == row.Name() ? "" : " " + Quoted(row.Name())) + "\n";
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
            relations +=
                "    " + Name(object) + " ||--o{ " + Name(objects[*object.element]) + " : elements\n";
        for (const ShownValue& value : object.values) {
            if (!value.child) continue;
            relations += "    " + Name(object) + " ||--o| " + Name(objects[*value.child]) + " : " +
                         Quoted(value.Name()) + "\n";
        }
    }
    return "erDiagram\n" + entities + relations;
}

}  // namespace korvex::cli
