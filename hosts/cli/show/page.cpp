#include "hosts/cli/show/page.h"

#include "hosts/cli/wording.h"

#include <algorithm>

namespace korvex::cli {

namespace {

/// Lists are indented no further than this.
constexpr std::size_t DeepestListIndent = 6;

class Page {
  public:
    explicit Page(const PageContent& content)
        : m_content(content),
          m_objects(content.shown.Objects()),
          m_findings(m_objects.size()),
          m_references(m_objects.size()) {
        for (const Finding& finding : content.findings.All())
            AddFinding(finding);
        std::ranges::stable_sort(m_all, {}, &Finding::severity);
        for (std::size_t i = 0; i < m_objects.size(); ++i)
            AddReferences(i);
    }

    std::string Text() const {
        return Fill("page", {{"version", KORVEX_VERSION},
                             {"title", Title()},
                             {"source", "from " + m_content.source},
                             {"style", Html::Finished(PageStyle)},
                             {"script", Html::Finished(PageScript)},
                             {"count", CountText(m_objects.size(), "object")},
                             {"places", PlacesPart()},
                             {"list", ListPart()},
                             {"numbers", NumbersPart()},
                             {"definitions", DefinitionsPart()},
                             {"diagram", DiagramPart()},
                             {"findings", FindingsPart()},
                             {"objects", ObjectsPart()}})
                   .Markup() +
               "\n";
    }

  private:
    /// The objects that a finding is about, as far as they are shown, each once.
    std::vector<std::size_t> ObjectsOf(const Finding& finding) const {
        std::vector<std::size_t> objects;
        for (const repository::ObjectId id : finding.objects) {
            const auto object = m_content.shown.Find(id);
            if (object && std::ranges::find(objects, *object) == objects.end()) objects.push_back(*object);
        }
        return objects;
    }

    /// Findings about objects that are not shown are left out.
    void AddFinding(const Finding& finding) {
        const std::vector<std::size_t> objects = ObjectsOf(finding);
        if (!finding.objects.empty() && objects.empty()) return;
        m_all.push_back(&finding);
        for (const std::size_t object : objects)
            m_findings[object].push_back(&finding);
    }

    void AddReferences(std::size_t index) {
        if (m_objects[index].table == nullptr) return;
        for (const scriptgen::ForeignKey& key : m_objects[index].table->ForeignKeys)
            if (const auto target = m_content.shown.Find(key.FKObjectID))
                m_references[*target].push_back({index, &key});
    }

    bool HasDefinitionsPart() const { return m_content.shown.Definitions().size() > 1; }

    std::string Title() const {
        const std::vector<ModelDefinition>& definitions = m_content.shown.Definitions();
        return definitions.size() == 1 ? definitions.front().storage : m_content.source;
    }

    Html PlacesPart() const {
        Html places = Fill("place", {{"id", "overview"}, {"name", "Overview"}});
        if (HasDefinitionsPart())
            places.Join(Fill("place", {{"id", "definitions"}, {"name", "Definitions"}}));
        if (!m_objects.empty()) places.Join(Fill("place", {{"id", "diagram"}, {"name", "Diagram"}}));
        places.Join(Fill("place", {{"id", "findings"}, {"name", "Findings"}}));
        return places;
    }

    std::size_t CountFindings(const std::vector<const Finding*>& findings, Severity severity) const {
        return static_cast<std::size_t>(std::ranges::count(findings, severity, &Finding::severity));
    }

    Html ListMark(std::size_t index) const {
        const std::vector<const Finding*>& findings = m_findings[index];
        if (findings.empty()) return {};
        const bool isError = CountFindings(findings, Severity::Error) > 0;
        return Fill("list-mark", {{"class", isError ? "error" : "warning"},
                                  {"text", CountText(findings.size(), "finding")}});
    }

    Html ListPart() const {
        Html list;
        for (std::size_t i = 0; i < m_objects.size(); ++i) {
            list.Join(
                Fill("list", {{"depth", std::to_string(std::min(m_objects[i].depth, DeepestListIndent))},
                              {"link", ObjectLink(m_objects[i])},
                              {"name", m_objects[i].row->Name},
                              {"mark", ListMark(i)}}));
        }
        return list;
    }

    Html NumbersPart() const {
        std::size_t tables = 0;
        std::size_t columns = 0;
        for (const ShownObject& object : m_objects) {
            if (object.table == nullptr) continue;
            ++tables;
            columns += object.table->Columns.size();
        }
        const std::size_t errors = CountFindings(m_all, Severity::Error);
        const std::size_t warnings = CountFindings(m_all, Severity::Warning);
        Html numbers;
        const auto add = [&numbers](const char* name, std::size_t count, const char* kind = "count") {
            numbers.Join(Fill("number", {{"name", name}, {"count", std::to_string(count)}, {"class", kind}}));
        };
        add("Definitions", m_content.shown.Definitions().size());
        add("Objects", m_objects.size());
        add("Tables", tables);
        add("Columns", columns);
        add("Errors", errors, errors > 0 ? "error" : "count");
        add("Warnings", warnings, warnings > 0 ? "warning" : "count");
        return numbers;
    }

    Html DefinitionsPart() const {
        if (!HasDefinitionsPart()) return {};
        Html items;
        for (const ModelDefinition& definition : m_content.shown.Definitions())
            items.Join(Fill("definition", {{"storage", definition.storage},
                                           {"root", ObjectAnchor(m_objects[definition.root])}}));
        return Fill("definitions", {{"items", items}});
    }

    Html DiagramPart() const {
        if (m_objects.empty()) return {};
        if (m_content.picture.svg.empty())
            return Fill("no-diagram", {{"problem", m_content.picture.problem}});
        // A picture that nobody sees at once is not drawn before somebody wants to.
        return Fill(HasRoomForRows(m_content.shown) ? "diagram" : "large-diagram",
                    {{"svg", Html::Finished(m_content.picture.svg)},
                     {"count", CountText(m_objects.size(), "object")}});
    }

    Html FindingsPart() const {
        Html items;
        for (const Finding* finding : m_all) {
            Html links;
            for (const std::size_t object : ObjectsOf(*finding)) {
                links += " ";
                links += ObjectAnchor(m_objects[object]);
            }
            items.Join(FindingPart(*finding, links));
        }
        for (const std::string& what : m_content.shown.LeftOut())
            items.Join(Fill("notice", {{"text", "Left out: " + what}}));
        return items.IsEmpty() ? Fill("no-findings") : Fill("findings", {{"items", items}});
    }

    Html ObjectsPart() const {
        if (m_objects.empty()) return Fill("no-objects");
        Html parts;
        for (std::size_t i = 0; i < m_objects.size(); ++i)
            parts.Join(ObjectPart(
                {m_content.shown, i, m_findings[i], m_references[i], !m_content.picture.svg.empty()}));
        return parts;
    }

    const PageContent& m_content;
    const std::vector<ShownObject>& m_objects;
    std::vector<const Finding*> m_all;
    std::vector<std::vector<const Finding*>> m_findings;    ///< by object
    std::vector<std::vector<ShownReference>> m_references;  ///< by object
};

}  // namespace

Html ObjectAnchor(const ShownObject& object, const std::string& name) {
    return Fill("link", {{"link", ObjectLink(object)}, {"name", name.empty() ? object.row->Name : name}});
}

Html FindingPart(const Finding& finding, const Html& links) {
    return Fill(WordOf(finding.severity), {{"text", finding.text}, {"links", links}});
}

std::string PageText(const PageContent& content) { return Page(content).Text(); }

}  // namespace korvex::cli
