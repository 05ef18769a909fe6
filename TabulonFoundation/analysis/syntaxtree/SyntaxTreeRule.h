#pragma once

// What a matched pattern does to the node that is put around its run. Plain values and one function, for
// the crawl over an analysis tree on its thread.

#include "analysis/EPExpressionTreeNode.h"

#include <cstdint>

namespace TBF {

// The numbers stand on the terminal links of syntax trees.
enum SyntaxTreeRule : int32_t {
    SyntaxTreeRuleInlineComment = 0,
    SyntaxTreeRuleLeftwardsTitle = 1,
    SyntaxTreeRuleRightwardsTitle = 2,
    SyntaxTreeRuleE10 = 3,
    SyntaxTreeRuleUnarySign = 4,
    SyntaxTreeRulePower = 5,
    SyntaxTreeRuleVariable = 6,
    SyntaxTreeRuleHighPriority = 7,
};

// Gives the node the types that the rule says. An unknown rule, or one that doesn't apply to the node's
// children, leaves it as it is.
void applySyntaxTreeRule(int32_t rule, EPExpressionTreeNode& node);

} // namespace TBF
