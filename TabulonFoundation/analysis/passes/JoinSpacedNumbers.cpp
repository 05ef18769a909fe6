#include "analysis/passes/JoinSpacedNumbers.h"

#include <iterator>
#include <utility>

namespace TBF {

namespace {

using Children = EPExpressionTreeNode::Children;

Ref<EPExpressionTreeNode> joinedNumber(Children::iterator begin, Children::iterator end) {
    const Ref<EPExpressionTreeNode> first = *begin;
    Ref<EPExpressionTreeNode> joined =
        EPExpressionTreeNode::createJoining(Children(std::move_iterator(begin), std::move_iterator(end)));
    joined->setTypesBasedOn(*first);
    return joined;
}

} // namespace

void pass_join_spaced_numbers(PassContext& context) {
    Children nodes = context.root().takeChildren();
    Children output;
    output.reserve(nodes.size());
    for (auto here = nodes.begin(); here != nodes.end();) {
        if (!(*here)->is(TBFTokenTypeNumber)) {
            output.push_back(std::move(*here++));
            continue;
        }
        auto numberEnd = here + 1;
        auto groupEnd = numberEnd;
        for (; groupEnd != nodes.end(); ++groupEnd) {
            if ((*groupEnd)->is(TBFTokenTypeNumber, TBFTokenSubTypeDecimalNumber)) {
                numberEnd = groupEnd + 1;
            } else if (!(*groupEnd)->isGap()) {
                break;
            }
        }
        output.push_back(numberEnd == here + 1 ? std::move(*here) : joinedNumber(here, numberEnd));

        // The node that ends a number begins none, even if it is a number with a base prefix.
        if (groupEnd != nodes.end()) ++groupEnd;
        output.insert(output.end(), std::move_iterator(numberEnd), std::move_iterator(groupEnd));
        here = groupEnd;
    }
    context.root().replaceChildren(std::move(output));
}

} // namespace TBF
