#include "analysis/passes/FreezeDeclaredWords.h"

#include <algorithm>

namespace TBF {

void pass_freeze_declared_words(PassContext& context) {
    const EPExpressionTreeNode::Children& nodes = context.root().children();
    const auto equals = std::find_if(nodes.begin(), nodes.end(), [](const Ref<EPExpressionTreeNode>& node) {
        return node->is(TBFTokenTypeEquals);
    });
    if (equals == nodes.end()) return;
    for (auto node = nodes.begin(); node != equals; ++node) {
        if ((*node)->is(TBFTokenTypeWord)) (*node)->setMutable(false);
    }
}

} // namespace TBF
