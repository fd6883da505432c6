#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvex::repository {

/// Searches what is beneath `starts`; `childrenOf` gives the nodes directly beneath one. Gives the nodes
/// along a way on which a node is its own ancestor, that node first and last, or nothing when there is none:
/// then `finished` has every node once, behind all that are beneath it.
template <class Node, class ChildrenOf>
std::optional<std::vector<Node>> FindCycle(const std::vector<Node>& starts, ChildrenOf childrenOf,
                                           std::vector<Node>& finished) {
    struct Step {
        Node node;
        std::vector<Node> children;
        std::size_t next = 0;
    };
    std::unordered_map<Node, bool> isOnPath;
    // A path of its own instead of recursion: definitions may be deeper than the stack.
    std::vector<Step> path;
    for (const Node start : starts) {
        if (!isOnPath.emplace(start, true).second) continue;
        path.push_back({start, childrenOf(start)});
        while (!path.empty()) {
            Step& step = path.back();
            if (step.next == step.children.size()) {
                isOnPath[step.node] = false;
                finished.push_back(step.node);
                path.pop_back();
                continue;
            }
            const Node child = step.children[step.next++];
            const auto [state, isNew] = isOnPath.emplace(child, true);
            if (isNew) {
                path.push_back({child, childrenOf(child)});
            } else if (state->second) {
                std::vector<Node> cycle;
                for (auto at = std::ranges::find(path, child, &Step::node); at != path.end(); ++at)
                    cycle.push_back(at->node);
                cycle.push_back(child);
                return cycle;
            }
        }
    }
    return std::nullopt;
}

}  // namespace korvex::repository
