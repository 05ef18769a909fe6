#pragma once

// An expression with its tokens for display. Where the tokens come from is for the classes that derive from
// it. Used by one thread at a time.

#include "expressions/TCParsedExpressionHelpers.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

class TCExpression;

class TCParsedExpression {
public:
    explicit TCParsedExpression(std::shared_ptr<TCExpression> expression);
    virtual ~TCParsedExpression();
    TCParsedExpression(const TCParsedExpression&) = delete;
    TCParsedExpression& operator=(const TCParsedExpression&) = delete;

    // May be null.
    virtual std::shared_ptr<TCExpression> expression() const { return wholeExpression; }

    // None in this class. Borrowed until the names that the expression knows change.
    virtual const TCExpressionTokens& tokens() const;

    // Whether tokens stand ready. Those that are made on demand can be dropped, to be made again when they
    // are asked for; a walk over a whole document need not keep them all.
    virtual bool hasTokens() const { return true; }
    virtual void dropTokens() {}

    std::size_t countOfTokens() const { return tokens().size(); }

    // The operations of TCParsedExpressionHelpers, on these tokens.
    std::shared_ptr<TCExpressionToken> tokenAtLocation(int64_t location) const;
    std::shared_ptr<TCExpressionToken> tokenAtLocation(int64_t location, int32_t locationType) const;
    std::optional<TCExpressionTokens> tokensOfType(TCExpressionTokenType type) const;
    TCExpressionTokens lineReferenceTokensOfType(TCLineReferenceType type) const;
    bool hasReferenceToVariableWithName(std::u16string_view name) const;
    std::set<std::u16string> variableReferences() const;
    std::shared_ptr<TCExpressionToken> tokenAfter(const TCExpressionToken& token, int32_t direction) const;
    void enumerateTokensAfterToken(const TCExpressionToken* token, int32_t direction,
                                   const std::function<void(const TCExpressionToken&, bool&)>& visit) const;
    void enumerateTokensWithBlock(const std::function<void(const TCExpressionToken&, bool&)>& visit) const;

private:
    std::shared_ptr<TCExpression> wholeExpression;
};
