#include "analysis/passes/JoinAdjacentWords.h"

#include "analysis/passes/PendingWords.h"

#include <algorithm>
#include <utility>

namespace TBF {

namespace {

using Children = EPExpressionTreeNode::Children;

bool hasAdjacentWords(const Children& nodes) {
    const auto areWords = [](const Ref<EPExpressionTreeNode>& a, const Ref<EPExpressionTreeNode>& b) {
        return a->is(TBFTokenTypeWord) && b->is(TBFTokenTypeWord);
    };
    return std::adjacent_find(nodes.begin(), nodes.end(), areWords) != nodes.end();
}

void joinAdjacentWords(EPExpressionTreeNode& parent) {
    if (!hasAdjacentWords(parent.children())) return;
    Children nodes = parent.takeChildren();
    Children output;
    output.reserve(nodes.size());
    PendingWords pending;
    for (Ref<EPExpressionTreeNode>& node : nodes) {
        if (node->is(TBFTokenTypeWord)) {
            pending.add(std::move(node));
        } else {
            pending.flush(output);
            output.push_back(std::move(node));
        }
    }
    pending.flush(output);
    parent.replaceChildren(std::move(output));
}

} // namespace

void pass_join_adjacent_words_crawler(PassContext& context) {
    crawlGroups(context.root(), joinAdjacentWords);
}

} // namespace TBF
