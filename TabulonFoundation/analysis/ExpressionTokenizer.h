#pragma once

// Makes the list of expression tokens of a text: scans it and folds comments and titles into one token
// each, before any word is looked up. Nothing makes tokenizing fail; a quote without its partner, an
// "@" that isn't first and a ";" that isn't last are plain words. A tokenizer is set up by one thread, and
// may then be shared.

#include "analysis/ExpressionScanner.h"
#include "analysis/TokenizedExpression.h"

namespace TBF {

class ExpressionTokenizer final : public Object<ExpressionTokenizer> {
public:
    // Comments are enabled.
    static Ref<ExpressionTokenizer> create(TBFLocale locale);

    TBFLocale locale() const noexcept { return scanLocale; }
    bool enableComments() const noexcept { return commentsEnabled; }

    // Without comments, their marks remain words, and "//" a token of its own type.
    void setEnableComments(bool enable) noexcept { commentsEnabled = enable; }

    // A null expression has no tokens.
    Ref<TokenizedExpression> tokenize(Expression* expression) const;

private:
    friend class Object<ExpressionTokenizer>;
    explicit ExpressionTokenizer(TBFLocale locale);
    ~ExpressionTokenizer() override = default;

    TBFLocale scanLocale;
    bool commentsEnabled = true;
    Ref<ExpressionScanner> scanner;
};

} // namespace TBF
