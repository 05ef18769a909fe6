#include "analysis/syntaxtree/SyntaxTreeNode.h"

#include <utility>

namespace TBF {

namespace {

constexpr int32_t wildcardKey = 1042;

constexpr int32_t linkKey(int32_t type, int32_t subType) {
    return subType * 65536 + type;
}

} // namespace

bool syntaxTreePredicateTrue(const EPExpressionTreeNode&, const EPExpressionTreeNode&) {
    return true;
}

Ref<SyntaxTreeNode> SyntaxTreeNode::create() {
    return make<SyntaxTreeNode>();
}

bool SyntaxTreeNode::fits(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent) const {
    return !predicate || predicate(node, parent);
}

void SyntaxTreeNode::setTrims(int32_t end, int32_t start) {
    takenOffEnd = end;
    takenOffStart = start;
}

void SyntaxTreeNode::addLink(Ref<SyntaxTreeNode> next) {
    if (!next) return;
    if (next->options & TBFSyntaxTreeLinkOptionOptional) optionalLink = true;
    Ref<SyntaxTreeNode>& link = links[linkKey(next->nodeType, next->nodeSubType)];
    if (link) {
        link->addSibling(std::move(next));
    } else {
        link = std::move(next);
    }
}

void SyntaxTreeNode::addSibling(Ref<SyntaxTreeNode> sibling) {
    if (sibling) siblings.push_back(std::move(sibling));
}

const SyntaxTreeNode* SyntaxTreeNode::singleTerminal() const {
    if (links.size() != 1) return nullptr;
    const SyntaxTreeNode* const only = links.begin()->second.get();
    return only->siblings.empty() && (only->options & TBFSyntaxTreeLinkOptionTerminal) ? only : nullptr;
}

void SyntaxTreeNode::appendNext(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent,
                                bool skipsMarked, std::vector<const SyntaxTreeNode*>& next) const {
    const auto follow = [&](int32_t key) {
        const auto found = links.find(key);
        if (found == links.end()) return;
        const SyntaxTreeNode* const link = found->second.get();
        if (link->fits(node, parent)) next.push_back(link);
        for (const Ref<SyntaxTreeNode>& sibling : link->siblings) {
            if (skipsMarked && (sibling->options & TBFSyntaxTreeLinkOptionSkippable)) continue;
            if (sibling->fits(node, parent)) next.push_back(sibling.get());
        }
    };
    const int32_t exactKey = linkKey(node.type(), node.subType());
    const int32_t typeKey = linkKey(node.type(), TBFTokenSubTypeNone);
    follow(exactKey);
    if (typeKey != exactKey) follow(typeKey);
    follow(wildcardKey);
}

} // namespace TBF
