#include "analysis/passes/JoinCompoundWords.h"

#include "analysis/passes/NodeRoles.h"
#include "analysis/passes/PendingWords.h"

#include <cstddef>
#include <utility>

namespace TBF {

namespace {

using Children = EPExpressionTreeNode::Children;

bool isWordOrUnit(const EPExpressionTreeNode& node) {
    return node.is(TBFTokenTypeWord) || node.is(TBFTokenTypeUnit);
}

// How many of the nodes from `start` on, which touch each other, begin a compound word; 0 if none do.
std::size_t lengthOfWordStart(const Children& nodes, std::size_t start) {
    const EPExpressionTreeNode& first = *nodes[start];
    if (first.is(TBFTokenTypeWord)) return 1;
    if (!first.is(TBFTokenTypeNumber) || start + 1 >= nodes.size()) return 0;
    const EPExpressionTreeNode& second = *nodes[start + 1];
    if (second.is(TBFTokenTypeWord)) return 2;
    if (!second.isOperator(TBFTokenSubTypeMinus) || start + 2 >= nodes.size()) return 0;

    // A number minus an amount of money, say, is a calculation.
    const EPExpressionTreeNode& third = *nodes[start + 2];
    return third.is(TBFTokenTypeWord) || (third.is(TBFTokenTypeUnit) && !canBePrefixUnit(third)) ? 3 : 0;
}

// How many of the nodes from `start` on carry a compound word on; 0 if none do.
std::size_t lengthOfWordContinuation(const Children& nodes, std::size_t start) {
    const EPExpressionTreeNode& first = *nodes[start];
    if (first.isOperator(TBFTokenSubTypeMinus)) {
        return start + 1 < nodes.size() && isWordOrUnit(*nodes[start + 1]) ? 2 : 0;
    }
    return first.is(TBFTokenTypeNumber) || isWordOrUnit(first) ? 1 : 0;
}

bool hasWordBesideOther(const Children& nodes) {
    for (std::size_t index = 0; index + 1 < nodes.size(); ++index) {
        const bool begins = nodes[index]->is(TBFTokenTypeWord) || nodes[index]->is(TBFTokenTypeNumber);
        if (begins && !nodes[index + 1]->is(TBFTokenTypeWhitespace)) return true;
    }
    return false;
}

// True if at least one word was joined.
bool joinCompoundWords(EPExpressionTreeNode& parent) {
    if (!hasWordBesideOther(parent.children())) return false;
    Children nodes = parent.takeChildren();
    Children output;
    output.reserve(nodes.size());
    PendingWords pending;
    bool joined = false;
    for (std::size_t index = 0; index < nodes.size();) {
        const std::size_t taken =
            pending.isEmpty() ? lengthOfWordStart(nodes, index) : lengthOfWordContinuation(nodes, index);
        for (std::size_t end = index + taken; index < end; ++index)
            pending.add(std::move(nodes[index]));
        if (taken > 0) continue;
        joined |= pending.flush(output);
        output.push_back(std::move(nodes[index++]));
    }
    joined |= pending.flush(output);
    parent.replaceChildren(std::move(output));
    return joined;
}

} // namespace

void pass_join_compound_words_crawler(PassContext& context) {
    crawlGroups(context.root(), [&context](EPExpressionTreeNode& parent) {
        if (joinCompoundWords(parent)) context.add(LineTraitJoinedWords);
    });
}

} // namespace TBF
