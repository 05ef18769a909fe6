#include "analysis/ExpressionTokenizer.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

// Comments are found in two walks. The first folds what stands between two double quotes. The second
// looks for the end of a title or comment on the left and the start of one on the right; since quoted
// parts are single tokens by then, no mark inside of them counts.

namespace TBF {

namespace {

using TokenList = ExpressionTokenList;
using TokenSpan = std::span<const Ref<ExpressionToken>>;

bool isWordBreaker(const ExpressionToken& token, char16_t c) {
    return token.type() == TBFTokenTypeWord && token.subType() == TBFTokenSubTypeWordBreaker &&
           token.firstCharacter() == c;
}

// One comment of all the basic tokens of `tokens`, which isn't empty.
Ref<ExpressionToken> mergedComment(TokenSpan tokens, TBFTokenSubType subType) {
    std::size_t count = 0;
    for (const auto& token : tokens)
        count += token->basicTokens().size();
    std::vector<Ref<BasicToken>> basicTokens;
    basicTokens.reserve(count);
    for (const auto& token : tokens) {
        const auto own = token->basicTokens();
        basicTokens.insert(basicTokens.end(), own.begin(), own.end());
    }
    Ref<ExpressionToken> comment = ExpressionToken::create(std::move(basicTokens));
    comment->setType(TBFTokenTypeComment);
    comment->setSubType(subType);
    return comment;
}

void appendMerged(TokenList& list, TokenSpan tokens, TBFTokenSubType subType) {
    if (!tokens.empty()) list.push_back(mergedComment(tokens, subType));
}

// Works within the list: what is written never overtakes what is read.
void foldInlineComments(TokenList& tokens) {
    std::size_t written = 0;
    bool isOpen = false;
    std::size_t openQuote = 0; // where the open quote was written
    for (std::size_t read = 0; read < tokens.size(); ++read) {
        const bool isQuote = isWordBreaker(*tokens[read], u'"');
        if (written != read) tokens[written] = std::move(tokens[read]);
        ++written;
        if (!isQuote) continue;
        if (isOpen) {
            const TokenSpan quoted = TokenSpan(tokens).subspan(openQuote, written - openQuote);
            tokens[openQuote] = mergedComment(quoted, TBFTokenSubTypeInlineComment);
            written = openQuote + 1;
        } else {
            openQuote = written - 1;
        }
        isOpen = !isOpen;
    }
    tokens.resize(written);
}

struct CommentBounds {
    std::size_t leftEnd = 0; // one past the last token of the left part
    TBFTokenSubType leftKind = TBFTokenSubTypeNone;
    std::size_t rightStart = 0;
    TBFTokenSubType rightKind = TBFTokenSubTypeNone;
};

CommentBounds findCommentBounds(const TokenList& tokens) {
    CommentBounds bounds{.rightStart = tokens.size()};
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const ExpressionToken& token = *tokens[i];
        if (token.type() == TBFTokenTypeCommentStart) {
            bounds.rightStart = i;
            bounds.rightKind = TBFTokenSubTypeRightwardsComment;
            break;
        }
        if (i == 0 && isWordBreaker(token, u'@')) {
            bounds.rightStart = i;
            bounds.rightKind = TBFTokenSubTypeRightwardsTitle;
            break;
        }
        if (isWordBreaker(token, u':')) {
            bounds.leftEnd = i + 1;
            bounds.leftKind = TBFTokenSubTypeLeftwardsTitle;
        } else if (i + 1 == tokens.size() && isWordBreaker(token, u';')) {
            bounds.leftEnd = i + 1;
            bounds.leftKind = TBFTokenSubTypeLeftwardsComment;
        }
    }
    return bounds;
}

void foldTitlesAndComments(TokenList& tokens) {
    const CommentBounds bounds = findCommentBounds(tokens);
    if (bounds.leftKind == TBFTokenSubTypeNone && bounds.rightKind == TBFTokenSubTypeNone) return;

    const TokenSpan all(tokens);
    TokenList folded;
    folded.reserve(bounds.rightStart - bounds.leftEnd + 2);
    appendMerged(folded, all.first(bounds.leftEnd), bounds.leftKind);
    for (std::size_t i = bounds.leftEnd; i < bounds.rightStart; ++i)
        folded.push_back(std::move(tokens[i]));
    appendMerged(folded, all.subspan(bounds.rightStart), bounds.rightKind);
    tokens = std::move(folded);
}

// Whether a token can be a mark of a comment or a title at all.
bool holdsMarks(const TokenList& tokens) {
    return std::ranges::any_of(tokens, [](const Ref<ExpressionToken>& token) {
        return token->type() == TBFTokenTypeCommentStart ||
               (token->type() == TBFTokenTypeWord && token->subType() == TBFTokenSubTypeWordBreaker);
    });
}

} // namespace

Ref<ExpressionTokenizer> ExpressionTokenizer::create(TBFLocale locale) {
    return make<ExpressionTokenizer>(locale);
}

ExpressionTokenizer::ExpressionTokenizer(TBFLocale locale)
    : scanLocale(locale)
    , scanner(ExpressionScanner::create(locale)) {}

Ref<TokenizedExpression> ExpressionTokenizer::tokenize(Expression* expression) const {
    auto basicTokens = scanner->scan(expression);
    TokenList tokens;
    tokens.reserve(basicTokens.size());
    for (auto& basicToken : basicTokens)
        tokens.push_back(ExpressionToken::create(std::move(basicToken)));
    if (commentsEnabled && holdsMarks(tokens)) {
        foldInlineComments(tokens);
        foldTitlesAndComments(tokens);
    }
    return TokenizedExpression::create(std::move(tokens));
}

} // namespace TBF
