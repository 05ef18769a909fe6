#pragma once

// The children of an expression node, in order. Up to two stand inside the object, as nearly all nodes
// have no more; a longer list moves into a vector. Used by the node that owns it, on one thread.

#include "runtime/Ref.h"

#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace TBF {

class ExpressionNode;

class ExpressionNodeList {
public:
    using Nodes = std::vector<Ref<ExpressionNode>>;

    ExpressionNodeList() = default;
    explicit ExpressionNodeList(Nodes nodes)
        : spilled(std::move(nodes))
        , count(spilled.size()) {}

    std::size_t size() const noexcept { return count; }
    std::span<const Ref<ExpressionNode>> view() const noexcept { return {data(), count}; }
    std::span<Ref<ExpressionNode>> view() noexcept { return {data(), count}; }

    void append(Ref<ExpressionNode> node) {
        if (spilled.empty() && count < local.size()) {
            local[count++] = std::move(node);
            return;
        }
        if (spilled.empty())
            spilled.assign(std::move_iterator(local.begin()), std::move_iterator(local.end()));
        spilled.push_back(std::move(node));
        count = spilled.size();
    }

    void clear() noexcept {
        local = {};
        spilled.clear();
        count = 0;
    }

private:
    const Ref<ExpressionNode>* data() const noexcept {
        return spilled.empty() ? local.data() : spilled.data();
    }
    Ref<ExpressionNode>* data() noexcept { return spilled.empty() ? local.data() : spilled.data(); }

    std::array<Ref<ExpressionNode>, 2> local;
    Nodes spilled; // holds all nodes once there are more than two
    std::size_t count = 0;
};

} // namespace TBF
