#include "hosts/cli/show/page.h"

#include <algorithm>

namespace korvex::cli {

namespace {

void AddRelation(Html& relations, const char* name, const Html& links) {
    if (!links.IsEmpty()) relations.Join(Fill("relation", {{"name", name}, {"links", links}}));
}

/// A link to an object, and the value that holds it where that has another name.
Html Held(const ShownObject& linked, const ShownObject& held, const repository::ValueRow* value) {
    Html html = ObjectAnchor(linked);
    if (value == nullptr) {
        html += " (elements)";
    } else if (value->Name != held.row->Name) {
        html += " as " + value->Name;
    }
    return html;
}

Html HoldersOf(const ObjectContent& content) {
    const std::vector<ShownObject>& objects = content.shown.Objects();
    const ShownObject& object = objects[content.object];
    Html links;
    for (const ModelDefinition& definition : content.shown.Definitions())
        if (definition.root == content.object) links.Join("definition " + definition.storage, ", ");
    for (const ShownHolder& holder : object.holders)
        links.Join(Held(objects[holder.object], object, holder.value), ", ");
    return links;
}

Html HeldBy(const ObjectContent& content) {
    const std::vector<ShownObject>& objects = content.shown.Objects();
    const ShownObject& object = objects[content.object];
    Html links;
    if (object.element) links.Join(Held(objects[*object.element], object, nullptr), ", ");
    for (const ShownValue& value : object.values)
        if (value.child) links.Join(Held(objects[*value.child], objects[*value.child], value.row), ", ");
    return links;
}

Html RelationsPart(const ObjectContent& content) {
    const ShownObject& object = content.shown.Objects()[content.object];
    Html relations;
    AddRelation(relations, "Part of", HoldersOf(content));
    AddRelation(relations, "Holds", HeldBy(content));
    Html references;
    for (const ShownReference& reference : content.references) {
        const ShownObject& from = content.shown.Objects()[reference.object];
        references.Join(ObjectAnchor(from, from.row->Name + "." + reference.key->FieldName), ", ");
    }
    AddRelation(relations, "Referred to by", references);
    AddRelation(relations, "Class", object.row->Guid);
    if (object.table == nullptr) AddRelation(relations, "Table", "none in a run");
    return relations;
}

/// What hinders a dialect, each reason once with the dialects that give it.
Html Failures(std::span<const scriptgen::ColumnsInDialect> dialects) {
    std::vector<std::pair<std::string, std::string>> reasons;  // the reason, the dialects
    for (std::size_t i = 0; i < dialects.size(); ++i) {
        const std::string& failure = dialects[i].failure;
        if (failure.empty()) continue;
        const std::string title(scriptgen::DialectTitles()[i]);
        const auto known = std::ranges::find(reasons, failure, &std::pair<std::string, std::string>::first);
        if (known == reasons.end()) {
            reasons.emplace_back(failure, title);
        } else {
            known->second += ", " + title;
        }
    }
    Html items;
    for (const auto& [reason, titles] : reasons)
        items.Join(Fill("notice", {{"text", titles + ": " + reason}}));
    return items;
}

}  // namespace

Html ObjectPart(const ObjectContent& content) {
    const ShownObject& object = content.shown.Objects()[content.object];
    std::vector<scriptgen::ColumnsInDialect> dialects;
    if (object.table != nullptr) dialects = scriptgen::DescribeInDialects(*object.table);
    Html findings;
    for (const Finding* finding : content.findings)
        findings.Join(FindingPart(*finding, {}));
    if (const Html failures = Failures(dialects); !failures.IsEmpty()) findings.Join(failures);

    const bool hasTable = object.table != nullptr;
    return Fill("object",
                {{"id", ObjectLink(object).substr(1)},
                 {"size", std::to_string(object.values.size() + content.findings.size())},
                 {"name", object.row->Name},
                 {"table", hasTable ? Fill("table-name", {{"name", object.table->Name}}) : Html()},
                 {"collection", object.element ? Fill("collection") : Html()},
                 {"show", content.isInDiagram ? Fill("show", {{"id", PictureID(object)}}) : Html()},
                 {"relations", RelationsPart(content)},
                 {"findings", findings.IsEmpty() ? Html() : Fill("object-findings", {{"items", findings}})},
                 {"columns", ColumnsPart(content.shown, object, dialects)}});
}

}  // namespace korvex::cli
