#include "hosts/cli/model/model.h"

#include <algorithm>

namespace korvex::cli {

namespace {

/// An object on the path from the start of a search, and how many of its children are done.
struct Step {
    std::size_t object;
    std::vector<std::size_t> children;
    std::size_t next = 0;
};

std::string NamesAlong(const Model& model, const std::vector<Step>& path, std::size_t repeated) {
    const auto start = std::find_if(path.begin(), path.end(),
                                    [repeated](const Step& step) { return step.object == repeated; });
    std::string text;
    for (auto step = start; step != path.end(); ++step) {
        text += model.objects[step->object].name + " > ";
    }
    return text + model.objects[repeated].name;
}

}  // namespace

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

std::optional<ModelCycle> FindCycle(const Model& model) {
    enum class State : std::uint8_t { New, OnPath, Done };
    std::vector<State> states(model.objects.size(), State::New);
    // A path of its own instead of recursion: definitions may be deeper than the stack.
    std::vector<Step> path;
    for (std::size_t start = 0; start < model.objects.size(); ++start) {
        if (states[start] != State::New) continue;
        states[start] = State::OnPath;
        path.push_back({start, ChildrenOf(model, start)});
        while (!path.empty()) {
            Step& step = path.back();
            if (step.next == step.children.size()) {
                states[step.object] = State::Done;
                path.pop_back();
                continue;
            }
            const std::size_t child = step.children[step.next++];
            if (states[child] == State::OnPath) return ModelCycle{child, NamesAlong(model, path, child)};
            if (states[child] == State::Done) continue;
            states[child] = State::OnPath;
            path.push_back({child, ChildrenOf(model, child)});
        }
    }
    return std::nullopt;
}

std::vector<ModelValueRef> ValueIndex::Find(std::size_t object, const std::string& name) {
    std::vector<ModelValueRef> found;
    for (const std::size_t interface : m_model.objects[object].interfaces) {
        const auto [entry, isNew] = m_interfaces.try_emplace(interface);
        if (isNew) {
            const std::vector<ModelValue>& values = m_model.interfaces[interface].values;
            for (std::size_t i = 0; i < values.size(); ++i)
                entry->second[values[i].name].push_back(i);
        }
        const auto positions = entry->second.find(name);
        if (positions == entry->second.end()) continue;
        for (const std::size_t value : positions->second)
            found.push_back({interface, value});
    }
    return found;
}

}  // namespace korvex::cli
