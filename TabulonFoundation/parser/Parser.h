#pragma once

// Makes trees of analyzed token lists and keeps the error of the last one. Used by the evaluator, the word
// operators' compiler and the core's expression parser; one thread at a time.

#include "parser/ParserImpl.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

namespace TBF {

class Parser final : public Object<Parser> {
public:
    static Ref<Parser> create();

    // The tree, or null without an error when there is nothing to evaluate, or null with one.
    Ref<ExpressionTree> parse(ExpressionTokens tokens);

    // Of the last parse.
    TBFParserError error() const noexcept { return lastError; }

private:
    friend class Object<Parser>;
    Parser() noexcept = default;

    TBFParserError lastError = TBFParserErrorNone;
};

} // namespace TBF
