#pragma once

// The nodes that a pass has gathered for one word, on their way to its output list. For the passes that
// join words, during one walk over the children of a node.

#include "analysis/EPExpressionTreeNode.h"

#include <utility>

namespace TBF {

class PendingWords {
public:
    bool isEmpty() const { return nodes.empty(); }
    void add(Ref<EPExpressionTreeNode> node) { nodes.push_back(std::move(node)); }

    // Moves what is pending to the output: one node as it is, several as a new word. True if it joined.
    bool flush(EPExpressionTreeNode::Children& output) {
        if (nodes.empty()) return false;
        const bool joins = nodes.size() > 1;
        if (joins) {
            Ref<EPExpressionTreeNode> word = EPExpressionTreeNode::createJoining(std::exchange(nodes, {}));
            word->setTypes(TBFTokenTypeWord, TBFTokenSubTypeNone);
            output.push_back(std::move(word));
        } else {
            output.push_back(std::move(nodes.front()));
            nodes.clear();
        }
        return joins;
    }

private:
    EPExpressionTreeNode::Children nodes;
};

} // namespace TBF
