#include "analysis/syntaxtree/SyntaxTreeRule.h"

#include "analysis/HighPriorityOperators.h"

namespace TBF {

namespace {

struct FixedRule {
    SyntaxTreeRule rule;
    token_type type;
    TBFTokenSubType subType;
};

constexpr FixedRule fixedRules[] = {
    {SyntaxTreeRuleInlineComment, TBFTokenTypeComment, TBFTokenSubTypeInlineComment},
    {SyntaxTreeRuleLeftwardsTitle, TBFTokenTypeComment, TBFTokenSubTypeLeftwardsTitle},
    {SyntaxTreeRuleRightwardsTitle, TBFTokenTypeComment, TBFTokenSubTypeRightwardsTitle},
    {SyntaxTreeRuleE10, TBFTokenTypeOperator, TBFTokenSubTypeE10},
    {SyntaxTreeRulePower, TBFTokenTypeOperator, TBFTokenSubTypePower},
    {SyntaxTreeRuleVariable, TBFTokenTypeVariable, TBFTokenSubTypeNone},
};

void applyUnarySign(EPExpressionTreeNode& node, TBFTokenSubType sign) {
    if (sign == TBFTokenSubTypePlus) node.setTypes(TBFTokenTypeOperator, TBFTokenSubTypeUnaryPlus);
    if (sign == TBFTokenSubTypeMinus) node.setTypes(TBFTokenTypeOperator, TBFTokenSubTypeUnaryMinus);
}

} // namespace

void applySyntaxTreeRule(int32_t rule, EPExpressionTreeNode& node) {
    for (const FixedRule& fixed : fixedRules) {
        if (fixed.rule == rule) node.setTypes(fixed.type, fixed.subType);
    }
    if (node.children().size() != 1) return;
    const TBFTokenSubType only = node.children().front()->subType();
    if (rule == SyntaxTreeRuleUnarySign) applyUnarySign(node, only);
    if (rule == SyntaxTreeRuleHighPriority) {
        node.setTypes(TBFTokenTypeOperator, promotedOperatorTokenSubType(only));
    }
}

} // namespace TBF
