#include "parser/ExpressionTreeBuilder.h"

#include "analysis/ExpressionToken.h"
#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/KernelLock.h"
#include "numbers/Number.h"
#include "runtime/PolyString.h"
#include "runtime/TBFLog.h"
#include "units/AmbiguousUnit.h"
#include "units/TBFUnitTypeBitmap.h"
#include "units/UnitContainer.h"

#include <iterator>
#include <utility>

namespace TBF {

namespace {

// The priority of the multiplication between an operand and a variable: 1/2x is 1/(2x).
constexpr int32_t variableMultiplicationPriority = 2;

// What the stacks hold at once on an ordinary line.
constexpr std::size_t usualDepth = 8;

bool isMissing(const Ref<ExpressionNode>& operand) {
    return !operand || operand->type() == TBFExpressionNodeTypeEmptyOperand;
}

bool isPlainOperand(const Ref<ExpressionNode>& operand) {
    return operand && operand->type() == TBFExpressionNodeTypeOperand;
}

// A sign behind nothing that it could add to or subtract from is a unary one.
TBFOperatorType resolveSign(TBFOperatorType type, bool behindOperand) {
    if (behindOperand) return type;
    switch (type) {
    case TBFOperatorTypeSubtract:
        return TBFOperatorTypeUnaryMinus;
    case TBFOperatorTypeAdd:
        return TBFOperatorTypeUnaryPlus;
    default:
        return type;
    }
}

} // namespace

// Walks the tokens once. A group ends at its closing bracket, at a separator inside of a bracket, or with the
// tokens; the walk then goes on in the group around it, behind the token that ended the inner one.
Ref<ExpressionNode> ExpressionTreeBuilder::build() {
    const KernelLock lock; // one for all numbers of the line
    operands.reserve(usualDepth);
    operators.reserve(usualDepth);
    openGroup(false);
    for (std::size_t index = 0;; ++index) {
        Step step = index < tokens.size() ? takeToken(*tokens[index]) : Step::EndGroup;
        if (firstError != TBFParserErrorNone) return nullptr;
        if (step == Step::EndGroup) {
            Ref<ExpressionNode> groupResult = closeGroup();
            if (groups.empty()) return groupResult;
            step = resumeBehindGroup(std::move(groupResult), index);
        }
        if (step == Step::OpenGroup) openGroup(true);
    }
}

ExpressionTreeBuilder::Step ExpressionTreeBuilder::takeToken(ExpressionToken& token) {
    switch (token.type()) {
    case TBFTokenTypeWhitespace:
    case TBFTokenTypeComment:
    case TBFTokenTypeSubstitutionMark:
        break;
    case TBFTokenTypeWord:
        group().flags |= FlagWordPassed;
        break;
    case TBFTokenTypeSeparator:
        return group().insideBracket ? Step::EndGroup : Step::Next;
    case TBFTokenTypeNumber:
        takeNumber(token);
        break;
    case TBFTokenTypeVariable:
        takeVariable(token);
        break;
    case TBFTokenTypeFunction:
        takeFunction(token);
        break;
    case TBFTokenTypeOperator:
        takeOperator(token);
        break;
    case TBFTokenTypeUnit:
        takeUnit(token);
        break;
    case TBFTokenTypeBracket:
        if (token.subType() != TBFTokenSubTypeOpenBracket) return Step::EndGroup;
        insertImplicitOperator(false);
        return Step::OpenGroup;
    default:
        TBFErrorLog("Unexpected token type %d", static_cast<int>(token.type()));
        break;
    }
    return Step::Next;
}

void ExpressionTreeBuilder::takeNumber(ExpressionToken& token) {
    insertImplicitOperator(false);
    auto number = Number::create(token.decimalText().c_str(), TBFNumberTypeDecimal);
    pushOperand(TBFOperandExpressionNode::create(std::move(number), nullptr, nullptr), token);
}

void ExpressionTreeBuilder::takeVariable(ExpressionToken& token) {
    insertImplicitOperator(true);
    pushOperand(TBFVariableExpressionNode::create(retain(token.variable())), token);
}

void ExpressionTreeBuilder::takeFunction(ExpressionToken& token) {
    if (!token.function()) {
        TBFErrorLog("Function not found");
        return;
    }
    insertImplicitOperator(false);
    if (firstError != TBFParserErrorNone) return;
    if (operandSurplus() == operatorNotationAllowedDiff(TBFOperatorNotationPrefix)) {
        auto node = TBFFunctionExpressionNode::create(retain(token.function()), nullptr);
        node->setExpressionToken(&token);
        pushOperator(std::move(node), TBFOperatorPrecedenceFunction, TBFOperatorNotationPrefix);
    } else {
        TBFErrorLog("Unexpected diff");
    }
    group().flags &= ~uint32_t{FlagOperand | FlagUnitFinished};
}

void ExpressionTreeBuilder::takeOperator(ExpressionToken& token) {
    WordOperator* const word =
        token.actualSubType() == TBFTokenSubTypeWordOperator ? token.wordOperator() : nullptr;
    const TBFOperatorType type =
        word ? TBFOperatorTypeNone : TBFOperatorTypeForTBFTokenSubType(token.actualSubType());
    if (!word && type == TBFOperatorTypeNone) return;
    const TBFOperatorNotation notation =
        word ? static_cast<TBFOperatorNotation>(word->argumentType()) : operatorNotation(type);

    // A word in front of the operator stands in for the operand that is missing there.
    if (operandSurplus() != operatorNotationAllowedDiff(notation) && (group().flags & FlagWordPassed)) {
        operands.push_back(TBFEmptyOperandExpressionNode::create());
        group().flags = FlagOperand;
    }
    if (word) {
        auto node = TBFWordOperatorExpressionNode::create(retain(word));
        node->setExpressionToken(&token);
        pushOperator(std::move(node), static_cast<TBFOperatorPrecedence>(word->operatorPrecedence()),
                     notation);
    } else {
        pushOperatorIfAllowed(resolveSign(type, group().flags & FlagOperand), &token);
    }
    if (notation != TBFOperatorNotationPostfix) group().flags &= ~uint32_t{FlagOperand};
    group().flags &= ~uint32_t{FlagUnitFinished};
}

void ExpressionTreeBuilder::takeUnit(ExpressionToken& token) {
    switch (token.actualSubType()) {
    case TBFTokenSubTypeUnitAlone:
        pushUnitOperand(token);
        break;
    case TBFTokenSubTypeUnitPostfix:
        takeUnitPostfix(token);
        break;
    case TBFTokenSubTypeUnitPrefix:
        takeUnitPrefix(token);
        break;
    default:
        TBFErrorLog("Unexpected unit type");
        break;
    }
}

// "5 kg" is 5 times one kilogram. A unit that waits in front of the number gives way.
void ExpressionTreeBuilder::takeUnitPostfix(ExpressionToken& token) {
    if (hasOperators() && operators.back().node->operatorType() == TBFOperatorTypeUnitPrefix) popOperator();
    pushOperatorIfAllowed(TBFOperatorTypeImplicitMultiply, nullptr);
    if (firstError != TBFParserErrorNone) return;
    const bool behindPlainNumber = operandCount() > 0 && isPlainOperand(operands.back());
    pushUnitOperand(token);
    if (behindPlainNumber) group().flags |= FlagUnitFinished;
}

void ExpressionTreeBuilder::takeUnitPrefix(ExpressionToken& token) {
    const bool isSettled = token.unitContainer() != nullptr;
    auto node = TBFOperatorUnitExpressionNode::create(retain(token.unitContainer()),
                                                      isSettled ? nullptr : retain(token.ambiguousUnit()),
                                                      TBFOperatorTypeUnitPrefix);
    node->setExpressionToken(&token);
    noteUnit(*node, token);
    pushOperator(std::move(node), TBFOperatorPrecedenceUnitPrefix, TBFOperatorNotationPrefix);
}

// Two operands side by side are multiplied, or added behind a number with its unit.
void ExpressionTreeBuilder::insertImplicitOperator(bool beforeVariable) {
    if (operandCount() == 0) return;
    const uint32_t flags = group().flags;
    if (flags & FlagUnitFinished) {
        pushOperatorIfAllowed(TBFOperatorTypeImplicitAdd, nullptr);
    } else if (!(flags & FlagOperand)) {
        return;
    } else if (beforeVariable && isPlainOperand(operands.back())) {
        pushOperatorIfAllowed(multiplyOperatorForImplicitOperatorPriority(variableMultiplicationPriority),
                              nullptr);
    } else {
        pushOperatorIfAllowed(TBFOperatorTypeMultiply, nullptr);
    }
}

void ExpressionTreeBuilder::openGroup(bool insideBracket) {
    Group& opened = groups.emplace_back();
    opened.operandBase = operands.size();
    opened.operatorBase = operators.size();
    opened.insideBracket = insideBracket;
}

// Takes the innermost group off the stacks and gives what it came to.
Ref<ExpressionNode> ExpressionTreeBuilder::closeGroup() {
    Ref<ExpressionNode> groupResult = reduceGroup();
    operands.resize(group().operandBase);
    operators.erase(operators.begin() + static_cast<std::ptrdiff_t>(group().operatorBase), operators.end());
    groups.pop_back();
    return groupResult;
}

Ref<ExpressionNode> ExpressionTreeBuilder::reduceGroup() {
    dropDanglingOperators();
    if (!hasOperators()) {
        if (operandCount() == 0) return nullptr;
        if (operandCount() == 1 && isMissing(operands.back())) return nullptr;
    }
    while (hasOperators())
        reduceTopOperator();
    return operandCount() > 0 ? popOperand() : nullptr;
}

// Operators at the end that wait for an operand in vain: "5 +" is 5.
void ExpressionTreeBuilder::dropDanglingOperators() {
    while (operandSurplus() < 0 && hasOperators())
        group().expected -= popOperator().arity - 1;
}

// Goes on in a group behind an inner one, which the token at `last` ended, or the end of the tokens if `last`
// lies behind them.
ExpressionTreeBuilder::Step ExpressionTreeBuilder::resumeBehindGroup(Ref<ExpressionNode> groupResult,
                                                                     std::size_t last) {
    const token_type lastType = last < tokens.size() ? tokens[last]->type() : TBFTokenTypeNone;
    if (group().collectsList) {
        const bool isEmpty = groupResult == nullptr;
        if (!isEmpty) listElements.push_back(std::move(groupResult));
        if (!isEmpty && lastType != TBFTokenTypeBracket) return Step::OpenGroup;
        finishList();
    } else if (lastType == TBFTokenTypeSeparator) {
        group().collectsList = true;
        group().listBase = listElements.size();
        if (groupResult) listElements.push_back(std::move(groupResult));
        return Step::OpenGroup;
    } else if (lastType == TBFTokenTypeBracket || lastType == TBFTokenTypeNone) {
        pushGroupResult(std::move(groupResult));
    } else {
        TBFErrorLog("Unexpected last token");
    }
    if (operandCount() > 0) group().flags = FlagOperand;
    return Step::Next;
}

// A function takes the bracket behind it at once: sin(3)^2 squares the sine, sin 3^2 is the sine of 9.
void ExpressionTreeBuilder::pushGroupResult(Ref<ExpressionNode> groupResult) {
    if (!groupResult) groupResult = TBFEmptyOperandExpressionNode::create();
    operands.push_back(std::move(groupResult));
    if (hasOperators() && operators.back().node->type() == TBFExpressionNodeTypeFunction) {
        reduceFunction(popOperator().node);
    }
}

void ExpressionTreeBuilder::finishList() {
    const auto first = listElements.begin() + static_cast<std::ptrdiff_t>(group().listBase);
    operands.push_back(TBFListExpressionNode::create(
        {std::make_move_iterator(first), std::make_move_iterator(listElements.end())}));
    listElements.erase(first, listElements.end());
    group().collectsList = false;
}

void ExpressionTreeBuilder::pushOperand(Ref<ExpressionNode> node, ExpressionToken& token) {
    node->setExpressionToken(&token);
    operands.push_back(std::move(node));
    group().flags = FlagOperand;
}

void ExpressionTreeBuilder::pushUnitOperand(ExpressionToken& token) {
    const bool isSettled = token.unitContainer() != nullptr;
    auto node = TBFOperandExpressionNode::create(Number::one(), retain(token.unitContainer()),
                                                 isSettled ? nullptr : retain(token.ambiguousUnit()));
    noteUnit(*node, token);
    pushOperand(std::move(node), token);
}

void ExpressionTreeBuilder::noteUnit(ExpressionNode& node, const ExpressionToken& token) {
    hasUnit = true;
    if (token.unitContainer()) {
        node.setUnitTypeBitmap(TBFUnitTypeBitmapMakeWithUnitContainer(token.unitContainer()));
    } else if (token.ambiguousUnit()) {
        node.setSubtreeHasAmbiguousUnit(true);
        hasAmbiguousUnit = true;
    }
}

// Where an operator can't stand it is dropped at the beginning of a group, and an error elsewhere.
void ExpressionTreeBuilder::pushOperatorIfAllowed(TBFOperatorType type, ExpressionToken* token) {
    const TBFOperatorNotation notation = operatorNotation(type);
    if (operandSurplus() != operatorNotationAllowedDiff(notation)) {
        if (operandCount() > 0) firstError = TBFParserErrorMisplacedOperator;
        return;
    }
    auto node = TBFOperatorExpressionNode::create(type);
    node->setExpressionToken(token);
    pushOperator(std::move(node), operatorPrecedence(type), notation);
}

void ExpressionTreeBuilder::pushOperator(Ref<ExpressionNode> node, TBFOperatorPrecedence precedence,
                                         TBFOperatorNotation notation) {
    const OperatorStrength strength = TBFOperatorPrecedenceGet_new(precedence);
    while (hasOperators() && mustReduceBefore(operators.back(), precedence, strength))
        reduceTopOperator();
    const int32_t arity = operatorArity(notation);
    operators.push_back({std::move(node), precedence, strength, arity});
    group().expected += arity - 1;
}

bool ExpressionTreeBuilder::mustReduceBefore(const PendingOperator& top, TBFOperatorPrecedence precedence,
                                             OperatorStrength strength) const {
    // 1e2^2 is (1e2)^2.
    if (top.precedence == TBFOperatorPrecedenceE10 && precedence == TBFOperatorPrecedencePower) return true;
    // sqrt 2x is sqrt(2x).
    if (top.precedence == TBFOperatorPrecedenceFunction &&
        precedence == TBFOperatorPrecedenceImplicitMultiplyHigh) {
        return false;
    }
    if (strength.strength != top.strength.strength) return strength.strength < top.strength.strength;
    return !strength.rightAssociative;
}

void ExpressionTreeBuilder::reduceTopOperator() {
    PendingOperator op = popOperator();
    if (op.node->type() == TBFExpressionNodeTypeFunction) {
        reduceFunction(std::move(op.node));
        return;
    }
    if (op.arity != 1 && op.arity != 2) {
        TBFErrorLog("Unexpected operator arity %d", static_cast<int>(op.arity));
        return;
    }
    if (operandCount() < static_cast<std::size_t>(op.arity)) return;

    Ref<ExpressionNode> right = popOperand();
    Ref<ExpressionNode> reduced = op.arity == 1
                                      ? reduceUnary(std::move(op.node), std::move(right))
                                      : reduceBinary(std::move(op.node), popOperand(), std::move(right));
    if (reduced && reduced->type() == TBFExpressionNodeTypeOperator) {
        reduced->setOperatorType(operatorTypeInTree(reduced->operatorType()));
    }
    operands.push_back(std::move(reduced));
    group().expected -= op.arity - 1;
}

void ExpressionTreeBuilder::reduceFunction(Ref<ExpressionNode> function) {
    if (operandCount() == 0) return;
    Ref<ExpressionNode> arguments = popOperand();
    if (isMissing(arguments)) {
        arguments.reset();
    } else if (arguments->type() != TBFExpressionNodeTypeList) {
        std::vector<Ref<ExpressionNode>> only;
        only.push_back(std::move(arguments));
        arguments = TBFListExpressionNode::create(std::move(only));
    }
    const std::size_t count = arguments ? arguments->children().size() : 0;
    if (count < function->function()->argumentCount()) {
        operands.push_back(TBFEmptyOperandExpressionNode::create());
        return;
    }
    function->setFunctionArguments(std::move(arguments));
    operands.push_back(std::move(function));
}

Ref<ExpressionNode> ExpressionTreeBuilder::reduceUnary(Ref<ExpressionNode> op, Ref<ExpressionNode> operand) {
    if (isMissing(operand)) return nullptr;
    op->setOperands(std::move(operand), nullptr);
    return op;
}

// An operator that misses an operand becomes what is left of it: its other operand, a sign, an inverse, or
// nothing.
Ref<ExpressionNode> ExpressionTreeBuilder::reduceBinary(Ref<ExpressionNode> op, Ref<ExpressionNode> left,
                                                        Ref<ExpressionNode> right) {
    const bool hasLeft = !isMissing(left);
    if (isMissing(right)) return hasLeft ? std::move(left) : nullptr;
    if (hasLeft) {
        op->setOperands(std::move(left), std::move(right));
        return op;
    }
    switch (op->operatorType()) {
    case TBFOperatorTypeAdd:
        op->setOperatorType(TBFOperatorTypeUnaryPlus);
        op->setOperands(nullptr, std::move(right));
        return op;
    case TBFOperatorTypeSubtract:
        op->setOperatorType(TBFOperatorTypeUnaryMinus);
        op->setOperands(nullptr, std::move(right));
        return op;
    case TBFOperatorTypeMultiply:
        return right;
    case TBFOperatorTypeDivide:
        op->setOperands(TBFOperandExpressionNode::create(Number::one(), nullptr, nullptr), std::move(right));
        return op;
    default:
        return nullptr;
    }
}

Ref<ExpressionNode> ExpressionTreeBuilder::popOperand() {
    Ref<ExpressionNode> node = std::move(operands.back());
    operands.pop_back();
    return node;
}

ExpressionTreeBuilder::PendingOperator ExpressionTreeBuilder::popOperator() {
    PendingOperator op = std::move(operators.back());
    operators.pop_back();
    return op;
}

} // namespace TBF
