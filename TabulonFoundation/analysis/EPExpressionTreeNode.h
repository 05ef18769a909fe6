#pragma once

// A node of an analysis tree. A leaf stands for one token of the line; an inner node is a bracketed
// group, whose children are its brackets and what they enclose, or several neighbouring tokens joined
// into one. The passes of the analyzer retype nodes and hang them under new ones. A node belongs to the
// thread of its analysis. Texts that it lends live as long as the analyzed expression.

#include "analysis/TBFOperatorOptions.h"
#include "analysis/TBFTokenTypes.h"
#include "names/WordMeaning.h"
#include "runtime/Object.h"
#include "runtime/ObjectPool.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace TBF {

class BasicToken;
class Expression;
class ExpressionToken;
class String;

class EPExpressionTreeNode final : public Object<EPExpressionTreeNode> {
public:
    using Children = PooledVector<Ref<EPExpressionTreeNode>>;

    static Ref<EPExpressionTreeNode> create();

    // A node over `children`, with types yet to be set.
    static Ref<EPExpressionTreeNode> createJoining(Children children);

    // A node that stands for a token and has its types.
    static Ref<EPExpressionTreeNode> createWithToken(const ExpressionToken& token);

    token_type type() const { return tokenType; }
    TBFTokenSubType subType() const { return tokenSubType; }
    void setType(token_type type) { tokenType = type; }
    void setSubType(TBFTokenSubType subType) { tokenSubType = subType; }
    void setTypes(token_type type, TBFTokenSubType subType);
    bool is(token_type type) const { return tokenType == type; }
    bool is(token_type type, TBFTokenSubType subType) const {
        return tokenType == type && tokenSubType == subType;
    }
    bool isOperator(TBFTokenSubType subType) const { return is(TBFTokenTypeOperator, subType); }

    // Whitespace or a substitution mark: what words and operands are looked for across.
    bool isGap() const { return is(TBFTokenTypeWhitespace) || is(TBFTokenTypeSubstitutionMark); }

    // The subtype to show for the node: the one that was set, or else its own.
    TBFTokenSubType representedSubType() const;
    void setRepresentedSubType(TBFTokenSubType subType) { representedTokenSubType = subType; }

    // Copies the three type fields, unless this node stands for tokens of its own.
    void setTypesBasedOn(const EPExpressionTreeNode& other);

    // The passes leave the types of a node that isn't mutable as they are.
    bool isMutable() const { return canBeRetyped; }
    void setMutable(bool newMutable) { canBeRetyped = newMutable; }

    // Makes the node a plain word, which no longer has an operator's or a number's subtype.
    void demoteToWord();

    const TBFOperatorOptions& operatorOptions() const { return demands; }
    void setOperatorOptions(const TBFOperatorOptions& options) { demands = options; }
    bool hasOperatorOptions() const;

    // What was found for the node's text.
    const WordMeaning& meaning() const { return found; }
    WordMeaning& meaning() { return found; }

    // Makes the node stand for a token or a basic token, and gives it that token's types.
    void setToken(const ExpressionToken& token);
    void setToken(const BasicToken& token);
    bool ownsBasicTokens() const;

    // The basic tokens of the node, or else of all nodes below it, in order. Borrowed.
    std::vector<BasicToken*> basicTokens() const;
    void appendBasicTokens(std::vector<BasicToken*>& tokens) const;

    // The token that the node stands for, if the analysis has left it with its own types and found no meaning
    // for it; null otherwise.
    Ref<ExpressionToken> unchangedToken() const;

    // A new token of all basic tokens of the node, or null if it has none. Its types are those of the first.
    Ref<ExpressionToken> createTokenOfText() const;

    // The place and the text of the node, with all that lies between its tokens. Found when first asked
    // for and kept. Of a node with several tokens of its own only the first one counts.
    TBFRange range() const;
    std::u16string_view text() const;
    Ref<String> string() const;
    char16_t firstCharacter() const; // 0 without a text
    const Expression* expression() const;

    bool isLeaf() const { return nodes.empty(); }
    const Children& children() const { return nodes; }
    void addChild(Ref<EPExpressionTreeNode> child);
    void replaceChildren(Children newChildren);

    // Puts `replacement` in the place of the children in `range`, as far as there are any.
    void replaceChildren(TBFRange range, Ref<EPExpressionTreeNode> replacement);

    // The children leave the node for a pass that builds a new list out of them.
    Children takeChildren();

    // -1 if `child` is none.
    int32_t indexOfChild(const EPExpressionTreeNode* child) const;

private:
    friend class Object<EPExpressionTreeNode>;

    EPExpressionTreeNode();
    ~EPExpressionTreeNode() override;

    void locate() const;

    token_type tokenType = TBFTokenTypeNone;
    TBFTokenSubType tokenSubType = TBFTokenSubTypeNone;
    TBFTokenSubType representedTokenSubType = TBFTokenSubTypeNone;
    bool canBeRetyped = true;
    mutable bool located = false; // the three caches below are filled
    mutable TBFRange cachedRange;
    mutable const Expression* cachedExpression = nullptr; // held by the basic tokens
    mutable std::u16string_view cachedText;
    Ref<const ExpressionToken> ownToken; // null at a node that is made of its children
    Children nodes;
    WordMeaning found;
    TBFOperatorOptions demands;
};

} // namespace TBF
