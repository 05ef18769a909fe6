#include "analysis/passes/PromoteHighPriorityOperators.h"

#include "analysis/HighPriorityOperators.h"
#include "analysis/RagelMatcher.h"
#include "analysis/syntaxtree/StandardSyntaxTrees.h"
#include "analysis/syntaxtree/SyntaxTreeCrawl.h"

namespace TBF {

namespace {

const RagelMatcher& matcherOfOperators() {
    static const Ref<RagelMatcher>& matcher =
        *new Ref<RagelMatcher>(RagelMatcher::createHighPriorityOperators());
    return *matcher;
}

bool hasConversionOrFactor(const EPExpressionTreeNode& parent) {
    for (const Ref<EPExpressionTreeNode>& node : parent.children()) {
        if (highPriorityOperatorTokenSubType(node->subType()) && node->is(TBFTokenTypeOperator)) return true;
    }
    return false;
}

void promoteOperators(const EPExpressionTreeNode& parent) {
    if (!hasConversionOrFactor(parent)) return;
    RagelMatchIterator matches(matcherOfOperators(), parent.children(),
                               [](const Ref<EPExpressionTreeNode>& node) {
                                   return RagelToken{node->type(), node->subType()};
                               });
    while (matches.advance()) {
        EPExpressionTreeNode& op = *parent.children()[matches.match()->operatorIndex];
        op.setSubType(promotedOperatorTokenSubType(op.subType()));
    }
}

} // namespace

void pass_promote_high_priority_operators(PassContext& context) {
    if (context.usesMatcher) {
        crawlGroups(context.root(), promoteOperators);
    } else {
        crawlSyntaxTree(context.root(), StandardSyntaxTrees::unaryOperators());
    }
}

} // namespace TBF
