#include "analysis/EPExpressionTreeNode.h"

#include "analysis/BasicToken.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionToken.h"
#include "runtime/String.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace TBF {

namespace {

// Calls `visit` with every node that stands for tokens of its own, in the order of the text, until it
// answers false. Keeps its own stack: brackets nest as deep as a line is long.
template <typename Visit>
void forEachTokenNode(const EPExpressionTreeNode& top, Visit visit) {
    if (top.ownsBasicTokens()) {
        visit(top);
        return;
    }
    struct Position {
        const EPExpressionTreeNode* parent;
        std::size_t next;
    };
    PooledVector<Position> path{{&top, 0}};
    while (!path.empty()) {
        Position& here = path.back();
        if (here.next == here.parent->children().size()) {
            path.pop_back();
            continue;
        }
        const EPExpressionTreeNode& child = *here.parent->children()[here.next++];
        if (!child.ownsBasicTokens()) {
            path.push_back({&child, 0});
        } else if (!visit(child)) {
            return;
        }
    }
}

} // namespace

EPExpressionTreeNode::EPExpressionTreeNode() = default;

// Takes the subtree apart level by level, so that its depth costs no stack.
EPExpressionTreeNode::~EPExpressionTreeNode() {
    const auto isLeafNode = [](const Ref<EPExpressionTreeNode>& node) { return node->isLeaf(); };
    if (std::ranges::all_of(nodes, isLeafNode)) return;
    Children doomed = std::move(nodes);
    while (!doomed.empty()) {
        const Ref<EPExpressionTreeNode> node = std::move(doomed.back());
        doomed.pop_back();
        if (!node->isUnique()) continue;
        std::move(node->nodes.begin(), node->nodes.end(), std::back_inserter(doomed));
        node->nodes.clear();
    }
}

Ref<EPExpressionTreeNode> EPExpressionTreeNode::create() {
    return make<EPExpressionTreeNode>();
}

Ref<EPExpressionTreeNode> EPExpressionTreeNode::createJoining(Children children) {
    Ref<EPExpressionTreeNode> node = create();
    node->nodes = std::move(children);
    return node;
}

Ref<EPExpressionTreeNode> EPExpressionTreeNode::createWithToken(const ExpressionToken& token) {
    Ref<EPExpressionTreeNode> node = create();
    node->setToken(token);
    return node;
}

void EPExpressionTreeNode::setTypes(token_type type, TBFTokenSubType subType) {
    tokenType = type;
    tokenSubType = subType;
}

TBFTokenSubType EPExpressionTreeNode::representedSubType() const {
    return representedTokenSubType != TBFTokenSubTypeNone ? representedTokenSubType : tokenSubType;
}

void EPExpressionTreeNode::setTypesBasedOn(const EPExpressionTreeNode& other) {
    if (ownsBasicTokens()) return;
    tokenType = other.tokenType;
    tokenSubType = other.tokenSubType;
    representedTokenSubType = other.representedTokenSubType;
}

void EPExpressionTreeNode::demoteToWord() {
    setTypes(TBFTokenTypeWord, TBFTokenSubTypeNone);
    representedTokenSubType = TBFTokenSubTypeNone;
}

bool EPExpressionTreeNode::hasOperatorOptions() const {
    return (demands.options | demands.preConditions | demands.postConditions | demands.argumentConditions) !=
           0;
}

void EPExpressionTreeNode::setToken(const ExpressionToken& token) {
    ownToken = TBF::retain(&token);
    located = false;
    setTypes(token.type(), token.subType());
}

void EPExpressionTreeNode::setToken(const BasicToken& token) {
    setToken(*ExpressionToken::create(TBF::retain(const_cast<BasicToken*>(&token))));
}

bool EPExpressionTreeNode::ownsBasicTokens() const {
    return ownToken && !ownToken->basicTokens().empty();
}

std::vector<BasicToken*> EPExpressionTreeNode::basicTokens() const {
    std::vector<BasicToken*> tokens;
    appendBasicTokens(tokens);
    return tokens;
}

void EPExpressionTreeNode::appendBasicTokens(std::vector<BasicToken*>& tokens) const {
    forEachTokenNode(*this, [&tokens](const EPExpressionTreeNode& node) {
        for (const Ref<BasicToken>& token : node.ownToken->basicTokens())
            tokens.push_back(token.get());
        return true;
    });
}

Ref<ExpressionToken> EPExpressionTreeNode::unchangedToken() const {
    const bool isUnchanged = ownsBasicTokens() && tokenType == ownToken->type() &&
                             tokenSubType == ownToken->actualSubType() &&
                             representedSubType() == ownToken->subType() && found.isEmpty();
    return isUnchanged ? TBF::retain(const_cast<ExpressionToken*>(ownToken.get())) : nullptr;
}

Ref<ExpressionToken> EPExpressionTreeNode::createTokenOfText() const {
    if (ownsBasicTokens() && ownToken->basicTokens().size() == 1) {
        return ExpressionToken::create(ownToken->basicTokens().front());
    }
    std::vector<Ref<BasicToken>> tokens;
    forEachTokenNode(*this, [&tokens](const EPExpressionTreeNode& node) {
        const auto own = node.ownToken->basicTokens();
        tokens.insert(tokens.end(), own.begin(), own.end());
        return true;
    });
    return ExpressionToken::create(std::move(tokens));
}

void EPExpressionTreeNode::locate() const {
    if (located) return;
    located = true;
    cachedExpression = nullptr;
    cachedRange = TBFRangeZero;
    cachedText = {};
    forEachTokenNode(*this, [this](const EPExpressionTreeNode& node) {
        const BasicToken& token = *node.ownToken->basicTokens().front();
        const TBFRange range = token.range();
        if (!cachedExpression) {
            cachedExpression = token.expression();
            cachedRange = range;
        } else {
            cachedRange = TBFRange::between(cachedRange.location, range.end());
        }
        return true;
    });
    if (!cachedExpression) return;
    const std::u16string_view whole = cachedExpression->view();
    const std::size_t start = std::min(whole.size(), static_cast<std::size_t>(cachedRange.location));
    cachedText = whole.substr(start, static_cast<std::size_t>(cachedRange.length));
}

TBFRange EPExpressionTreeNode::range() const {
    locate();
    return cachedRange;
}

std::u16string_view EPExpressionTreeNode::text() const {
    locate();
    return cachedText;
}

Ref<String> EPExpressionTreeNode::string() const {
    locate();
    return cachedExpression ? String::create(cachedText) : nullptr;
}

char16_t EPExpressionTreeNode::firstCharacter() const {
    const std::u16string_view whole = text();
    return whole.empty() ? u'\0' : whole.front();
}

const Expression* EPExpressionTreeNode::expression() const {
    locate();
    return cachedExpression;
}

void EPExpressionTreeNode::addChild(Ref<EPExpressionTreeNode> child) {
    if (child) nodes.push_back(std::move(child));
}

void EPExpressionTreeNode::replaceChildren(Children newChildren) {
    nodes = std::move(newChildren);
}

void EPExpressionTreeNode::replaceChildren(TBFRange range, Ref<EPExpressionTreeNode> replacement) {
    const auto count = static_cast<int32_t>(nodes.size());
    const int32_t start = std::clamp(range.location, 0, count);
    const int32_t end = std::clamp(range.end(), start, count);
    const auto position = nodes.erase(nodes.begin() + start, nodes.begin() + end);
    if (replacement) nodes.insert(position, std::move(replacement));
}

EPExpressionTreeNode::Children EPExpressionTreeNode::takeChildren() {
    return std::exchange(nodes, {});
}

int32_t EPExpressionTreeNode::indexOfChild(const EPExpressionTreeNode* child) const {
    const auto position = std::find(nodes.begin(), nodes.end(), child);
    return position == nodes.end() ? -1 : static_cast<int32_t>(position - nodes.begin());
}

} // namespace TBF
