#pragma once

// An operator-precedence parser: operands and operators wait on two stacks, and an operator is reduced, that
// is, gets its operands and becomes one, as soon as one arrives that binds less tightly. Each bracket level
// is a group with its own share of the stacks and its own flags. Groups stand on a stack too, so that
// brackets nest without recursion. Free text is forgiven: a token that doesn't fit is dropped, operands
// without an operator between them get one, a missing operand is empty until its operator is reduced. Used by
// parseExpressionTokens; one builder for one parse, on one thread.

#include "parser/OperatorTables.h"
#include "parser/ParserImpl.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace TBF {

class ExpressionTreeBuilder {
public:
    // The tokens outlive the builder and the tree.
    explicit ExpressionTreeBuilder(ExpressionTokens expressionTokens) noexcept
        : tokens(expressionTokens) {}

    // The root, or null when the tokens hold nothing to evaluate, or after an error. Called once.
    Ref<ExpressionNode> build();

    TBFParserError error() const noexcept { return firstError; }
    bool foundUnit() const noexcept { return hasUnit; }
    bool foundAmbiguousUnit() const noexcept { return hasAmbiguousUnit; }

private:
    // What the walk does behind a token.
    enum class Step : uint8_t {
        Next = 0,
        OpenGroup = 1,
        EndGroup = 2,
    };

    enum Flag : uint32_t {
        FlagNone = 0,
        FlagOperand = 1, // an operand was pushed last, or a postfix operator on one
        FlagUnitFinished =
            4,              // a number got its unit: an operand that follows is added, as in "3 ft 2 inches"
        FlagWordPassed = 8, // a word stood behind the last operand
    };

    struct Group {
        std::size_t operandBase = 0;  // the group's operands begin here
        std::size_t operatorBase = 0; // and its operators here
        std::size_t listBase = 0;     // the elements of the list that is collected
        int32_t expected = 1;         // operands that the operators on the stack leave room for
        uint32_t flags = FlagNone;
        bool insideBracket = false;
        bool collectsList = false; // between "(" and ")" a separator was found
    };

    struct PendingOperator {
        Ref<ExpressionNode> node;
        TBFOperatorPrecedence precedence;
        OperatorStrength strength;
        int32_t arity;
    };

    Step takeToken(ExpressionToken& token);
    void takeNumber(ExpressionToken& token);
    void takeVariable(ExpressionToken& token);
    void takeFunction(ExpressionToken& token);
    void takeOperator(ExpressionToken& token);
    void takeUnit(ExpressionToken& token);
    void takeUnitPostfix(ExpressionToken& token);
    void takeUnitPrefix(ExpressionToken& token);
    void insertImplicitOperator(bool beforeVariable);

    void openGroup(bool insideBracket);
    Ref<ExpressionNode> closeGroup();
    Ref<ExpressionNode> reduceGroup();
    void dropDanglingOperators();
    Step resumeBehindGroup(Ref<ExpressionNode> groupResult, std::size_t last);
    void pushGroupResult(Ref<ExpressionNode> groupResult);
    void finishList();

    void pushOperand(Ref<ExpressionNode> node, ExpressionToken& token);
    void pushUnitOperand(ExpressionToken& token);
    void pushOperatorIfAllowed(TBFOperatorType type, ExpressionToken* token);
    void pushOperator(Ref<ExpressionNode> node, TBFOperatorPrecedence precedence,
                      TBFOperatorNotation notation);
    bool mustReduceBefore(const PendingOperator& top, TBFOperatorPrecedence precedence,
                          OperatorStrength strength) const;
    void noteUnit(ExpressionNode& node, const ExpressionToken& token);

    void reduceTopOperator();
    void reduceFunction(Ref<ExpressionNode> function);
    static Ref<ExpressionNode> reduceUnary(Ref<ExpressionNode> op, Ref<ExpressionNode> operand);
    static Ref<ExpressionNode> reduceBinary(Ref<ExpressionNode> op, Ref<ExpressionNode> left,
                                            Ref<ExpressionNode> right);

    Group& group() { return groups.back(); }
    std::size_t operandCount() { return operands.size() - group().operandBase; }
    bool hasOperators() { return operators.size() > group().operatorBase; }
    int32_t operandSurplus() { return static_cast<int32_t>(operandCount()) - group().expected; }
    Ref<ExpressionNode> popOperand();
    PendingOperator popOperator();

    ExpressionTokens tokens;
    PooledVector<Ref<ExpressionNode>> operands; // a null stands for a value that came to nothing
    PooledVector<PendingOperator> operators;
    PooledVector<Ref<ExpressionNode>> listElements;
    PooledVector<Group> groups;
    TBFParserError firstError = TBFParserErrorNone;
    bool hasUnit = false;
    bool hasAmbiguousUnit = false;
};

} // namespace TBF
