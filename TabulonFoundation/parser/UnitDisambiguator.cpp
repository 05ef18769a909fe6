#include "parser/UnitDisambiguator.h"

#include "analysis/ExpressionToken.h"
#include "parser/ExpressionNode.h"
#include "parser/ExpressionTree.h"
#include "parser/UnitDisambiguationMap.h"
#include "units/AmbiguousUnit.h"
#include "units/TBFUnitTypeBitmap.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

using TBF::AmbiguousUnit;
using TBF::ExpressionNode;
using TBF::UnitDisambiguationMap;

namespace {

// How far up from an ambiguous unit operators are looked at: its parent and its grandparent.
constexpr int32_t ancestorCount = 2;

constexpr std::size_t operandCount = 2;

bool isOperatorLike(TBFExpressionNodeType type) {
    return type == TBFExpressionNodeTypeOperator || type == TBFExpressionNodeTypeWordOperator ||
           type == TBFExpressionNodeTypeOperatorUnit;
}

// Carries types and flags up to a node from its first two children, which are done already. Only operators
// hand up the types below them.
void collectFromChildren(ExpressionNode& node) {
    if (!isOperatorLike(node.type())) return;
    TBFUnitTypeBitmap bitmap = node.unitTypeBitmap();
    bool hasAmbiguousUnit = node.subtreeHasAmbiguousUnit();
    const ExpressionNode::Children children = node.children();
    for (std::size_t i = 0; i < std::min(children.size(), operandCount); ++i) {
        bitmap |= children[i]->unitTypeBitmap();
        hasAmbiguousUnit = hasAmbiguousUnit || children[i]->subtreeHasAmbiguousUnit();
    }
    if (node.type() == TBFExpressionNodeTypeOperator) node.setUnitTypeBitmap(bitmap);
    node.setSubtreeHasAmbiguousUnit(hasAmbiguousUnit);
}

// The types that an operator calls for where `child`, one of its operands, holds the ambiguous unit; empty if
// it tells nothing.
TBFUnitTypeBitmap typesWantedBy(const ExpressionNode& op, const ExpressionNode& child,
                                TBFUnitTypeBitmap ambiguous) {
    const ExpressionNode::Children operands = op.children();
    const TBFOperatorType operatorType = op.operatorType();
    if (operatorType == TBFOperatorTypeNone || operands.size() < operandCount) return 0;
    const bool isLeft = operands[0].get() == &child;
    TBFUnitTypeBitmap left = operands[0]->unitTypeBitmap();
    TBFUnitTypeBitmap right = operands[1]->unitTypeBitmap();
    const TBFUnitTypeBitmap other = isLeft ? right : left;
    (isLeft ? left : right) |= ambiguous;

    const bool isSum = operatorType == TBFOperatorTypeAdd || operatorType == TBFOperatorTypeSubtract;
    if (isSum && TBFUnitTypeBitmapHasSingleUnitOnly(&other)) return other;
    int8_t operandIndex = 0;
    const TBFUnitType type =
        UnitDisambiguationMap::shared().findDisambiguation(left, operatorType, right, &operandIndex);
    if (type == TBFUnitTypeNone || operandIndex != (isLeft ? 0 : 1)) return 0;
    return TBFUnitTypeBitmapMake(type);
}

TBFUnitTypeBitmap typesWantedNear(const ExpressionNode& node, const AmbiguousUnit& unit,
                                  TBFUnitTypeBitmap inTree) {
    const TBFUnitTypeBitmap ambiguous = unit.unitTypeBitmap();
    const ExpressionNode* child = &node;
    for (int32_t i = 0; i < ancestorCount && child->parent(); ++i) {
        const TBFUnitTypeBitmap wanted = typesWantedBy(*child->parent(), *child, ambiguous);
        if (wanted != 0) return wanted;
        child = child->parent();
    }
    return inTree;
}

} // namespace

void TBFUnitDisambiguatorInit() {
    UnitDisambiguationMap::shared();
}

// First all nodes learn which types are below them, then each ambiguous unit is settled by itself: what is
// found for one doesn't help another.
void TBFUnitDisambiguatorProcessExpressionTree(TBF::ExpressionTree* tree) {
    if (!tree || !tree->root()) return;
    for (ExpressionNode* const node : tree->nodesPostOrderDFS())
        collectFromChildren(*node);
    const TBFUnitTypeBitmap inTree = tree->root()->unitTypeBitmap();
    for (ExpressionNode* const node : tree->nodesPostOrderDFS()) {
        const AmbiguousUnit* const unit = node->ambiguousUnit();
        if (!unit) continue;
        const std::u16string_view word =
            node->expressionToken() ? node->expressionToken()->view() : std::u16string_view();
        node->resolveUnitAmbiguity(unit->unambiguousUnit(typesWantedNear(*node, *unit, inTree), word));
    }
}
