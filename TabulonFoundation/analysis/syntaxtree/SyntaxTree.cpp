#include "analysis/syntaxtree/SyntaxTree.h"

#include <utility>

namespace TBF {

namespace {

// A way through the pattern that is still to be followed.
struct Branch {
    const SyntaxTreeNode* position;
    std::size_t next; // the index of the child to test
    std::vector<std::size_t> ignored;
};

void pushBranches(std::vector<Branch>& branches, const std::vector<const SyntaxTreeNode*>& positions,
                  std::size_t next, const std::vector<std::size_t>& ignored) {
    // The first one is to be followed first.
    for (auto position = positions.rbegin(); position != positions.rend(); ++position) {
        branches.push_back({*position, next, ignored});
    }
}

} // namespace

SyntaxTree::SyntaxTree()
    : rootNode(SyntaxTreeNode::create()) {}

Ref<SyntaxTree> SyntaxTree::create() {
    return make<SyntaxTree>();
}

SyntaxTreeNode* SyntaxTree::addLink(SyntaxTreeNode* parent, const Link& link) {
    Ref<SyntaxTreeNode> node = SyntaxTreeNode::create();
    node->setType(link.type);
    node->setSubType(link.subType);
    node->setPredicate(link.predicate);
    node->setLinkOptions(link.options);
    node->setTrims(link.trimEnd, link.trimStart);
    SyntaxTreeNode* const added = node.get();
    (parent ? *parent : *rootNode).addLink(std::move(node));
    return added;
}

SyntaxTreeStep testSyntax(const SyntaxTreeNode& position, const EPExpressionTreeNode& child,
                          const EPExpressionTreeNode& parent, bool isRoot) {
    SyntaxTreeStep step;
    position.appendNext(child, parent, false, step.next);
    if (!step.next.empty()) return step;
    step.isIgnored = child.is(TBFTokenTypeWhitespace) && !isRoot;
    step.stays = step.isIgnored || position.hasOptionalLink();
    return step;
}

std::optional<SyntaxTreeMatch> SyntaxTree::match(const EPExpressionTreeNode& parent, std::size_t start,
                                                 std::size_t* outBeginning) const {
    const EPExpressionTreeNode::Children& children = parent.children();
    std::vector<Branch> branches;
    std::size_t beginning = start;
    for (; beginning < children.size() && branches.empty(); ++beginning) {
        pushBranches(branches, testSyntax(*rootNode, *children[beginning], parent, true).next, beginning + 1,
                     {});
    }
    if (!branches.empty()) --beginning;
    if (outBeginning) *outBeginning = beginning;
    while (!branches.empty()) {
        Branch branch = std::move(branches.back());
        branches.pop_back();
        if (const SyntaxTreeNode* const terminal = branch.position->singleTerminal()) {
            return SyntaxTreeMatch{beginning, branch.next, std::move(branch.ignored), terminal};
        }
        if (branch.next >= children.size()) continue;
        const SyntaxTreeStep step = testSyntax(*branch.position, *children[branch.next], parent, false);
        if (step.isIgnored) branch.ignored.push_back(branch.next);
        if (step.stays) {
            branches.push_back({branch.position, branch.next + 1, std::move(branch.ignored)});
        } else {
            pushBranches(branches, step.next, branch.next + 1, branch.ignored);
        }
    }
    return std::nullopt;
}

} // namespace TBF
