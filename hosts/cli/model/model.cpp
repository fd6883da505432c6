#include "hosts/cli/model/model.h"

namespace korvex::cli {

std::vector<std::size_t> ChildrenOf(const Model& model, std::size_t object) {
    std::vector<std::size_t> children;
    const ModelObject& parent = model.objects[object];
    if (parent.element) children.push_back(*parent.element);
    for (const std::size_t interface : parent.interfaces) {
        for (const ModelValue& value : model.interfaces[interface].values) {
            if (value.child) children.push_back(*value.child);
        }
    }
    return children;
}

std::vector<bool> Beneath(const Model& model, std::vector<std::size_t> starts,
                          const std::vector<bool>& ends) {
    std::vector<bool> found(model.objects.size());
    while (!starts.empty()) {
        const std::size_t object = starts.back();
        starts.pop_back();
        if (found[object] || (!ends.empty() && ends[object])) continue;
        found[object] = true;
        const std::vector<std::size_t> children = ChildrenOf(model, object);
        starts.insert(starts.end(), children.begin(), children.end());
    }
    return found;
}

std::string PlaceText(const Model& model, const ModelPlace& place, std::string_view member) {
    std::string text = model.file.empty() ? "" : model.file + ": ";
    if (place.empty()) return text;
    text += place;
    if (!member.empty()) text.append(".").append(member);
    return text + ": ";
}

std::vector<ModelValueRef> ValueIndex::Find(std::size_t object, const std::string& name) {
    std::vector<ModelValueRef> found;
    for (const std::size_t interface : m_model.objects[object].interfaces) {
        const auto [entry, isNew] = m_interfaces.try_emplace(interface);
        if (isNew) {
            const std::vector<ModelValue>& values = m_model.interfaces[interface].values;
            for (std::size_t i = 0; i < values.size(); ++i)
                entry->second[values[i].Name].push_back(i);
        }
        const auto positions = entry->second.find(name);
        if (positions == entry->second.end()) continue;
        for (const std::size_t value : positions->second)
            found.push_back({interface, value});
    }
    return found;
}

}  // namespace korvex::cli
