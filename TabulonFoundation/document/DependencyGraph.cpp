#include "document/DependencyGraph.h"

#include <algorithm>
#include <cstdio>

namespace TBF {

DependencyGraphNode::~DependencyGraphNode() {
    for (const auto& [node, typeMask] : uses)
        node->users.erase(this);
    for (const auto& [node, typeMask] : users)
        node->uses.erase(this);
}

bool DependencyGraphNode::hasDependencyOn(const DependencyGraphNode& node) const {
    return uses.contains(const_cast<DependencyGraphNode*>(&node));
}

bool DependencyGraphNode::addDependency(DependencyGraphNode& node, uint32_t typeMask) {
    if (&node == this || !uses.emplace(&node, typeMask).second) return false;
    node.users.emplace(this, typeMask);
    return true;
}

void DependencyGraphNode::removeAllDependencies() {
    for (const auto& [node, typeMask] : uses)
        node->users.erase(this);
    uses.clear();
}

uint32_t DependencyGraphNode::dependencyTypeMask(const DependencyGraphNode& node) const {
    const auto edge = uses.find(const_cast<DependencyGraphNode*>(&node));
    return edge == uses.end() ? 0 : edge->second;
}

uint32_t DependencyGraphNode::dependentTypeMask(const DependencyGraphNode& node) const {
    const auto edge = users.find(const_cast<DependencyGraphNode*>(&node));
    return edge == users.end() ? 0 : edge->second;
}

bool DependencyGraph::addDependency(uint32_t source, uint32_t destination, uint32_t typeMask) {
    if (source == destination) return false;
    const std::lock_guard lock(mutex);
    DependencyGraphNode& sourceNode = node(source);
    if (!sourceNode.addDependency(node(destination), typeMask)) return false;
    extents.addDependency(source, destination);
    return true;
}

void DependencyGraph::removeAllDependenciesForLine(uint32_t index) {
    const std::lock_guard lock(mutex);
    extents.removeAllDependenciesForLine(index);
    named.insert(index);
    if (const auto entry = nodes.find(index); entry != nodes.end()) entry->second->removeAllDependencies();
}

void DependencyGraph::removeAllDependenciesForLinesOnAndAfterIndex(uint32_t index) {
    const std::lock_guard lock(mutex);
    for (auto entry = nodes.lower_bound(index); entry != nodes.end(); ++entry) {
        extents.removeAllDependenciesForLine(entry->first);
        entry->second->removeAllDependencies();
    }
}

std::vector<DependencyEdge> DependencyGraph::directDependents(uint32_t index) {
    std::vector<DependencyEdge> result;
    named.insert(index);
    const DependencyGraphNode* const entry = existingNode(index);
    if (!entry) return result;
    for (const auto& [node, typeMask] : entry->dependents())
        result.push_back({node->index(), typeMask});
    return result;
}

std::vector<DependencyEdge> DependencyGraph::directDependencies(uint32_t index) const {
    std::vector<DependencyEdge> result;
    const DependencyGraphNode* const entry = existingNode(index);
    if (!entry) return result;
    result.reserve(entry->dependencies().size());
    for (const auto& [node, typeMask] : entry->dependencies())
        result.push_back({node->index(), typeMask});
    return result;
}

std::vector<uint32_t> DependencyGraph::directDependentsInRange(uint32_t first, uint32_t end,
                                                               uint32_t mask) const {
    std::vector<uint32_t> result;
    for (auto entry = nodes.lower_bound(first); entry != nodes.end() && entry->first < end; ++entry) {
        for (const auto& [node, typeMask] : entry->second->dependents())
            if (typeMask & mask) result.push_back(node->index());
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

std::size_t DependencyGraph::countOfDependenciesCrossingIndex(uint32_t index) const {
    return extents.countOfDependenciesCrossingIndex(index);
}

std::vector<DependencyEdge> DependencyGraph::indexesWithDependenciesCrossingIndex(uint32_t index) const {
    std::vector<DependencyEdge> result;
    for (const Dependency& dependency : extents.dependenciesCrossingIndex(index))
        if (result.empty() || result.back().lineIndex != dependency.sourceIndex)
            result.push_back({dependency.sourceIndex, typeMaskOf(dependency)});
    return result;
}

std::vector<uint32_t> DependencyGraph::indexesWithDependenciesCrossingIndex(uint32_t index,
                                                                            uint32_t mask) const {
    std::vector<uint32_t> result;
    for (const Dependency& dependency : extents.dependenciesCrossingIndex(index)) {
        const bool isNew = result.empty() || result.back() != dependency.sourceIndex;
        if (isNew && typeMaskOf(dependency) & mask) result.push_back(dependency.sourceIndex);
    }
    return result;
}

std::vector<uint32_t> DependencyGraph::evaluationOrder(std::span<const uint32_t> indexes) {
    const std::lock_guard lock(mutex);
    ++walkNumber;
    const std::vector<Reached> reached = closure(indexes);
    std::vector<uint32_t> order;
    order.reserve(reached.size());

    // A post-order walk over dependencies, with the way down on a stack of its own.
    struct Step {
        DependencyGraphNode* node;
        DependencyGraphNode::Edges::const_iterator next;
    };
    std::vector<Step> way;
    const auto enter = [&](DependencyGraphNode* node) {
        if (node->reachedIn != walkNumber || node->visitedIn == walkNumber) return;
        node->visitedIn = walkNumber;
        way.push_back({node, node->dependencies().begin()});
    };
    for (const Reached& start : reached) {
        if (!start.node) {
            order.push_back(start.index);
            continue;
        }
        enter(start.node);
        while (!way.empty()) {
            Step& step = way.back();
            if (step.next == step.node->dependencies().end()) {
                order.push_back(step.node->index());
                way.pop_back();
            } else {
                DependencyGraphNode* const dependency = step.next->first;
                ++step.next;
                enter(dependency); // may move `step`
            }
        }
    }
    return order;
}

// The indexes and all their dependents, each once, ascending; those that have nodes are marked as reached.
std::vector<DependencyGraph::Reached> DependencyGraph::closure(std::span<const uint32_t> indexes) {
    std::vector<Reached> reached;
    reached.reserve(indexes.size());
    const auto reach = [&](DependencyGraphNode* node) {
        if (node->reachedIn == walkNumber) return;
        node->reachedIn = walkNumber;
        reached.push_back({node->index(), node});
    };
    for (const uint32_t index : indexes) {
        named.insert(index);
        if (const auto entry = nodes.find(index); entry != nodes.end())
            reach(entry->second.get());
        else
            reached.push_back({index, nullptr});
    }
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const DependencyGraphNode* const node = reached[i].node;
        if (!node) continue;
        for (const auto& [dependent, typeMask] : node->dependents())
            reach(dependent);
    }
    const auto key = [](const Reached& each) { return std::pair(each.index, each.node); };
    std::ranges::sort(reached, {}, key);
    const auto repeated = std::ranges::unique(reached, {}, key);
    reached.erase(repeated.begin(), repeated.end());
    return reached;
}

DependencyGraphNode& DependencyGraph::node(uint32_t index) {
    named.insert(index);
    auto& entry = nodes[index];
    if (!entry) entry = make<DependencyGraphNode>(index);
    return *entry;
}

const DependencyGraphNode* DependencyGraph::existingNode(uint32_t index) const {
    const auto entry = nodes.find(index);
    return entry == nodes.end() ? nullptr : entry->second.get();
}

uint32_t DependencyGraph::typeMaskOf(const Dependency& dependency) const {
    const DependencyGraphNode* const source = existingNode(dependency.sourceIndex);
    const DependencyGraphNode* const destination = existingNode(dependency.destinationIndex);
    return source && destination ? source->dependencyTypeMask(*destination) : 0;
}

void DependencyGraph::print() const {
    named.forEach([this](uint32_t index) {
        std::printf("%u dependsOn: [", index);
        const char* separator = "";
        if (const DependencyGraphNode* const node = existingNode(index)) {
            for (const auto& [dependency, typeMask] : node->dependencies()) {
                std::printf("%s%u", separator, dependency->index());
                separator = ", ";
            }
        }
        std::printf("]\n");
    });
}

} // namespace TBF
