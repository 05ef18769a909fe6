#include "parser/ParserImpl.h"

#include "parser/ExpressionTreeBuilder.h"

#include "analysis/ExpressionToken.h"
#include "parser/UnitDisambiguator.h"
#include "units/AmbiguousUnit.h"
#include "units/TBFUnitTypes.h"
#include "units/UnitContainer.h"

#include <utility>

namespace TBF {

namespace {

// Notes in each node with a unit how the line wrote it: as the token says, or as the unit calls that
// spelling.
void setUnitNameFormats(const ExpressionTree& tree) {
    for (ExpressionNode* const node : tree.nodesPostOrderDFS()) {
        const UnitContainer* const unit = node->unitContainer();
        const ExpressionToken* const token = node->expressionToken();
        if (!unit || !token) continue;
        auto format = static_cast<TBFUnitFormatType>(token->unitFormatType());
        if (format == TBFUnitFormatTypeNone) {
            format = TBFUnitFormatTypeFromTBFUnitNameType(unit->nameTypeForName(token->view()));
        }
        node->setUnitNameFormat(format);
    }
}

} // namespace

ParseResult parseExpressionTokens(ExpressionTokens tokens) {
    ExpressionTreeBuilder builder(tokens);
    Ref<ExpressionNode> root = builder.build();
    if (!root) return {nullptr, builder.error()};
    ParseResult result{ExpressionTree::create(std::move(root)), builder.error()};
    // Most lines have no units at all, and then there is nothing to choose or to note.
    if (builder.foundAmbiguousUnit()) TBFUnitDisambiguatorProcessExpressionTree(result.tree.get());
    if (builder.foundUnit()) setUnitNameFormats(*result.tree);
    return result;
}

} // namespace TBF
