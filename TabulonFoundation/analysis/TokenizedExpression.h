#pragma once

// The list of expression tokens of one text, as the tokenizer made it. The list never changes; its
// tokens carry fields that the analyzer writes, so that one list is worked on by one analyzer at a time.

#include "analysis/ExpressionToken.h"

#include <utility>
#include <vector>

namespace TBF {

class TokenizedExpression final : public Object<TokenizedExpression> {
public:
    static Ref<TokenizedExpression> create(ExpressionTokenList tokens);

    const ExpressionTokenList& tokens() const noexcept { return list; }

private:
    friend class Object<TokenizedExpression>;
    explicit TokenizedExpression(ExpressionTokenList tokens) noexcept
        : list(std::move(tokens)) {}
    ~TokenizedExpression() override = default;

    ExpressionTokenList list;
};

} // namespace TBF
