#include "parser/ExpressionNode.h"

#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/Number.h"
#include "runtime/TBFLog.h"
#include "units/AmbiguousUnit.h"
#include "units/EvalMetadata.h"
#include "units/TBFUnitTypes.h"
#include "units/UnitContainer.h"
#include "units/Value.h"

#include <utility>

namespace TBF {

namespace {

bool isOperatorNode(TBFExpressionNodeType type) {
    return type == TBFExpressionNodeTypeOperator || type == TBFExpressionNodeTypeList ||
           type == TBFExpressionNodeTypeWordOperator || type == TBFExpressionNodeTypeOperatorUnit;
}

} // namespace

EvaluatedNode::EvaluatedNode() noexcept = default;
EvaluatedNode::EvaluatedNode(Ref<Value> newValue, Ref<EvalMetadata> newMetadata) noexcept
    : value(std::move(newValue))
    , metadata(std::move(newMetadata)) {}
EvaluatedNode::EvaluatedNode(const EvaluatedNode&) = default;
EvaluatedNode::EvaluatedNode(EvaluatedNode&&) noexcept = default;
EvaluatedNode::~EvaluatedNode() = default;

EvaluatedNode& EvaluatedNode::operator=(EvaluatedNode other) noexcept {
    value.swap(other.value);
    metadata.swap(other.metadata);
    return *this;
}

ExpressionNode::~ExpressionNode() = default;

void ExpressionNode::setEvaluated(EvaluatedNode newResult) noexcept {
    result = std::move(newResult);
}

EvaluatedNode ExpressionNode::retrieveEvaluated() noexcept {
    return std::move(result);
}

Number* ExpressionNode::number() const noexcept {
    if (nodeType != TBFExpressionNodeTypeOperand) return nullptr;
    return static_cast<const TBFOperandExpressionNode*>(this)->value.get();
}

UnitContainer* ExpressionNode::unitContainer() const noexcept {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperand:
        return static_cast<const TBFOperandExpressionNode*>(this)->unit.get();
    case TBFExpressionNodeTypeOperatorUnit:
        return static_cast<const TBFOperatorUnitExpressionNode*>(this)->unit.get();
    default:
        return nullptr;
    }
}

AmbiguousUnit* ExpressionNode::ambiguousUnit() const noexcept {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperand:
        return static_cast<const TBFOperandExpressionNode*>(this)->ambiguous.get();
    case TBFExpressionNodeTypeOperatorUnit:
        return static_cast<const TBFOperatorUnitExpressionNode*>(this)->ambiguous.get();
    default:
        return nullptr;
    }
}

TBFUnitFormatType ExpressionNode::unitNameFormat() const noexcept {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperand:
        return static_cast<const TBFOperandExpressionNode*>(this)->format;
    case TBFExpressionNodeTypeOperatorUnit:
        return static_cast<const TBFOperatorUnitExpressionNode*>(this)->format;
    default:
        return {};
    }
}

void ExpressionNode::setUnitNameFormat(TBFUnitFormatType format) noexcept {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperand:
        static_cast<TBFOperandExpressionNode*>(this)->format = format;
        break;
    case TBFExpressionNodeTypeOperatorUnit:
        static_cast<TBFOperatorUnitExpressionNode*>(this)->format = format;
        break;
    default:
        break;
    }
}

void ExpressionNode::resolveUnitAmbiguity(UnitContainer* unit) noexcept {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperand:
        static_cast<TBFOperandExpressionNode*>(this)->unit = TBF::retain(unit);
        break;
    case TBFExpressionNodeTypeOperatorUnit:
        static_cast<TBFOperatorUnitExpressionNode*>(this)->unit = TBF::retain(unit);
        break;
    default:
        break;
    }
}

TBFOperatorType ExpressionNode::operatorType() const noexcept {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperator:
        return static_cast<const TBFOperatorExpressionNode*>(this)->op;
    case TBFExpressionNodeTypeOperatorUnit:
        return static_cast<const TBFOperatorUnitExpressionNode*>(this)->op;
    default:
        return TBFOperatorTypeNone;
    }
}

void ExpressionNode::setOperatorType(TBFOperatorType type) {
    switch (nodeType) {
    case TBFExpressionNodeTypeOperator:
        static_cast<TBFOperatorExpressionNode*>(this)->op = type;
        break;
    case TBFExpressionNodeTypeOperatorUnit:
        static_cast<TBFOperatorUnitExpressionNode*>(this)->op = type;
        break;
    default:
        TBFErrorLog("Unexpected node type %d", static_cast<int>(nodeType));
        break;
    }
}

void ExpressionNode::setOperands(Ref<ExpressionNode> left, Ref<ExpressionNode> right) {
    if (!isOperatorNode(nodeType) || nodeType == TBFExpressionNodeTypeList) {
        TBFErrorLog("Unexpected node type %d", static_cast<int>(nodeType));
        return;
    }
    static_cast<BaseOperatorNode*>(this)->setChildren_TransferOwnership(std::move(left), std::move(right));
}

WordOperator* ExpressionNode::wordOperator() const noexcept {
    if (nodeType != TBFExpressionNodeTypeWordOperator) return nullptr;
    return static_cast<const TBFWordOperatorExpressionNode*>(this)->word.get();
}

Function* ExpressionNode::function() const noexcept {
    if (nodeType != TBFExpressionNodeTypeFunction) return nullptr;
    return static_cast<const TBFFunctionExpressionNode*>(this)->called.get();
}

ScopedVariable* ExpressionNode::scopedVariable() const noexcept {
    if (nodeType != TBFExpressionNodeTypeVariable) return nullptr;
    return static_cast<const TBFVariableExpressionNode*>(this)->variable.get();
}

ExpressionNode* ExpressionNode::functionArguments() const noexcept {
    if (nodeType != TBFExpressionNodeTypeFunction) return nullptr;
    return static_cast<const TBFFunctionExpressionNode*>(this)->arguments.get();
}

void ExpressionNode::setFunctionArguments(Ref<ExpressionNode> list) {
    if (nodeType != TBFExpressionNodeTypeFunction) return;
    if (!list || list->type() != TBFExpressionNodeTypeList) return;
    auto& arguments = static_cast<TBFFunctionExpressionNode*>(this)->arguments;
    releaseSubtree(std::exchange(arguments, std::move(list)));
}

int32_t ExpressionNode::countOfChildren() const {
    if (isOperatorNode(nodeType)) {
        return static_cast<int32_t>(static_cast<const BaseOperatorNode*>(this)->nodes.size());
    }
    if (nodeType == TBFExpressionNodeTypeFunction) return 1;
    TBFErrorLog("Unexpected node type %d", static_cast<int>(nodeType));
    return 0;
}

bool ExpressionNode::hasChildren() const {
    if (isOperatorNode(nodeType)) return static_cast<const BaseOperatorNode*>(this)->nodes.size() > 0;
    switch (nodeType) {
    case TBFExpressionNodeTypeOperand:
    case TBFExpressionNodeTypeVariable:
        return false;
    case TBFExpressionNodeTypeFunction:
        return functionArguments() != nullptr;
    default:
        TBFErrorLog("Unexpected node type %d", static_cast<int>(nodeType));
        return false;
    }
}

ExpressionNode::Children ExpressionNode::children() const noexcept {
    if (isOperatorNode(nodeType)) return static_cast<const BaseOperatorNode*>(this)->nodes.view();
    const ExpressionNode* const list = functionArguments();
    return list ? list->children() : Children();
}

ExpressionNode* ExpressionNode::onlyChild() const noexcept {
    if (nodeType == TBFExpressionNodeTypeFunction) return functionArguments();
    const Children all = children();
    return all.empty() ? nullptr : all.front().get();
}

std::span<Ref<ExpressionNode>> ExpressionNode::ownedNodes() noexcept {
    if (isOperatorNode(nodeType)) return static_cast<BaseOperatorNode*>(this)->nodes.view();
    if (nodeType != TBFExpressionNodeTypeFunction) return {};
    return {&static_cast<TBFFunctionExpressionNode*>(this)->arguments, 1};
}

// Nodes that nobody else holds and that own further nodes wait in a chain, linked by the parent pointer that
// they have no use for any more. So a tree is taken apart level by level, in constant memory.
void ExpressionNode::releaseSubtree(Ref<ExpressionNode> node) noexcept {
    ExpressionNode* chain = nullptr;
    detachInto(std::move(node), chain);
    while (chain) {
        const Ref<ExpressionNode> next = adopt(std::exchange(chain, chain->parentNode));
        for (Ref<ExpressionNode>& child : next->ownedNodes())
            detachInto(std::move(child), chain);
    }
}

void ExpressionNode::detachInto(Ref<ExpressionNode> node, ExpressionNode*& chain) noexcept {
    if (!node) return;
    node->parentNode = nullptr;
    if (!node->isUnique() || node->ownedNodes().empty()) return;
    node->parentNode = chain;
    chain = node.leak();
}

BaseOperatorNode::BaseOperatorNode(TBFExpressionNodeType type, std::vector<Ref<ExpressionNode>> children)
    : ExpressionNode(type) {
    std::erase(children, nullptr);
    nodes = ExpressionNodeList(std::move(children));
    for (const Ref<ExpressionNode>& child : nodes.view())
        setParent(*child, this);
}

BaseOperatorNode::~BaseOperatorNode() {
    for (Ref<ExpressionNode>& child : nodes.view())
        releaseSubtree(std::move(child));
}

void BaseOperatorNode::addChild(Ref<ExpressionNode> node) {
    if (!node) return;
    setParent(*node, this);
    nodes.append(std::move(node));
}

void BaseOperatorNode::setChildren(ExpressionNode* left, ExpressionNode* right) {
    setChildren_TransferOwnership(TBF::retain(left), TBF::retain(right));
}

void BaseOperatorNode::setChildren_TransferOwnership(Ref<ExpressionNode> left, Ref<ExpressionNode> right) {
    for (Ref<ExpressionNode>& child : nodes.view())
        releaseSubtree(std::move(child));
    nodes.clear();
    addChild(std::move(left));
    addChild(std::move(right));
}

} // namespace TBF

using TBF::ExpressionNode;
using TBF::Ref;

TBFOperandExpressionNode::TBFOperandExpressionNode(Ref<TBF::Number> number,
                                                   Ref<TBF::UnitContainer> unitContainer,
                                                   Ref<TBF::AmbiguousUnit> ambiguousUnit) noexcept
    : ExpressionNode(TBFExpressionNodeTypeOperand)
    , value(std::move(number))
    , unit(std::move(unitContainer))
    , ambiguous(std::move(ambiguousUnit)) {}

TBFOperandExpressionNode::~TBFOperandExpressionNode() = default;

Ref<ExpressionNode> TBFOperandExpressionNode::create(Ref<TBF::Number> number,
                                                     Ref<TBF::UnitContainer> unitContainer,
                                                     Ref<TBF::AmbiguousUnit> ambiguousUnit) {
    return TBF::make<TBFOperandExpressionNode>(std::move(number), std::move(unitContainer),
                                               std::move(ambiguousUnit));
}

Ref<ExpressionNode> TBFEmptyOperandExpressionNode::create() {
    return TBF::make<TBFEmptyOperandExpressionNode>();
}

TBFVariableExpressionNode::TBFVariableExpressionNode(Ref<TBF::ScopedVariable> scopedVariable) noexcept
    : ExpressionNode(TBFExpressionNodeTypeVariable)
    , variable(std::move(scopedVariable)) {}

TBFVariableExpressionNode::~TBFVariableExpressionNode() = default;

Ref<ExpressionNode> TBFVariableExpressionNode::create(Ref<TBF::ScopedVariable> scopedVariable) {
    return TBF::make<TBFVariableExpressionNode>(std::move(scopedVariable));
}

TBFFunctionExpressionNode::TBFFunctionExpressionNode(Ref<TBF::Function> function) noexcept
    : ExpressionNode(TBFExpressionNodeTypeFunction)
    , called(std::move(function)) {}

TBFFunctionExpressionNode::~TBFFunctionExpressionNode() {
    releaseSubtree(std::move(arguments));
}

Ref<ExpressionNode> TBFFunctionExpressionNode::create(Ref<TBF::Function> function,
                                                      Ref<ExpressionNode> arguments) {
    Ref<ExpressionNode> node = TBF::make<TBFFunctionExpressionNode>(std::move(function));
    node->setFunctionArguments(std::move(arguments));
    return node;
}

Ref<ExpressionNode> TBFOperatorExpressionNode::create(TBFOperatorType operatorType, Ref<ExpressionNode> left,
                                                      Ref<ExpressionNode> right) {
    auto node = TBF::make<TBFOperatorExpressionNode>(operatorType);
    node->addChild(std::move(left));
    node->addChild(std::move(right));
    return node;
}

Ref<ExpressionNode> TBFListExpressionNode::create(std::vector<Ref<ExpressionNode>> elements) {
    return TBF::make<TBFListExpressionNode>(std::move(elements));
}

TBFWordOperatorExpressionNode::TBFWordOperatorExpressionNode(Ref<TBF::WordOperator> wordOperator) noexcept
    : BaseOperatorNode(TBFExpressionNodeTypeWordOperator)
    , word(std::move(wordOperator)) {}

TBFWordOperatorExpressionNode::~TBFWordOperatorExpressionNode() = default;

Ref<ExpressionNode> TBFWordOperatorExpressionNode::create(Ref<TBF::WordOperator> wordOperator) {
    return TBF::make<TBFWordOperatorExpressionNode>(std::move(wordOperator));
}

TBFOperatorUnitExpressionNode::TBFOperatorUnitExpressionNode(Ref<TBF::UnitContainer> unitContainer,
                                                             Ref<TBF::AmbiguousUnit> ambiguousUnit,
                                                             TBFOperatorType operatorType) noexcept
    : BaseOperatorNode(TBFExpressionNodeTypeOperatorUnit)
    , unit(std::move(unitContainer))
    , ambiguous(std::move(ambiguousUnit))
    , op(operatorType) {}

TBFOperatorUnitExpressionNode::~TBFOperatorUnitExpressionNode() = default;

Ref<ExpressionNode> TBFOperatorUnitExpressionNode::create(Ref<TBF::UnitContainer> unitContainer,
                                                          Ref<TBF::AmbiguousUnit> ambiguousUnit,
                                                          TBFOperatorType operatorType,
                                                          Ref<ExpressionNode> child) {
    auto node = TBF::make<TBFOperatorUnitExpressionNode>(std::move(unitContainer), std::move(ambiguousUnit),
                                                         operatorType);
    node->addChild(std::move(child));
    return node;
}
