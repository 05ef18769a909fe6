#include "analysis/passes/CheckOperatorArguments.h"

#include "analysis/passes/NodeRoles.h"
#include "names/wordoperators/WordOperator.h"

#include <cstddef>

// An operator looks for its operands across gaps, and some operators across words and signs. What stands
// on the left is kept up to date on the walk from left to right, since operators there may have become
// words meanwhile. The search to the right goes on from where the last one of the same kind ended if it
// begins inside of it. So every node is passed a bounded number of times.

namespace TBF {

namespace {

using Children = EPExpressionTreeNode::Children;

struct Demands {
    uint32_t options = 0;
    uint32_t argumentConditions = 0;
    int32_t argumentType = 0;

    bool has(TBFOperatorOption option) const { return (options & option) != 0; }
};

Demands demandsOf(const EPExpressionTreeNode& node) {
    if (node.isOperator(TBFTokenSubTypeWordOperator)) {
        const WordOperator* const op = node.meaning().wordOperator.get();
        return op ? Demands{op->options(), op->argumentConditions(), op->argumentType()} : Demands{};
    }
    const TBFOperatorOptions& own = node.operatorOptions();
    return {own.options, own.argumentConditions, own.argumentType};
}

// What a search to the right came upon: a node, or the end, which may do for an operand.
struct Found {
    const EPExpressionTreeNode* node = nullptr; // null if the search failed
    bool endIsOperand = false;
};

class ArgumentCheck {
public:
    explicit ArgumentCheck(const Children& children)
        : nodes(children) {}

    void run() {
        for (std::size_t index = 0; index < nodes.size(); ++index) {
            EPExpressionTreeNode& node = *nodes[index];
            if (node.is(TBFTokenTypeOperator) && node.isMutable() && !hasItsOperands(node, index)) {
                node.demoteToWord();
            }
            pass(node);
        }
    }

private:
    bool hasItsOperands(const EPExpressionTreeNode& node, std::size_t index) {
        const Demands demands = demandsOf(node);
        if (demands.argumentConditions == 0) return true;
        const EPExpressionTreeNode* const left = findLeft(demands);
        const Found right = findRight(demands, index);
        bool leftOk = demands.argumentType == TBFOperatorNotationPrefix;
        bool rightOk = demands.argumentType == TBFOperatorNotationPostfix;
        if (demands.argumentConditions & TBFArgumentConditionValue) {
            leftOk |= left && isOperandLike(*left);
            rightOk |= right.endIsOperand || (right.node && isOperandLike(*right.node));
        }
        if (demands.argumentConditions & TBFArgumentConditionUnit) {
            leftOk |= left && left->is(TBFTokenTypeUnit);
            rightOk |= right.endIsOperand || (right.node && right.node->is(TBFTokenTypeUnit));
        }
        return leftOk && rightOk;
    }

    // Keeps up what an operator behind the node would find on its left.
    void pass(const EPExpressionTreeNode& node) {
        if (node.isGap()) {
            touching = nullptr;
            touchingBeyondWords = nullptr;
            return;
        }
        last = touching = &node;
        if (!node.is(TBFTokenTypeWord)) lastBeyondWords = touchingBeyondWords = &node;
    }

    const EPExpressionTreeNode* findLeft(const Demands& demands) const {
        const bool isTight = demands.has(TBFOperatorOptionTight);
        if (demands.has(TBFOperatorOptionLookThroughWords)) {
            return isTight ? touchingBeyondWords : lastBeyondWords;
        }
        return isTight ? touching : last; // a word is no operand
    }

    // The node at which the search to the right ends, or the end of the children.
    Found findRight(const Demands& demands, std::size_t index) {
        std::size_t here = index + 1;
        const bool endWillDo = demands.has(TBFOperatorOptionEndIsOperand);
        if (here == nodes.size()) return {nullptr, endWillDo};
        const bool resumes = rightOptions == demands.options && here > rightStart && here <= rightEnd;
        rightOptions = demands.options;
        rightStart = index;
        if (resumes) here = rightEnd;
        while (here < nodes.size() && isPassed(*nodes[here], demands))
            ++here;
        rightEnd = here;
        if (here == nodes.size()) {
            const EPExpressionTreeNode& final = *nodes.back();
            return {nullptr, endWillDo && (final.isGap() || isSign(final))};
        }
        const EPExpressionTreeNode& end = *nodes[here];
        return {end.isGap() || end.is(TBFTokenTypeWord) ? nullptr : &end, false};
    }

    static bool isSign(const EPExpressionTreeNode& node) {
        return node.isOperator(TBFTokenSubTypePlus) || node.isOperator(TBFTokenSubTypeMinus);
    }

    static bool isPassed(const EPExpressionTreeNode& node, const Demands& demands) {
        if (node.isGap()) return !demands.has(TBFOperatorOptionTight);
        if (node.is(TBFTokenTypeWord)) return demands.has(TBFOperatorOptionLookThroughWords);
        if (isSign(node)) return demands.has(TBFOperatorOptionLookThroughSigns);
        return isPrefixWordOperator(node);
    }

    const Children& nodes;
    // The last node that is no gap, the last that is no word either, and the same without a gap behind.
    const EPExpressionTreeNode* last = nullptr;
    const EPExpressionTreeNode* lastBeyondWords = nullptr;
    const EPExpressionTreeNode* touching = nullptr;
    const EPExpressionTreeNode* touchingBeyondWords = nullptr;

    // The last search to the right: its options, the operator it began behind, and where it ended.
    uint32_t rightOptions = 0;
    std::size_t rightStart = 0;
    std::size_t rightEnd = 0;
};

} // namespace

void pass_check_operator_arguments_crawler(PassContext& context) {
    crawlGroups(context.root(),
                [](const EPExpressionTreeNode& parent) { ArgumentCheck(parent.children()).run(); });
}

} // namespace TBF
