#pragma once

// A position in a pattern over sibling nodes of an analysis tree: the links from it say which node may come
// next and where that leads. A link that is terminal completes the pattern and carries the number of the
// rule to apply. Built at start-up, read-only afterwards, and then usable on any thread.

#include "analysis/EPExpressionTreeNode.h"

#include <cstdint>
#include <map>
#include <vector>

enum TBFSyntaxTreeLinkOption : uint32_t {
    TBFSyntaxTreeLinkOptionNone = 0,
    TBFSyntaxTreeLinkOptionSkippable = 1, // a sibling that a match may leave out
    TBFSyntaxTreeLinkOptionOptional = 2,  // nodes that fit nothing are passed
    TBFSyntaxTreeLinkOptionTerminal = 4,  // completes the pattern; the type is the rule's number
};

namespace TBF {

// Whether a node among the children of `parent` fits a link.
using SyntaxTreePredicate = bool (*)(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent);

bool syntaxTreePredicateTrue(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent);

class SyntaxTreeNode final : public Object<SyntaxTreeNode> {
public:
    static Ref<SyntaxTreeNode> create();

    // The type of the tree nodes that lead here, or the number of a rule. Links to this node are filed under
    // type and subtype, so both are set before the node is linked. Subtype 0 fits any.
    int32_t type() const { return nodeType; }
    void setType(int32_t type) { nodeType = type; }
    int32_t subType() const { return nodeSubType; }
    void setSubType(int32_t subType) { nodeSubType = subType; }

    void setPredicate(SyntaxTreePredicate newPredicate) { predicate = newPredicate; }
    bool fits(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent) const;

    uint32_t linkOptions() const { return options; }
    void setLinkOptions(uint32_t linkOptions) { options = linkOptions; }

    // How many nodes come off the ends of a matched run before the rule applies to the rest.
    int32_t trimEnd() const { return takenOffEnd; }
    int32_t trimStart() const { return takenOffStart; }
    void setTrims(int32_t end, int32_t start);

    // A second link of the same type and subtype becomes a sibling of the first.
    void addLink(Ref<SyntaxTreeNode> next);
    void addSibling(Ref<SyntaxTreeNode> sibling);

    bool isLeaf() const { return links.empty(); }
    bool hasOptionalLink() const { return optionalLink; }

    // The terminal link, if it is the only link; else null.
    const SyntaxTreeNode* singleTerminal() const;

    // Appends the positions to which the node leads, those of its exact subtype first.
    void appendNext(const EPExpressionTreeNode& node, const EPExpressionTreeNode& parent, bool skipsMarked,
                    std::vector<const SyntaxTreeNode*>& next) const;

    // Calls `visit(node)` for this node and all behind it, each before those it leads to.
    template <typename Visit>
    void explore(Visit visit) const {
        std::vector<const SyntaxTreeNode*> pending{this};
        while (!pending.empty()) {
            const SyntaxTreeNode* const node = pending.back();
            pending.pop_back();
            visit(*node);
            for (const Ref<SyntaxTreeNode>& sibling : node->siblings)
                pending.push_back(sibling.get());
            for (const auto& [key, link] : node->links)
                pending.push_back(link.get());
        }
    }

private:
    friend class Object<SyntaxTreeNode>;

    SyntaxTreeNode() = default;
    ~SyntaxTreeNode() override = default;

    int32_t nodeType = 0;
    int32_t nodeSubType = 0;
    SyntaxTreePredicate predicate = syntaxTreePredicateTrue;
    uint32_t options = TBFSyntaxTreeLinkOptionNone;
    int32_t takenOffEnd = 0;
    int32_t takenOffStart = 0;
    bool optionalLink = false;
    std::map<int32_t, Ref<SyntaxTreeNode>> links; // by subtype * 65536 + type
    std::vector<Ref<SyntaxTreeNode>> siblings;    // further nodes of the same key
};

} // namespace TBF
