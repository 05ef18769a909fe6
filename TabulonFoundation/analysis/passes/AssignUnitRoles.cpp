#include "analysis/passes/AssignUnitRoles.h"

#include "analysis/passes/NodeRoles.h"

#include <cstddef>

namespace TBF {

namespace {

using Children = EPExpressionTreeNode::Children;

// The first node from `start` on that is significant, or null. Units don't count if they are skipped.
const EPExpressionTreeNode* significantNode(const Children& nodes, std::size_t start, bool skipsUnits) {
    for (std::size_t index = start; index < nodes.size(); ++index) {
        const EPExpressionTreeNode& node = *nodes[index];
        if (isSignificant(node) && !(skipsUnits && node.is(TBFTokenTypeUnit))) return &node;
    }
    return nullptr;
}

// What stands behind a unit.
struct Surroundings {
    bool nextIsValue = false;
    bool mustNotStandAlone = false;
};

class RoleAssignment {
public:
    explicit RoleAssignment(const Children& children)
        : nodes(children) {}

    void run() {
        for (std::size_t index = 0; index < nodes.size(); ++index) {
            EPExpressionTreeNode& node = *nodes[index];
            if (node.is(TBFTokenTypeUnit)) {
                if (node.isMutable()) assignRole(node, surroundingsOf(index));
                canStandAlone = false;
                canPostfix = true;
            } else {
                readOther(node);
            }
            if (isSignificant(node)) previous = &node;
        }
    }

private:
    void readOther(const EPExpressionTreeNode& node) {
        if (isOperandLike(node)) {
            canPrefix = canStandAlone = false;
            canPostfix = true;
        } else if (node.is(TBFTokenTypeWord)) {
            canPostfix = false;
        } else if (node.is(TBFTokenTypeOperator)) {
            canPrefix = canStandAlone = true;
            canPostfix = false;
        }
    }

    Surroundings surroundingsOf(std::size_t index) const {
        const EPExpressionTreeNode* const next = significantNode(nodes, index + 1, false);
        Surroundings result;
        result.nextIsValue = next && (next->is(TBFTokenTypeNumber) || next->is(TBFTokenTypeUnit) ||
                                      next->is(TBFTokenTypeGroup));
        const bool isBesideOperator =
            (previous && previous->is(TBFTokenTypeOperator)) ||
            (next && (next->is(TBFTokenTypeOperator) || next->is(TBFTokenTypeGroup)));
        if (isBesideOperator || isAtItsPlaceAlone(index, next)) return result;
        result.mustNotStandAlone = true;
        if (index == 0 && next && next->is(TBFTokenTypeUnit)) {
            // The first one of a list of units stands alone.
            const EPExpressionTreeNode* const behindUnits = significantNode(nodes, index + 1, true);
            if (!behindUnits || behindUnits->is(TBFTokenTypeOperator)) result = {};
        }
        return result;
    }

    // True for a unit with nothing behind it, but perhaps a bracket.
    bool isAtItsPlaceAlone(std::size_t index, const EPExpressionTreeNode* next) const {
        return index + 1 == nodes.size() ||
               (next && next->is(TBFTokenTypeBracket, TBFTokenSubTypeCloseBracket));
    }

    void assignRole(EPExpressionTreeNode& unit, Surroundings surroundings) const {
        const bool standsBeforeValue = surroundings.nextIsValue && canBePrefixUnit(unit);
        if (canPrefix && standsBeforeValue) {
            unit.setSubType(TBFTokenSubTypeUnitPrefix);
        } else if (canPostfix) {
            unit.setSubType(TBFTokenSubTypeUnitPostfix);
        } else if (canStandAlone && !standsBeforeValue && !surroundings.mustNotStandAlone) {
            unit.setSubType(TBFTokenSubTypeUnitAlone);
        } else {
            unit.setTypes(TBFTokenTypeWord, TBFTokenSubTypeNone);
        }
    }

    const Children& nodes;
    const EPExpressionTreeNode* previous = nullptr; // the last significant node
    bool canPrefix = true;
    bool canStandAlone = true;
    bool canPostfix = false;
};

} // namespace

void pass_assign_unit_roles_crawler(PassContext& context) {
    crawlGroups(context.root(),
                [](const EPExpressionTreeNode& parent) { RoleAssignment(parent.children()).run(); });
}

} // namespace TBF
