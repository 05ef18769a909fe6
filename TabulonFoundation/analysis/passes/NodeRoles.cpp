#include "analysis/passes/NodeRoles.h"

#include "names/wordoperators/WordOperator.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"

#include <algorithm>

namespace TBF {

namespace {

bool isWordOperator(const EPExpressionTreeNode& node, TBFOperatorNotation notation) {
    if (!node.isOperator(TBFTokenSubTypeWordOperator)) return false;
    const WordOperator* const op = node.meaning().wordOperator.get();
    return op && op->argumentType() == notation;
}

} // namespace

bool isSignificant(const EPExpressionTreeNode& node) {
    return !node.isGap() && !node.is(TBFTokenTypeWord) && !node.is(TBFTokenTypeComment);
}

bool isOperandLike(const EPExpressionTreeNode& node) {
    return TBFTokenTypeIsNumeric(node.type()) || node.isOperator(TBFTokenSubTypeFactorial) ||
           node.isOperator(TBFTokenSubTypePercent);
}

bool isPostfixWordOperator(const EPExpressionTreeNode& node) {
    return isWordOperator(node, TBFOperatorNotationPostfix);
}

bool isPrefixWordOperator(const EPExpressionTreeNode& node) {
    return isWordOperator(node, TBFOperatorNotationPrefix);
}

bool canBePrefixUnit(const EPExpressionTreeNode& node) {
    const WordMeaning& meaning = node.meaning();
    if (meaning.unitContainer) return meaning.unitContainer->canBePrefixUnit();
    if (!meaning.ambiguousUnit) return false;
    const auto& units = meaning.ambiguousUnit->units();
    return std::any_of(units.begin(), units.end(), [](const auto& unit) { return unit->canBePrefixUnit(); });
}

} // namespace TBF
