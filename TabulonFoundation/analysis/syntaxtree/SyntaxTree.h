#pragma once

// A small pattern language over sibling nodes of an analysis tree: paths from a root, each ending in the
// number of a rule. Built at start-up, read-only afterwards, and then usable on any thread.

#include "analysis/syntaxtree/SyntaxTreeNode.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace TBF {

// A run of children that fits a pattern.
struct SyntaxTreeMatch {
    std::size_t start = 0;
    std::size_t end = 0;                      // one behind the last child of the run
    std::vector<std::size_t> ignored;         // the children of the run that were passed over, ascending
    const SyntaxTreeNode* terminal = nullptr; // never null in a match; its type is the rule
};

class SyntaxTree final : public Object<SyntaxTree> {
public:
    static Ref<SyntaxTree> create();

    SyntaxTreeNode& root() const { return *rootNode; }

    // What one step of a path is.
    struct Link {
        int32_t type = 0;
        int32_t subType = 0;
        SyntaxTreePredicate predicate = syntaxTreePredicateTrue;
        uint32_t options = TBFSyntaxTreeLinkOptionNone;
        int32_t trimEnd = 0;
        int32_t trimStart = 0;
    };

    // Adds a step behind `parent`, a node of this tree, or at the root if that is null. Lends the new node.
    SyntaxTreeNode* addLink(SyntaxTreeNode* parent, const Link& link);

    // The match of the first child at or behind `start` that fits the beginning of a pattern; nothing if no
    // child does, or if that child's pattern breaks off. `outBeginning`, if not null, receives the index
    // of that child, or the number of children.
    std::optional<SyntaxTreeMatch> match(const EPExpressionTreeNode& parent, std::size_t start,
                                         std::size_t* outBeginning = nullptr) const;

private:
    friend class Object<SyntaxTree>;

    SyntaxTree();
    ~SyntaxTree() override = default;

    Ref<SyntaxTreeNode> rootNode;
};

// Whether a child fits the next step behind `position`, with what follows from it.
struct SyntaxTreeStep {
    std::vector<const SyntaxTreeNode*> next; // empty if the child fits no link
    bool stays = false;                      // the match goes on at the same position with the next child
    bool isIgnored = false;                  // the child is passed over
};
SyntaxTreeStep testSyntax(const SyntaxTreeNode& position, const EPExpressionTreeNode& child,
                          const EPExpressionTreeNode& parent, bool isRoot);

} // namespace TBF
