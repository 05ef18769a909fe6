#include "analysis/syntaxtree/SyntaxTreeCrawl.h"

#include "analysis/syntaxtree/SyntaxTreeRule.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace TBF {

namespace {

constexpr int mostRounds = 1000;

bool isIgnored(const SyntaxTreeMatch& match, std::size_t index) {
    return std::binary_search(match.ignored.begin(), match.ignored.end(), index);
}

// Takes nodes off both ends of the run, and the ignored ones that come to stand there.
void trim(SyntaxTreeMatch& match) {
    int32_t takenOffEnd = 0;
    for (; match.end > match.start; --match.end) {
        if (isIgnored(match, match.end - 1)) continue;
        if (takenOffEnd++ == match.terminal->trimEnd()) break;
    }
    int32_t takenOffStart = 0;
    for (; match.start < match.end; ++match.start) {
        if (isIgnored(match, match.start)) continue;
        if (takenOffStart++ == match.terminal->trimStart()) break;
    }
}

void wrap(EPExpressionTreeNode& parent, const SyntaxTreeMatch& match) {
    const EPExpressionTreeNode::Children& nodes = parent.children();
    EPExpressionTreeNode::Children run;
    for (std::size_t index = match.start; index < match.end; ++index)
        run.push_back(nodes[index]);
    const Ref<EPExpressionTreeNode> first = run.front();
    Ref<EPExpressionTreeNode> node = EPExpressionTreeNode::createJoining(std::move(run));
    node->setTypesBasedOn(*first);
    applySyntaxTreeRule(match.terminal->type(), *node);
    parent.replaceChildren(
        TBFRange::between(static_cast<int32_t>(match.start), static_cast<int32_t>(match.end)),
        std::move(node));
}

void crawlChildren(EPExpressionTreeNode& parent, const SyntaxTree& tree) {
    std::size_t start = 0;
    for (int round = 0; start < parent.children().size(); ++round) {
        if (round == mostRounds) {
            std::puts("Error: infinite loop in syntax tree crawl");
            return;
        }
        std::size_t beginning = 0;
        std::optional<SyntaxTreeMatch> match = tree.match(parent, start, &beginning);
        if (!match && beginning == parent.children().size()) return; // nothing fits from here on
        if (match) trim(*match);
        if (match && match->start < match->end) {
            wrap(parent, *match);
        } else {
            ++start;
        }
    }
}

} // namespace

void crawlSyntaxTree(EPExpressionTreeNode& root, const SyntaxTree& tree) {
    std::vector<EPExpressionTreeNode*> groups;
    crawlGroups(root, [&groups](EPExpressionTreeNode& group) { groups.push_back(&group); });
    for (auto group = groups.rbegin(); group != groups.rend(); ++group)
        crawlChildren(**group, tree);
}

} // namespace TBF
