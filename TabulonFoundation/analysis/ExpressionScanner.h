#pragma once

// Cuts the text of an expression into basic tokens, whose ranges lie end to end and cover the whole
// text, whitespace included. The scanner knows nothing of units, functions or comments. Every text
// yields tokens; what can't be a number is a word. A scanner is read-only once made and may be shared
// between threads.

#include "analysis/BasicToken.h"

#include <set>
#include <vector>

namespace TBF {

class ExpressionScanner : public Object<ExpressionScanner> {
public:
    // With the default word breakers, and the default locale if none is given.
    static Ref<ExpressionScanner> create();
    static Ref<ExpressionScanner> create(TBFLocale locale);

    // The tokens in the order of the text. A null expression, or one without text, has none.
    virtual PooledVector<Ref<BasicToken>> scan(Expression* expression) const = 0;

protected:
    ExpressionScanner() noexcept = default;
    ~ExpressionScanner() override = default;
};

// The characters that stop a word and stand alone: colon, at sign, double quote, caret, semicolon,
// equals, exclamation mark, percent and the round brackets.
const std::set<TBFChar>& defaultWordBreakers();

} // namespace TBF
