#pragma once

// The nodes of an expression tree: built by the parser, given their units by the disambiguator, walked by
// the evaluator, which leaves each node's result in the node for its parent to take. There are no virtual
// operations; code goes by `type()`. Reading a property that a node's kind doesn't have gives null or 0.
// Counts are atomic, but a tree belongs to one evaluation, and so to one thread, at a time. Trees of any
// depth are released without recursion.

#include "numbers/TBFOperatorType.h"
#include "parser/ExpressionNodeList.h"
#include "parser/TBFExpressionNodeType.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

enum TBFUnitFormatType : int32_t;

namespace TBF {

class AmbiguousUnit;
class EvalMetadata;
class ExpressionToken;
class Function;
class Number;
class ScopedVariable;
class UnitContainer;
class Value;
class WordOperator;

// What the evaluator leaves in a node; either part may be null.
struct EvaluatedNode {
    Ref<Value> value;
    Ref<EvalMetadata> metadata;

    EvaluatedNode() noexcept;
    EvaluatedNode(Ref<Value> value, Ref<EvalMetadata> metadata) noexcept;
    EvaluatedNode(const EvaluatedNode&);
    EvaluatedNode(EvaluatedNode&&) noexcept;
    EvaluatedNode& operator=(EvaluatedNode other) noexcept;
    ~EvaluatedNode();
};

class ExpressionNode : public Object<ExpressionNode> {
public:
    using Children = std::span<const Ref<ExpressionNode>>;

    TBFExpressionNodeType type() const noexcept { return nodeType; }

    // The token this node came from, or null. Owned by whoever asked for the parse, who keeps the tokens as
    // long as anybody asks nodes for them; a tree itself never reads them once it is built.
    ExpressionToken* expressionToken() const noexcept { return token; }
    void setExpressionToken(ExpressionToken* newToken) noexcept { token = newToken; }

    // The node that holds this one as a child; null for a root and for a function's argument list. Cleared
    // when the parent lets go of the node.
    ExpressionNode* parent() const noexcept { return parentNode; }

    // The set of unit types in this subtree, by unit type array index (a TBFUnitTypeBitmap).
    uint64_t unitTypeBitmap() const noexcept { return unitTypes; }
    void setUnitTypeBitmap(uint64_t bitmap) noexcept { unitTypes = bitmap; }
    bool subtreeHasAmbiguousUnit() const noexcept { return hasAmbiguousUnit; }
    void setSubtreeHasAmbiguousUnit(bool has) noexcept { hasAmbiguousUnit = has; }

    // The evaluated slot. Retrieving is a move: the slot is empty afterwards.
    void setEvaluated(EvaluatedNode newResult) noexcept;
    EvaluatedNode retrieveEvaluated() noexcept;

    // Operands have the number; operands and operator units have the rest. `unitContainer` is null while
    // only an ambiguous unit is known.
    Number* number() const noexcept;
    UnitContainer* unitContainer() const noexcept;
    AmbiguousUnit* ambiguousUnit() const noexcept;
    TBFUnitFormatType unitNameFormat() const noexcept;
    void setUnitNameFormat(TBFUnitFormatType format) noexcept;

    // Settles on one unit; the ambiguous unit stays beside it.
    void resolveUnitAmbiguity(UnitContainer* unit) noexcept;

    // Operators and operator units. Setting it on another node is logged and does nothing.
    TBFOperatorType operatorType() const noexcept;
    void setOperatorType(TBFOperatorType type);

    // Operators, word operators and operator units; on another node logged and without effect.
    void setOperands(Ref<ExpressionNode> left, Ref<ExpressionNode> right);

    WordOperator* wordOperator() const noexcept;
    Function* function() const noexcept;
    ScopedVariable* scopedVariable() const noexcept;

    // A function's list node, or null for a call without arguments. Only a list is taken.
    ExpressionNode* functionArguments() const noexcept;
    void setFunctionArguments(Ref<ExpressionNode> list);

    // A function has one child, its argument list; the children it lends are those of the list. Counting
    // is logged for nodes that never have children.
    int32_t countOfChildren() const;
    bool hasChildren() const;
    Children children() const noexcept;
    ExpressionNode* onlyChild() const noexcept; // the first child, or the argument list

protected:
    explicit ExpressionNode(TBFExpressionNodeType type) noexcept
        : nodeType(type) {}
    ~ExpressionNode() override;

    static void setParent(ExpressionNode& node, ExpressionNode* parent) noexcept { node.parentNode = parent; }

    // Lets go of a child without recursion, whatever the depth below it.
    static void releaseSubtree(Ref<ExpressionNode> node) noexcept;

private:
    // The nodes that this one owns, whatever its kind; an absent argument list is a null among them.
    std::span<Ref<ExpressionNode>> ownedNodes() noexcept;
    static void detachInto(Ref<ExpressionNode> node, ExpressionNode*& chain) noexcept;

    const TBFExpressionNodeType nodeType;
    bool hasAmbiguousUnit = false;
    ExpressionToken* token = nullptr;
    EvaluatedNode result; // empty between evaluations
    uint64_t unitTypes = 0;
    ExpressionNode* parentNode = nullptr; // not owned: the parent owns this node
};

// What the nodes with children of their own share.
class BaseOperatorNode : public ExpressionNode {
public:
    // Takes the node as the last child.
    void addChild(Ref<ExpressionNode> node);

    // Lets all children go and takes the given ones; a null is skipped.
    void setChildren(ExpressionNode* left, ExpressionNode* right);
    void setChildren_TransferOwnership(Ref<ExpressionNode> left, Ref<ExpressionNode> right);

protected:
    explicit BaseOperatorNode(TBFExpressionNodeType type) noexcept
        : ExpressionNode(type) {}
    BaseOperatorNode(TBFExpressionNodeType type, std::vector<Ref<ExpressionNode>> children);
    ~BaseOperatorNode() override;

private:
    friend class ExpressionNode;

    ExpressionNodeList nodes;
};

} // namespace TBF

class TBFOperandExpressionNode final : public TBF::ExpressionNode {
public:
    static TBF::Ref<TBF::ExpressionNode> create(TBF::Ref<TBF::Number> number,
                                                TBF::Ref<TBF::UnitContainer> unitContainer,
                                                TBF::Ref<TBF::AmbiguousUnit> ambiguousUnit);

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    friend class TBF::ExpressionNode;
    TBFOperandExpressionNode(TBF::Ref<TBF::Number> number, TBF::Ref<TBF::UnitContainer> unitContainer,
                             TBF::Ref<TBF::AmbiguousUnit> ambiguousUnit) noexcept;
    ~TBFOperandExpressionNode() override;

    TBF::Ref<TBF::Number> value;
    TBF::Ref<TBF::UnitContainer> unit;
    TBF::Ref<TBF::AmbiguousUnit> ambiguous;
    TBFUnitFormatType format{};
};

class TBFEmptyOperandExpressionNode final : public TBF::ExpressionNode {
public:
    static TBF::Ref<TBF::ExpressionNode> create();

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    TBFEmptyOperandExpressionNode() noexcept
        : ExpressionNode(TBFExpressionNodeTypeEmptyOperand) {}
};

class TBFVariableExpressionNode final : public TBF::ExpressionNode {
public:
    static TBF::Ref<TBF::ExpressionNode> create(TBF::Ref<TBF::ScopedVariable> scopedVariable);

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    friend class TBF::ExpressionNode;
    explicit TBFVariableExpressionNode(TBF::Ref<TBF::ScopedVariable> scopedVariable) noexcept;
    ~TBFVariableExpressionNode() override;

    TBF::Ref<TBF::ScopedVariable> variable;
};

class TBFFunctionExpressionNode final : public TBF::ExpressionNode {
public:
    // `arguments` may be null; a node that isn't a list is not taken.
    static TBF::Ref<TBF::ExpressionNode> create(TBF::Ref<TBF::Function> function,
                                                TBF::Ref<TBF::ExpressionNode> arguments);

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    friend class TBF::ExpressionNode;
    explicit TBFFunctionExpressionNode(TBF::Ref<TBF::Function> function) noexcept;
    ~TBFFunctionExpressionNode() override;

    TBF::Ref<TBF::Function> called;
    TBF::Ref<TBF::ExpressionNode> arguments; // of type list, or null
};

class TBFOperatorExpressionNode final : public TBF::BaseOperatorNode {
public:
    // Either operand may be null.
    static TBF::Ref<TBF::ExpressionNode> create(TBFOperatorType operatorType,
                                                TBF::Ref<TBF::ExpressionNode> left = {},
                                                TBF::Ref<TBF::ExpressionNode> right = {});

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    friend class TBF::ExpressionNode;
    explicit TBFOperatorExpressionNode(TBFOperatorType type) noexcept
        : BaseOperatorNode(TBFExpressionNodeTypeOperator)
        , op(type) {}

    TBFOperatorType op;
};

class TBFListExpressionNode final : public TBF::BaseOperatorNode {
public:
    static TBF::Ref<TBF::ExpressionNode> create(std::vector<TBF::Ref<TBF::ExpressionNode>> elements);

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    explicit TBFListExpressionNode(std::vector<TBF::Ref<TBF::ExpressionNode>> elements)
        : BaseOperatorNode(TBFExpressionNodeTypeList, std::move(elements)) {}
};

class TBFWordOperatorExpressionNode final : public TBF::BaseOperatorNode {
public:
    static TBF::Ref<TBF::ExpressionNode> create(TBF::Ref<TBF::WordOperator> wordOperator);

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    friend class TBF::ExpressionNode;
    explicit TBFWordOperatorExpressionNode(TBF::Ref<TBF::WordOperator> wordOperator) noexcept;
    ~TBFWordOperatorExpressionNode() override;

    TBF::Ref<TBF::WordOperator> word;
};

class TBFOperatorUnitExpressionNode final : public TBF::BaseOperatorNode {
public:
    static TBF::Ref<TBF::ExpressionNode> create(TBF::Ref<TBF::UnitContainer> unitContainer,
                                                TBF::Ref<TBF::AmbiguousUnit> ambiguousUnit,
                                                TBFOperatorType operatorType,
                                                TBF::Ref<TBF::ExpressionNode> child = {});

private:
    friend class TBF::Object<TBF::ExpressionNode>;
    friend class TBF::ExpressionNode;
    TBFOperatorUnitExpressionNode(TBF::Ref<TBF::UnitContainer> unitContainer,
                                  TBF::Ref<TBF::AmbiguousUnit> ambiguousUnit,
                                  TBFOperatorType operatorType) noexcept;
    ~TBFOperatorUnitExpressionNode() override;

    TBF::Ref<TBF::UnitContainer> unit;
    TBF::Ref<TBF::AmbiguousUnit> ambiguous;
    TBFOperatorType op;
    TBFUnitFormatType format{};
};
