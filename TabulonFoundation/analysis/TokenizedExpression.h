#pragma once

// The list of expression tokens of one text, as the tokenizer made it. The list never changes; its
// tokens carry fields that the analyzer writes, so that one list is worked on by one analyzer at a time.

#include "analysis/ExpressionToken.h"

#include <utility>
#include <vector>

namespace TBF {

class TokenizedExpression final : public Object<TokenizedExpression> {
public:
    static Ref<TokenizedExpression> create(std::vector<Ref<ExpressionToken>> tokens);

    const std::vector<Ref<ExpressionToken>>& tokens() const noexcept { return list; }

private:
    friend class Object<TokenizedExpression>;
    explicit TokenizedExpression(std::vector<Ref<ExpressionToken>> tokens) noexcept
        : list(std::move(tokens)) {}
    ~TokenizedExpression() override = default;

    std::vector<Ref<ExpressionToken>> list;
};

} // namespace TBF
