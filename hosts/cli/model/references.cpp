#include "hosts/cli/model/references.h"

#include "automation/nearest_name.h"
#include "automation/text.h"

namespace korvex::cli {

void References::Add(const JsonNode& node, const std::string& name, std::size_t index) {
    if (!node.Has("id")) {
        m_byName[name].push_back(index);
        return;
    }
    const JsonNode id = node.At("id");
    const std::string text = id.NonEmptyText();
    const auto [entry, isNew] = m_ids.emplace(text, node.Path());
    if (!isNew) id.Fail(automation::Quoted(text) + " is the id of " + entry->second + " as well");
    m_byName[text].push_back(index);
}

std::size_t References::Resolve(const JsonNode& node) const {
    const std::string name = node.NonEmptyText();
    const auto entry = m_byName.find(name);
    if (entry == m_byName.end()) {
        const std::vector<std::string_view> known = [this] {
            std::vector<std::string_view> names;
            for (const auto& item : m_byName)
                names.emplace_back(item.first);
            return names;
        }();
        node.Fail("no " + std::string(m_kind) + " " + automation::Quoted(name) +
                  automation::DidYouMean(name, known));
    }
    if (entry->second.size() > 1) {
        node.Fail("several " + std::string(m_kind) + "s " + automation::Quoted(name) +
                  "; give the one meant an \"id\"");
    }
    return entry->second.front();
}

}  // namespace korvex::cli
