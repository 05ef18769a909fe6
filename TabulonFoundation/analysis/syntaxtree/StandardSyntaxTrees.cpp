#include "analysis/syntaxtree/StandardSyntaxTrees.h"

#include "analysis/passes/NodeRoles.h"
#include "analysis/syntaxtree/SyntaxTreeRule.h"

#include <cstddef>
#include <span>

namespace TBF {

namespace {

constexpr token_type operandTypes[] = {TBFTokenTypeOperator, TBFTokenTypeFunction, TBFTokenTypeVariable,
                                       TBFTokenTypeNumber, TBFTokenTypeGroup};
constexpr TBFTokenSubType signSubTypes[] = {TBFTokenSubTypePlus, TBFTokenSubTypeMinus};
constexpr TBFTokenSubType factorSubTypes[] = {TBFTokenSubTypeMultiply, TBFTokenSubTypeDivide};

bool wantsOperandBehind(const EPExpressionTreeNode& node, const EPExpressionTreeNode&) {
    if (node.isOperator(TBFTokenSubTypeWordOperator)) return !isPostfixWordOperator(node);
    return !node.isOperator(TBFTokenSubTypePercent) && !node.isOperator(TBFTokenSubTypeFactorial);
}

// True at the head of a line or, behind its bracket, of a group; whitespace may stand before.
bool isAtHead(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent) {
    if (!parent.is(TBFTokenTypeGroup)) return false;
    std::size_t head = 0;
    if (parent.subType() == TBFTokenSubTypeGroup) {
        head = 1;
    } else if (parent.subType() != TBFTokenSubTypeNone) {
        return false;
    }
    const EPExpressionTreeNode::Children& children = parent.children();
    if (head < children.size() && children[head] == &node) return true;
    return head + 1 < children.size() && children[head + 1] == &node &&
           children[head]->is(TBFTokenTypeWhitespace);
}

void addTerminal(SyntaxTree& tree, SyntaxTreeNode* parent, SyntaxTreeRule rule, int32_t trimStart) {
    tree.addLink(
        parent,
        {.type = rule, .options = TBFSyntaxTreeLinkOptionTerminal, .trimEnd = 1, .trimStart = trimStart});
}

// A sign, and the operand that has to follow it.
void addSignedOperand(SyntaxTree& tree, SyntaxTreeNode* parent, SyntaxTreePredicate predicate,
                      int32_t trimStart) {
    for (const TBFTokenSubType sign : signSubTypes) {
        SyntaxTreeNode* const signNode =
            tree.addLink(parent, {.type = TBFTokenTypeOperator, .subType = sign, .predicate = predicate});
        for (const token_type operand : operandTypes) {
            addTerminal(tree, tree.addLink(signNode, {.type = operand}), SyntaxTreeRuleUnarySign, trimStart);
        }
    }
}

void addUnitsWithFactor(SyntaxTree& tree) {
    SyntaxTreeNode* const left = tree.addLink(nullptr, {.type = TBFTokenTypeUnit});
    for (const TBFTokenSubType factor : factorSubTypes) {
        SyntaxTreeNode* const op = tree.addLink(left, {.type = TBFTokenTypeOperator, .subType = factor});
        addTerminal(tree, tree.addLink(op, {.type = TBFTokenTypeUnit}), SyntaxTreeRuleHighPriority, 1);
    }
}

Ref<SyntaxTree> makeUnaryOperators() {
    Ref<SyntaxTree> tree = SyntaxTree::create();
    SyntaxTreeNode* const before =
        tree->addLink(nullptr, {.type = TBFTokenTypeOperator, .predicate = wantsOperandBehind});
    addSignedOperand(*tree, before, syntaxTreePredicateTrue, 1);
    addSignedOperand(*tree, nullptr, isAtHead, 0);
    addUnitsWithFactor(*tree);
    return tree;
}

} // namespace

SyntaxTree& StandardSyntaxTrees::specialOperators() {
    static const Ref<SyntaxTree>& tree = *new Ref<SyntaxTree>(SyntaxTree::create());
    return *tree;
}

SyntaxTree& StandardSyntaxTrees::unaryOperators() {
    static const Ref<SyntaxTree>& tree = *new Ref<SyntaxTree>(makeUnaryOperators());
    return *tree;
}

} // namespace TBF
